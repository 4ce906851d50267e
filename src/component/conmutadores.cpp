// clsConmutadores as hosts see it.
#include "component/objects.h"

namespace conmuta::component {
namespace {

struct Catalogue {};

using Base = AutomationObject<_clsConmutadores, Catalogue>;

class Conmutadores final : public Base {
 public:
  Conmutadores()
      : Base({CLSID_clsConmutadores, IID__clsConmutadores, kCatalogueCoreIid, nullptr}) {}

  Catalogue& core() override { return catalogue_; }

  STDMETHODIMP get_Directorio(BSTR*) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP put_Directorio(BSTR) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP get_Prefijo(BSTR*) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP put_Prefijo(BSTR) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP get_Extension(BSTR*) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP put_Extension(BSTR) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP get_ArchivoInstalado(BSTR*) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP put_ArchivoInstalado(BSTR) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP get_Instalado(VARIANT_BOOL*) override { return ReportPlain(E_NOTIMPL); }
  STDMETHODIMP Editar() override { return ReportPlain(E_NOTIMPL); }

 private:
  Catalogue catalogue_;
};

}  // namespace

HRESULT CreateConmutadores(IUnknown** object) {
  return Create<Conmutadores>(object);
}

}  // namespace conmuta::component
