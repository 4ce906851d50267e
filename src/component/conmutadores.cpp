// clsConmutadores as hosts see it.
#include "catalogue/clsConmutadores.h"
#include "component/objects.h"
#include "ui/win32/cable_window.h"
#include "ui/win32/manager_window.h"

namespace conmuta::component {
namespace {

using Base = AutomationObject<_clsConmutadores, clsConmutadores>;

class Conmutadores final : public Base {
 public:
  Conmutadores()
      : Base({CLSID_clsConmutadores, IID__clsConmutadores, kCatalogueCoreIid, nullptr}),
        catalogue_(SystemPlatform()) {}

  clsConmutadores& core() override { return catalogue_; }

  STDMETHODIMP get_Directorio(BSTR* valor) override {
    return GetText(valor, [&]() -> TextView { return catalogue_.Directorio(); });
  }
  STDMETHODIMP put_Directorio(BSTR valor) override {
    return Do([&] { catalogue_.Directorio(View(valor)); });
  }
  STDMETHODIMP get_Prefijo(BSTR* valor) override {
    return GetText(valor, [&]() -> TextView { return catalogue_.Prefijo(); });
  }
  STDMETHODIMP put_Prefijo(BSTR valor) override {
    return Do([&] { catalogue_.Prefijo(View(valor)); });
  }
  STDMETHODIMP get_Extension(BSTR* valor) override {
    return GetText(valor, [&]() -> TextView { return catalogue_.Extension(); });
  }
  STDMETHODIMP put_Extension(BSTR valor) override {
    return Do([&] { catalogue_.Extension(View(valor)); });
  }
  STDMETHODIMP get_ArchivoInstalado(BSTR* valor) override {
    return GetText(valor, [&]() -> TextView { return catalogue_.ArchivoInstalado(); });
  }
  STDMETHODIMP put_ArchivoInstalado(BSTR valor) override {
    return Do([&] { catalogue_.ArchivoInstalado(View(valor)); });
  }
  STDMETHODIMP get_Instalado(VARIANT_BOOL* valor) override {
    return GetBool(valor, [&] { return catalogue_.Instalado(); });
  }
  STDMETHODIMP Editar() override {
    return Do([&] { catalogue_.Editar(win32::MakeManagerView, win32::MakeCableView); });
  }

 private:
  clsConmutadores catalogue_;
};

}  // namespace

HRESULT CreateConmutadores(IUnknown** object) {
  return Create(object, [] { return new Conmutadores(); });
}

}  // namespace conmuta::component
