// clsTradEST as hosts see it.
#include "component/objects.h"
#include "translate/clsTradEST.h"
#include "ui/reports.h"
#include "ui/win32/info_window.h"

namespace conmuta::component {
namespace {

using Base = AutomationObject<_clsTradEST, clsTradEST>;

class TradEST final : public Base {
 public:
  TradEST()
      : Base({CLSID_clsTradEST, IID__clsTradEST, kTranslatorCoreIid, nullptr}),
        translator_(std::make_shared<clsTradEST>(SystemPlatform().clock)),
        // The record lives in the translator; a host that keeps it keeps both.
        call_(WrapCall({translator_, &translator_->InfoLlamada()})) {}

  clsTradEST& core() override { return *translator_; }

  STDMETHODIMP get_Llamada(BSTR* valor) override {
    return GetText(valor, [&]() -> TextView { return translator_->Llamada(); });
  }
  STDMETHODIMP put_Llamada(BSTR valor) override {
    LineError error = LineError::kNone;
    const HRESULT done = Do([&] { error = translator_->Translate(View(valor)); });
    return FAILED(done) ? done : ReportLine(IID__clsTradEST, error);
  }
  STDMETHODIMP get_Conmutador(_clsCfgConmut** valor) override {
    return Get(valor, [&] { return config_.CopyTo(); });
  }
  STDMETHODIMP put_Conmutador(_clsCfgConmut* valor) override { return SetConfig(valor); }
  STDMETHODIMP putref_Conmutador(_clsCfgConmut* valor) override { return SetConfig(valor); }
  STDMETHODIMP get_InfoLlamada(_clsLlamadaTRD** valor) override {
    return Get(valor, [&] { return call_.CopyTo(); });
  }
  STDMETHODIMP TraduceEstandar() override {
    return Do([&] { translator_->TraduceEstandar(); });
  }
  STDMETHODIMP TraduceMeridian01() override {
    return Do([&] { translator_->TraduceMeridian01(); });
  }
  STDMETHODIMP TraduceNortelNorstar0x32SMDR6() override {
    return Do([&] { translator_->TraduceNortelNorstar0x32SMDR6(); });
  }
  STDMETHODIMP MuestraInfoTrad() override {
    return Do(
        [&] { conmuta::MuestraInfoTrad(*translator_, SystemMonthNames(), win32::MakeInfoView); });
  }
  STDMETHODIMP AltaLlamadaLista() override {
    return Do([&] { translator_->AltaLlamadaLista(); });
  }
  STDMETHODIMP QuitaLlamadaLista(SHORT intPos) override {
    return Do([&] { translator_->QuitaLlamadaLista(intPos); });
  }
  STDMETHODIMP BuscaLlamadaTroncalLista(BSTR cadTron, SHORT* valor) override {
    return Get(valor, [&] { return translator_->BuscaLlamadaTroncalLista(View(cadTron)); });
  }

 private:
  HRESULT SetConfig(_clsCfgConmut* valor) {
    return Do([&] {
      const auto access = RequireOurs<clsCfgConmut>(valor, kConfigCoreIid);
      // The one before may go with this; the translator must not see that happen.
      const auto previous = std::exchange(config_, ComPtr<_clsCfgConmut>(valor));
      translator_->Conmutador(access ? &access->core() : nullptr);
    });
  }

  const std::shared_ptr<clsTradEST> translator_;
  const ComPtr<_clsLlamadaTRD> call_;
  ComPtr<_clsCfgConmut> config_;
};

}  // namespace

HRESULT CreateTradEST(IUnknown** object) {
  return Create(object, [] { return new TradEST(); });
}

}  // namespace conmuta::component
