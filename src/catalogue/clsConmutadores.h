// The catalogue of switches as hosts see it: where it lives, and the window that manages it.
#pragma once

#include "catalogue/frmConmutador.h"

namespace conmuta {

class clsConmutadores {
 public:
  explicit clsConmutadores(const Platform& platform) : platform_(platform) {}
  clsConmutadores(const clsConmutadores&) = delete;
  clsConmutadores& operator=(const clsConmutadores&) = delete;

  // Always ends with "\".
  const Text& Directorio() const { return directory_; }
  void Directorio(TextView value);

  // How the files of the catalogue are named: prefix, number, ".", extension.
  const Text& Prefijo() const { return prefix_; }
  void Prefijo(TextView value) { prefix_ = value; }
  const Text& Extension() const { return extension_; }
  void Extension(TextView value) { extension_ = value; }

  // Full path of the default-switch file, the one that the host uses.
  const Text& ArchivoInstalado() const { return installed_file_; }
  void ArchivoInstalado(TextView value) { installed_file_ = value; }

  // Whether that file has changed in any Editar so far. Hosts rely on it never going back.
  bool Instalado() const { return installed_; }

  // Shows the manager window until the user closes it. A model's cable is shown by the other kind
  // of view.
  void Editar(const ViewFactory<frmConmutador>& make_view,
              const ViewFactory<frmPuertos>& make_cable_view);

 private:
  const Platform platform_;
  Text directory_;
  Text prefix_;
  Text extension_;
  Text installed_file_;
  bool installed_ = false;
};

}  // namespace conmuta
