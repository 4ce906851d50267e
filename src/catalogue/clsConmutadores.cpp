#include "catalogue/clsConmutadores.h"

namespace conmuta {

void clsConmutadores::Directorio(TextView value) {
  directory_ = SwitchFolder::WithBackslash(value);
}

void clsConmutadores::Editar(const ViewFactory<frmConmutador>& make_view,
                             const ViewFactory<frmPuertos>& make_cable_view) {
  const auto view = make_view();
  frmConmutador window(platform_, *view, make_cable_view);
  window.EvInstalar = [this] { installed_ = true; };
  window.Prefijo(prefix_);
  window.Extension(extension_);
  window.Directorio(directory_);
  window.ArchivoInstalar(installed_file_);
  window.Show();
}

}  // namespace conmuta
