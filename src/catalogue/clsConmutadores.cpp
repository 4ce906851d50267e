#include "catalogue/clsConmutadores.h"

namespace conmuta {

void clsConmutadores::Directorio(TextView value) {
  directory_ = value;
  if (!directory_.ends_with(u'\\')) directory_ += u'\\';
}

void clsConmutadores::Editar(const ViewFactory& make_view) {
  const auto view = make_view();
  frmConmutador window(platform_, *view, [this] { installed_ = true; });
  window.Prefijo(prefix_);
  window.Extension(extension_);
  window.Directorio(directory_);
  window.ArchivoInstalar(installed_file_);
  window.Show();
}

}  // namespace conmuta
