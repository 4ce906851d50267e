// clsLlamadaTRD as hosts see it.
#include "component/objects.h"

namespace conmuta::component {
namespace {

using Base = AutomationObject<_clsLlamadaTRD, clsLlamadaTRD>;

class LlamadaTRD final : public Base {
 public:
  explicit LlamadaTRD(std::shared_ptr<clsLlamadaTRD> call)
      : Base({CLSID_clsLlamadaTRD, IID__clsLlamadaTRD, kCallCoreIid, nullptr}),
        call_(std::move(call)) {}

  clsLlamadaTRD& core() override { return *call_; }

  STDMETHODIMP get_Anio(::emParamTipoFecha emParam, SHORT* valor) override {
    return Get(valor, [&] { return call_->Anio(To<conmuta::emParamTipoFecha>(emParam)); });
  }
  STDMETHODIMP put_Anio(::emParamTipoFecha emParam, SHORT valor) override {
    return Do([&] { call_->Anio(To<conmuta::emParamTipoFecha>(emParam), valor); });
  }
  STDMETHODIMP get_Mes(::emParamTipoFecha emParam, SHORT* valor) override {
    return Get(valor, [&] { return call_->Mes(To<conmuta::emParamTipoFecha>(emParam)); });
  }
  STDMETHODIMP put_Mes(::emParamTipoFecha emParam, SHORT valor) override {
    return Do([&] { call_->Mes(To<conmuta::emParamTipoFecha>(emParam), valor); });
  }
  STDMETHODIMP get_Dia(::emParamTipoFecha emParam, SHORT* valor) override {
    return Get(valor, [&] { return call_->Dia(To<conmuta::emParamTipoFecha>(emParam)); });
  }
  STDMETHODIMP put_Dia(::emParamTipoFecha emParam, SHORT valor) override {
    return Do([&] { call_->Dia(To<conmuta::emParamTipoFecha>(emParam), valor); });
  }
  STDMETHODIMP get_Horas(::emParamTipoFecha emParam, SHORT* valor) override {
    return Get(valor, [&] { return call_->Horas(To<conmuta::emParamTipoFecha>(emParam)); });
  }
  STDMETHODIMP put_Horas(::emParamTipoFecha emParam, SHORT valor) override {
    return Do([&] { call_->Horas(To<conmuta::emParamTipoFecha>(emParam), valor); });
  }
  STDMETHODIMP get_Minutos(::emParamTipoFecha emParam, SHORT* valor) override {
    return Get(valor, [&] { return call_->Minutos(To<conmuta::emParamTipoFecha>(emParam)); });
  }
  STDMETHODIMP put_Minutos(::emParamTipoFecha emParam, SHORT valor) override {
    return Do([&] { call_->Minutos(To<conmuta::emParamTipoFecha>(emParam), valor); });
  }
  STDMETHODIMP get_Segundos(::emParamTipoFecha emParam, SHORT* valor) override {
    return Get(valor, [&] { return call_->Segundos(To<conmuta::emParamTipoFecha>(emParam)); });
  }
  STDMETHODIMP put_Segundos(::emParamTipoFecha emParam, SHORT valor) override {
    return Do([&] { call_->Segundos(To<conmuta::emParamTipoFecha>(emParam), valor); });
  }
  STDMETHODIMP Inicializa() override {
    return Do([&] { call_->Inicializa(); });
  }
  STDMETHODIMP get_Fecha(DATE* valor) override {
    return Get(valor, [&] { return call_->Fecha(); });
  }
  STDMETHODIMP get_Hora(DATE* valor) override {
    return Get(valor, [&] { return call_->Hora(); });
  }
  STDMETHODIMP get_Duracion(LONG* valor) override {
    return Get(valor, [&] { return LONG{call_->Duracion()}; });
  }
  STDMETHODIMP get_Ring(LONG* valor) override {
    return Get(valor, [&] { return LONG{call_->Ring()}; });
  }
  STDMETHODIMP put_Ring(LONG valor) override {
    return Do([&] { call_->Ring(valor); });
  }
  STDMETHODIMP get_TipoLlamada(::emTiposLlamadas* valor) override {
    return Get(valor, [&] { return To<::emTiposLlamadas>(call_->TipoLlamada()); });
  }
  STDMETHODIMP put_TipoLlamada(::emTiposLlamadas* emTipo) override {
    return DoWith(emTipo, [&](::emTiposLlamadas& value) {
      value = To<::emTiposLlamadas>(call_->TipoLlamada(To<conmuta::emTiposLlamadas>(value)));
    });
  }
  STDMETHODIMP get_Atributos(::emAtributosLlamadas* valor) override {
    return Get(valor, [&] { return To<::emAtributosLlamadas>(call_->Atributos()); });
  }
  STDMETHODIMP put_Atributos(::emAtributosLlamadas* emAtrib) override {
    return DoWith(emAtrib, [&](::emAtributosLlamadas& value) {
      value = To<::emAtributosLlamadas>(call_->Atributos(To<conmuta::emAtributosLlamadas>(value)));
    });
  }
  STDMETHODIMP get_Telefono(BSTR* valor) override {
    return GetText(valor, [&] { return call_->Telefono(); });
  }
  STDMETHODIMP put_Telefono(BSTR valor) override {
    return Do([&] { call_->Telefono(View(valor)); });
  }
  STDMETHODIMP get_ExtensionTransferida(BSTR* valor) override {
    return GetText(valor, [&] { return call_->ExtensionTransferida(); });
  }
  STDMETHODIMP put_ExtensionTransferida(BSTR valor) override {
    return Do([&] { call_->ExtensionTransferida(View(valor)); });
  }
  STDMETHODIMP get_Emisor(BSTR* valor) override {
    return GetText(valor, [&] { return call_->Emisor(); });
  }
  STDMETHODIMP put_Emisor(BSTR valor) override {
    return Do([&] { call_->Emisor(View(valor)); });
  }
  STDMETHODIMP get_Receptor(BSTR* valor) override {
    return GetText(valor, [&] { return call_->Receptor(); });
  }
  STDMETHODIMP put_Receptor(BSTR valor) override {
    return Do([&] { call_->Receptor(View(valor)); });
  }
  STDMETHODIMP get_CodigoCuenta(BSTR* valor) override {
    return GetText(valor, [&] { return call_->CodigoCuenta(); });
  }
  STDMETHODIMP put_CodigoCuenta(BSTR valor) override {
    return Do([&] { call_->CodigoCuenta(View(valor)); });
  }
  STDMETHODIMP AjustarHoraVespertina12Hrs24Hrs(::emParamTipoFecha emParam,
                                               VARIANT* valor) override {
    return Get(valor, [&] {
      call_->AjustarHoraVespertina12Hrs24Hrs(To<conmuta::emParamTipoFecha>(emParam));
      return VARIANT{};  // hosts get an empty value
    });
  }
  STDMETHODIMP AjustaDuracionPorRestaFechas() override {
    return Do([&] { call_->AjustaDuracionPorRestaFechas(); });
  }
  STDMETHODIMP get_EsValido(VARIANT_BOOL* valor) override {
    return GetBool(valor, [&] { return call_->EsValido(); });
  }
  STDMETHODIMP CopiaLlamada(_clsLlamadaTRD* llamada) override {
    return Do([&] {
      const auto other = RequireOurs<clsLlamadaTRD>(llamada, kCallCoreIid);
      if (!other) throw ObjectNotSetError();
      call_->CopiaLlamada(other->core());
    });
  }

 private:
  const std::shared_ptr<clsLlamadaTRD> call_;
};

}  // namespace

HRESULT CreateLlamadaTRD(IUnknown** object) {
  return Create(object, [] {
    return new LlamadaTRD(std::make_shared<clsLlamadaTRD>(SystemPlatform().clock));
  });
}

ComPtr<_clsLlamadaTRD> WrapCall(std::shared_ptr<clsLlamadaTRD> call) {
  return ComPtr<_clsLlamadaTRD>::Adopt(new LlamadaTRD(std::move(call)));
}

}  // namespace conmuta::component
