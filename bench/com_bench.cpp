// What COM adds to a line: the registered DLL through its vtable and, as script engines do, by
// name, beside the same core within this program.
#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "component/com_support.h"
#include "component/conmuta_idl.h"
#include "kx_lines.h"
#include "require.h"
#include "row.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

using component::ComPtr;
using component::Variant;

constexpr char kSwitch[] = "panasonic-kx";
constexpr std::size_t kLines = 10'000;
constexpr double kMostMicrosecondsByName = 5;

class Bstr {
 public:
  explicit Bstr(TextView text)
      : text_(SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                static_cast<UINT>(text.size()))) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&&) = delete;

  BSTR get() const { return text_; }
  BSTR* Receive() { return &text_; }

 private:
  BSTR text_;
};

template <class Interface>
ComPtr<Interface> Create(REFCLSID clsid, REFIID iid) {
  ComPtr<Interface> object;
  const HRESULT result =
      CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, object.ReceiveVoid());
  Require(SUCCEEDED(result), "the component is registered");
  return object;
}

// A host of the registered component. Each of its ways through a line gives whether the call was
// valid.
class Host {
 public:
  Host() {
    Require(SUCCEEDED(translator_->get_InfoLlamada(call_.Receive())), "there is a call record");
  }
  explicit Host(const std::string& name) : Host() {
    const auto config = Create<_clsCfgConmut>(CLSID_clsCfgConmut, IID__clsCfgConmut);
    Require(SUCCEEDED(config->Abrir(Bstr(ConfigPath(name)).get())), "the configuration opens");
    Require(SUCCEEDED(translator_->putref_Conmutador(config.get())), "the translator takes it");
  }

  bool PutEarlyBound(BSTR line) { return SUCCEEDED(translator_->put_Llamada(line)); }

  bool EarlyBound(BSTR line) {
    PutEarlyBound(line);
    VARIANT_BOOL valid = VARIANT_FALSE;
    DATE date, time;
    LONG duration;
    ::emTiposLlamadas type;
    call_->get_EsValido(&valid);
    call_->get_Fecha(&date);
    call_->get_Hora(&time);
    call_->get_Duracion(&duration);
    call_->get_TipoLlamada(&type);
    for (const auto getter : {&_clsLlamadaTRD::get_Emisor, &_clsLlamadaTRD::get_Receptor,
                              &_clsLlamadaTRD::get_Telefono, &_clsLlamadaTRD::get_CodigoCuenta}) {
      BSTR text = nullptr;
      (call_.get()->*getter)(&text);
      SysFreeString(text);
    }
    return valid != VARIANT_FALSE;
  }

  bool ByName(BSTR line) {
    PutByName(line);
    Variant valid;
    GetByName(L"EsValido", valid);
    for (const wchar_t* name : {L"Fecha", L"Hora", L"Duracion", L"TipoLlamada", L"Emisor",
                                L"Receptor", L"Telefono", L"CodigoCuenta"}) {
      Variant value;
      GetByName(name, value);
    }
    return V_BOOL(&valid) != VARIANT_FALSE;
  }

 private:
  static DISPID Id(IDispatch& object, const wchar_t* name) {
    auto* wanted = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    object.GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &id);
    return id;
  }

  void PutByName(BSTR line) {
    VARIANT value;  // borrows the line
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = line;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{&value, &put, 1, 1};
    IDispatch& object = *translator_.get();
    object.Invoke(Id(object, L"Llamada"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                  &arguments, nullptr, nullptr, nullptr);
  }

  // Script engines do not know whether a name is a property or a method.
  void GetByName(const wchar_t* name, VARIANT& value) {
    DISPPARAMS none{};
    IDispatch& object = *call_.get();
    object.Invoke(Id(object, name), IID_NULL, LOCALE_USER_DEFAULT,
                  DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none, &value, nullptr, nullptr);
  }

  ComPtr<_clsTradEST> translator_ = Create<_clsTradEST>(CLSID_clsTradEST, IID__clsTradEST);
  ComPtr<_clsLlamadaTRD> call_;
};

void Measure() {
  Lines lines;
  std::vector<Bstr> texts;
  KxLines source;
  for (std::size_t i = 0; i < kLines; ++i) lines.Add(source.Next());
  for (std::size_t i = 0; i < kLines; ++i) texts.emplace_back(lines[i]);

  Translator core(kSwitch);
  Host host(kSwitch);
  const auto count = [&](Host& through, bool (Host::*way)(BSTR)) {
    return std::count_if(texts.begin(), texts.end(),
                         [&](const Bstr& text) { return (through.*way)(text.get()); });
  };
  std::ptrdiff_t valid = 0;
  for (std::size_t i = 0; i < kLines; ++i) {
    core.Translate(lines[i]);
    if (core.call().EsValido()) ++valid;
  }
  Require(count(host, &Host::EarlyBound) == valid, "the vtable gives the calls of the core");
  Require(count(host, &Host::ByName) == valid, "names give the calls of the core");

  // What a put costs COM shows where nothing is translated: beside a whole translation it would be
  // less than what the DLL's core and this program's differ by.
  Translator bare_core;
  Host bare_host;
  auto spent = BestOfTurns({
      [&] { bare_core.Translate(lines); },
      [&] { count(bare_host, &Host::PutEarlyBound); },
      [&] { core.Translate(lines); },
      [&] { count(host, &Host::PutEarlyBound); },
      [&] { count(host, &Host::EarlyBound); },
      [&] { count(host, &Host::ByName); },
  });
  for (double& each : spent) each /= kLines;
  const double share = std::max(0.0, spent[1] - spent[0]);  // nothing is the least there can be
  PrintRow("put, within the core", spent[2], "ns a line");
  PrintRow("put, vtable", spent[3], "ns a line");
  PrintRow("COM's share of a put", share, "ns a line");
  PrintRow("put and nine getters, vtable", spent[4], "ns a line");
  PrintRow("COM's share of put and getters", std::max(share, spent[4] - spent[2]), "ns a line");
  PrintRow("put and nine getters, by name", spent[5] / 1000, "us a line", kMostMicrosecondsByName);
}

}  // namespace
}  // namespace conmuta::bench

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  conmuta::bench::Measure();
  CoUninitialize();
}
