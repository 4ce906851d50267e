// clsCfgConmut as hosts see it.
#include "component/event_source.h"
#include "component/objects.h"
#include "config/descriptions.h"
#include "ui/reports.h"
#include "ui/win32/cable_window.h"
#include "ui/win32/info_window.h"

namespace conmuta::component {
namespace {

using Base = AutomationObject<_clsCfgConmut, clsCfgConmut>;

class CfgConmut final : public Base, private ConfigListener {
 public:
  CfgConmut()
      : Base({CLSID_clsCfgConmut, IID__clsCfgConmut, kConfigCoreIid, &DIID___clsCfgConmut}),
        config_(SystemPlatform()),
        events_(Self(), DIID___clsCfgConmut) {
    config_.Listen(this);
  }

  clsCfgConmut& core() override { return config_; }

  STDMETHODIMP Iniciar() override {
    return Do([&] { config_.Iniciar(); });
  }
  STDMETHODIMP get_Modificado(VARIANT_BOOL* valor) override {
    return GetBool(valor, [&] { return config_.Modificado(); });
  }
  STDMETHODIMP get_HayConfig(VARIANT_BOOL* valor) override {
    return GetBool(valor, [&] { return config_.HayConfig(); });
  }
  STDMETHODIMP get_IDCfg(LONG* valor) override {
    return Get(valor, [&] { return LONG{config_.IDCfg()}; });
  }
  STDMETHODIMP put_IDCfg(LONG valor) override {
    return Do([&] { config_.IDCfg(valor); });
  }
  STDMETHODIMP get_Version(::emVersionConfiguracion* valor) override {
    return Get(valor, [&] { return To<::emVersionConfiguracion>(config_.Version()); });
  }
  STDMETHODIMP get_NombreVersion(BSTR* valor) override {
    return GetText(valor, [&] { return config_.NombreVersion(); });
  }
  STDMETHODIMP get_Caso(::emCasos* valor) override {
    return Get(valor, [&] { return To<::emCasos>(config_.Caso()); });
  }
  STDMETHODIMP put_Caso(::emCasos* emC) override {
    return DoWith(emC, [&](const ::emCasos& value) { config_.Caso(To<conmuta::emCasos>(value)); });
  }
  STDMETHODIMP get_NombreCaso(BSTR* valor) override {
    return GetText(valor, [&] { return config_.NombreCaso(); });
  }
  STDMETHODIMP ObtNombreCaso(::emCasos emC, BSTR* valor) override {
    return GetText(valor, [&] { return clsCfgConmut::ObtNombreCaso(To<conmuta::emCasos>(emC)); });
  }
  STDMETHODIMP get_Marca(BSTR* valor) override {
    return GetText(valor, [&] { return config_.Marca(); });
  }
  STDMETHODIMP put_Marca(BSTR valor) override {
    return Do([&] { config_.Marca(View(valor)); });
  }
  STDMETHODIMP get_Modelo(BSTR* valor) override {
    return GetText(valor, [&] { return config_.Modelo(); });
  }
  STDMETHODIMP put_Modelo(BSTR valor) override {
    return Do([&] { config_.Modelo(View(valor)); });
  }
  STDMETHODIMP get_NombreConmutador(BSTR* valor) override {
    return GetText(valor, [&] { return config_.NombreConmutador(); });
  }
  STDMETHODIMP get_Comentarios(BSTR* valor) override {
    return GetText(valor, [&] { return config_.Comentarios(); });
  }
  STDMETHODIMP put_Comentarios(BSTR valor) override {
    return Do([&] { config_.Comentarios(View(valor)); });
  }
  STDMETHODIMP get_Separador(BSTR* valor) override {
    return GetText(valor, [&] { return config_.Separador(); });
  }
  STDMETHODIMP put_Separador(BSTR valor) override {
    return Do([&] { config_.Separador(View(valor)); });
  }
  STDMETHODIMP get_ListaSeparador(BSTR* valor) override {
    return GetText(valor, [&] { return config_.ListaSeparador(); });
  }
  STDMETHODIMP get_DATOActivo(::emParamDato* valor) override {
    return Get(valor, [&] { return To<::emParamDato>(config_.DATOActivo()); });
  }
  STDMETHODIMP put_DATOActivo(::emParamDato valor) override {
    return Do([&] { config_.DATOActivo(To<conmuta::emParamDato>(valor)); });
  }
  STDMETHODIMP get_CTEActivo(::emParamDatoConstante* valor) override {
    return Get(valor, [&] { return To<::emParamDatoConstante>(config_.CTEActivo()); });
  }
  STDMETHODIMP put_CTEActivo(::emParamDatoConstante valor) override {
    return Do([&] { config_.CTEActivo(To<conmuta::emParamDatoConstante>(valor)); });
  }
  STDMETHODIMP get_HayDATO(VARIANT_BOOL* valor) override {
    return GetBool(valor, [&] { return config_.HayDATO(); });
  }
  STDMETHODIMP get_HayCTE(VARIANT_BOOL* valor) override {
    return GetBool(valor, [&] { return config_.HayCTE(); });
  }
  STDMETHODIMP get_TipoDatoDATO(::emTipoDato* valor) override {
    return Get(valor, [&] { return To<::emTipoDato>(config_.TipoDatoDATO()); });
  }
  STDMETHODIMP put_TipoDatoDATO(::emTipoDato valor) override {
    return Do([&] { config_.TipoDatoDATO(To<conmuta::emTipoDato>(valor)); });
  }
  STDMETHODIMP get_TipoDatoCTE(::emTipoDato* valor) override {
    return Get(valor, [&] { return To<::emTipoDato>(config_.TipoDatoCTE()); });
  }
  STDMETHODIMP get_DATOPos(unsigned char* valor) override {
    return Get(valor, [&] { return config_.DATOPos(); });
  }
  STDMETHODIMP put_DATOPos(unsigned char valor) override {
    return Do([&] { config_.DATOPos(valor); });
  }
  STDMETHODIMP get_DATOTam(unsigned char* valor) override {
    return Get(valor, [&] { return config_.DATOTam(); });
  }
  STDMETHODIMP put_DATOTam(unsigned char valor) override {
    return Do([&] { config_.DATOTam(valor); });
  }
  STDMETHODIMP get_CTEPos(unsigned char* valor) override {
    return Get(valor, [&] { return config_.CTEPos(); });
  }
  STDMETHODIMP put_CTEPos(unsigned char valor) override {
    return Do([&] { config_.CTEPos(valor); });
  }
  STDMETHODIMP get_CTETam(unsigned char* valor) override {
    return Get(valor, [&] { return config_.CTETam(); });
  }
  STDMETHODIMP put_CTETam(unsigned char valor) override {
    return Do([&] { config_.CTETam(valor); });
  }
  STDMETHODIMP get_Constante(BSTR* valor) override {
    return GetText(valor, [&] { return config_.Constante(); });
  }
  STDMETHODIMP put_Constante(BSTR valor) override {
    return Do([&] { config_.Constante(View(valor)); });
  }
  STDMETHODIMP get_PuertoActivo(::emPuertoSerial* valor) override {
    return Get(valor, [&] { return To<::emPuertoSerial>(config_.PuertoActivo()); });
  }
  STDMETHODIMP put_PuertoActivo(::emPuertoSerial valor) override {
    return Do([&] { config_.PuertoActivo(To<conmuta::emPuertoSerial>(valor)); });
  }
  STDMETHODIMP get_PinIZQ(SHORT* valor) override {
    return Get(valor, [&] { return config_.PinIZQ(); });
  }
  STDMETHODIMP put_PinIZQ(SHORT valor) override {
    return Do([&] { config_.PinIZQ(valor); });
  }
  STDMETHODIMP get_PinDER(SHORT* valor) override {
    return Get(valor, [&] { return config_.PinDER(); });
  }
  STDMETHODIMP put_PinDER(SHORT valor) override {
    return Do([&] { config_.PinDER(valor); });
  }
  STDMETHODIMP get_PinesConectados(VARIANT_BOOL* valor) override {
    return GetBool(valor, [&] { return config_.PinesConectados(); });
  }
  STDMETHODIMP put_PinesConectados(VARIANT_BOOL valor) override {
    return Do([&] { config_.PinesConectados(valor != VARIANT_FALSE); });
  }
  STDMETHODIMP Abrir(BSTR cadArch) override {
    return Do([&] { config_.Abrir(View(cadArch)); });
  }
  STDMETHODIMP GuardarComo(BSTR cadArch) override {
    return Do([&] { config_.GuardarComo(View(cadArch)); });
  }
  STDMETHODIMP Importar(BSTR cadArch) override {
    return Do([&] { config_.Importar(View(cadArch)); });
  }
  STDMETHODIMP Exportar(BSTR cadArch) override {
    return Do([&] { config_.Exportar(View(cadArch)); });
  }
  STDMETHODIMP MostrarInformacionConfiguracion() override {
    return Do([&] { conmuta::MostrarInformacionConfiguracion(config_, win32::MakeInfoView); });
  }
  STDMETHODIMP get_TamMaxSeparador(SHORT* valor) override {
    return Get(valor, [] { return clsCfgConmut::kTamMaxSeparador; });
  }
  STDMETHODIMP get_TamMaxComentarios(SHORT* valor) override {
    return Get(valor, [] { return clsCfgConmut::kTamMaxComentarios; });
  }
  STDMETHODIMP ObtDescDATO(::emParamDato emParamD, BSTR* valor) override {
    return GetText(valor, [&] { return basConmuta::DescDATO(To<conmuta::emParamDato>(emParamD)); });
  }
  STDMETHODIMP ObtDescCTE(::emParamDatoConstante emParamC, BSTR* valor) override {
    return GetText(
        valor, [&] { return basConmuta::DescCTE(To<conmuta::emParamDatoConstante>(emParamC)); });
  }
  STDMETHODIMP EDConfigSeriales(VARIANT_BOOL* bolMod) override {
    // Left out by a host, the argument may arrive as null.
    const bool may_edit = bolMod != nullptr && *bolMod != VARIANT_FALSE;
    return Do([&] { config_.EDConfigSeriales(may_edit, win32::MakeCableView); });
  }

 private:
  void* Find(REFIID iid) override {
    if (IsEqualGUID(iid, IID_IConnectionPointContainer)) {
      return static_cast<IConnectionPointContainer*>(&events_);
    }
    return Base::Find(iid);
  }

  void CambioNombreConmutador() override { events_.Fire(1); }
  void ConfiguracionCargada() override { events_.Fire(2); }
  void Inicializado() override { events_.Fire(3); }
  void Cambios() override { events_.Fire(4); }

  clsCfgConmut config_;
  EventSource events_;
};

}  // namespace

HRESULT CreateCfgConmut(IUnknown** object) {
  return Create(object, [] { return new CfgConmut(); });
}

}  // namespace conmuta::component
