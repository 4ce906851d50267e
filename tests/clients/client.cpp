// A client in C++, early bound: translates a capture, reads every kind of property, catches an
// error and hears the events. The other clients do the same in their languages and must print the
// same.
//
//     client CONFIGURATION.cfg CAPTURE.txt
#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "conmuta.h"

namespace {

// A text of COM's.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(const std::string& text) : Bstr(std::wstring(text.begin(), text.end())) {}
  explicit Bstr(const std::wstring& text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  operator BSTR() const { return text_; }
  BSTR* operator&() { return &text_; }
  // The texts that are shown here are plain ASCII.
  std::string str() const {
    std::string plain;
    for (UINT i = 0; i < SysStringLen(text_); ++i) plain.push_back(static_cast<char>(text_[i]));
    return plain;
  }

 private:
  BSTR text_ = nullptr;
};

struct ComError {
  HRESULT number;
  std::string source;
  std::string text;
};

// Raises a failure with what the component says of it.
void Check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  ComError error{result, {}, {}};
  IErrorInfo* info = nullptr;
  if (GetErrorInfo(0, &info) == S_OK) {
    Bstr source, text;
    info->GetSource(&source);
    info->GetDescription(&text);
    error.source = source.str();
    error.text = text.str();
    info->Release();
  }
  throw error;
}

// A property of any kind: Get(record, &_clsLlamadaTRD::get_Duracion).
template <class Object, class Class, class T>
T Get(Object* object, HRESULT (STDMETHODCALLTYPE Class::*read)(T*)) {
  T value{};
  Check((object->*read)(&value));
  return value;
}
template <class Object, class Class>
std::string Text(Object* object, HRESULT (STDMETHODCALLTYPE Class::*read)(BSTR*)) {
  Bstr value;
  Check((object->*read)(&value));
  return value.str();
}
int Part(_clsLlamadaTRD* record, emParamTipoFecha group,
         HRESULT (STDMETHODCALLTYPE _clsLlamadaTRD::*read)(emParamTipoFecha, short*)) {
  short value = 0;
  Check((record->*read)(group, &value));
  return value;
}

template <class Interface>
Interface* Create(REFCLSID id, REFIID interface_id) {
  void* object = nullptr;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, interface_id, &object));
  return static_cast<Interface*>(object);
}

// Writes down the events of a configuration.
class Sink final : public IDispatch {
 public:
  std::vector<std::string> heard;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == DIID___clsCfgConmut;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }  // it outlives its connection
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    static constexpr const char* kNames[] = {"CambioNombreConmutador", "ConfiguracionCargada",
                                             "Inicializado", "Cambios"};
    heard.emplace_back(kNames[id - 1]);
    return S_OK;
  }
};

// A connection point of the configuration, with the sink on it.
class Connection {
 public:
  Connection(_clsCfgConmut* cfg, Sink* sink) {
    IConnectionPointContainer* container = nullptr;
    Check(cfg->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)));
    const HRESULT found = container->FindConnectionPoint(DIID___clsCfgConmut, &point_);
    container->Release();
    Check(found);
    Check(point_->Advise(sink, &cookie_));
  }
  ~Connection() {
    point_->Unadvise(cookie_);
    point_->Release();
  }

 private:
  IConnectionPoint* point_ = nullptr;
  DWORD cookie_ = 0;
};

void ShowCall(_clsLlamadaTRD* r) {
  const int left = std::abs(Part(r, emParamDuracion, &_clsLlamadaTRD::get_Anio)) +
                   Part(r, emParamDuracion, &_clsLlamadaTRD::get_Mes) +
                   Part(r, emParamDuracion, &_clsLlamadaTRD::get_Dia);
  const long seconds = Get(r, &_clsLlamadaTRD::get_Duracion);
  const std::string duration = left != 0 || seconds < 0 ? "?" : std::to_string(seconds);
  std::printf("%02d/%02d/%d;%02d:%02d:%02d;%s;%ld;%d;%d;%s;%s;%s;%s;%s\n",
              Part(r, emParamFecha, &_clsLlamadaTRD::get_Dia),
              Part(r, emParamFecha, &_clsLlamadaTRD::get_Mes),
              Part(r, emParamFecha, &_clsLlamadaTRD::get_Anio),
              Part(r, emParamFecha, &_clsLlamadaTRD::get_Horas),
              Part(r, emParamFecha, &_clsLlamadaTRD::get_Minutos),
              Part(r, emParamFecha, &_clsLlamadaTRD::get_Segundos), duration.c_str(),
              Get(r, &_clsLlamadaTRD::get_Ring), Get(r, &_clsLlamadaTRD::get_TipoLlamada),
              Get(r, &_clsLlamadaTRD::get_Atributos), Text(r, &_clsLlamadaTRD::get_Emisor).c_str(),
              Text(r, &_clsLlamadaTRD::get_Receptor).c_str(),
              Text(r, &_clsLlamadaTRD::get_Telefono).c_str(),
              Text(r, &_clsLlamadaTRD::get_ExtensionTransferida).c_str(),
              Text(r, &_clsLlamadaTRD::get_CodigoCuenta).c_str());
}

void Translate(_clsTradEST* translator, _clsLlamadaTRD* record, const std::string& line,
               int number) {
  try {
    Check(translator->put_Llamada(Bstr(line)));
  } catch (const ComError& error) {
    std::printf("! linea %d: error %ld\n", number, error.number & 0xFFFF);
    return;
  }
  if (Get(record, &_clsLlamadaTRD::get_EsValido)) ShowCall(record);
}

const char* YesNo(VARIANT_BOOL value) {
  return value ? "si" : "no";
}

void TranslateCapture(_clsCfgConmut* cfg, _clsTradEST* translator, _clsLlamadaTRD* record,
                      const char* path) {
  std::ifstream capture(path, std::ios::binary);
  int number = 0;
  for (std::string line; std::getline(capture, line);) {
    std::erase_if(line, [](unsigned char c) { return c < 0x20 || c == 0x7F; });
    Translate(translator, record, line, ++number);
  }
  if (Get(cfg, &_clsCfgConmut::get_Caso) == emCasoNortelNorstar0x32SMDR6) {
    Translate(translator, record, "--------", number);
  }
  for (short place = 1; place <= 100; ++place) Check(translator->QuitaLlamadaLista(place));
}

void ShowProperties(_clsCfgConmut* cfg, _clsTradEST* translator, _clsLlamadaTRD* record) {
  std::puts("== propiedades");
  Check(translator->put_Llamada(
      Bstr("01/14/19 08:58AM 1201  01 5550142                        00:04'31")));
  std::printf("Marca=%s\n", Text(cfg, &_clsCfgConmut::get_Marca).c_str());
  std::printf("Version=%d\n", Get(cfg, &_clsCfgConmut::get_Version));
  std::printf("Modificado=%s\n", YesNo(Get(cfg, &_clsCfgConmut::get_Modificado)));
  std::printf("TamMaxSeparador=%d\n", Get(cfg, &_clsCfgConmut::get_TamMaxSeparador));
  Check(cfg->put_IDCfg(70000));
  std::printf("IDCfg=%ld\n", Get(cfg, &_clsCfgConmut::get_IDCfg));
  Check(cfg->put_DATOActivo(emParamFechaHoras));
  std::printf("DATOPos=%d\n", Get(cfg, &_clsCfgConmut::get_DATOPos));
  _clsCfgConmut* used = Get(translator, &_clsTradEST::get_Conmutador);
  std::printf("Conmutador.Modelo=%s\n", Text(used, &_clsCfgConmut::get_Modelo).c_str());
  used->Release();
  std::printf("Llamada=%s\n", Text(translator, &_clsTradEST::get_Llamada).c_str());
  std::printf("Anio=%d\n", Part(record, emParamFecha, &_clsLlamadaTRD::get_Anio));
  std::printf("Fecha=%ld\n", std::lround(Get(record, &_clsLlamadaTRD::get_Fecha)));
  std::printf("Hora=%ld\n", std::lround(Get(record, &_clsLlamadaTRD::get_Hora) * 86400));
  std::printf("EsValido=%s\n", YesNo(Get(record, &_clsLlamadaTRD::get_EsValido)));
  Check(translator->AltaLlamadaLista());
  short place = 0;
  Check(translator->BuscaLlamadaTroncalLista(Bstr("01"), &place));
  std::printf("BuscaLlamadaTroncalLista=%d\n", place);
  emCasos caso = emCasoRestaFechasDuracion;
  Check(cfg->put_Caso(&caso));
  std::printf("Caso=%d\n", Get(cfg, &_clsCfgConmut::get_Caso));
  auto type = static_cast<emTiposLlamadas>(7);
  Check(record->put_TipoLlamada(&type));
  std::printf("TipoLlamada=%d\n", type);  // what was stored is written back
  Check(cfg->put_Marca(Bstr("ACME")));
}

void ShowError(_clsCfgConmut* cfg) {
  std::puts("== error");
  try {
    Check(cfg->Exportar(Bstr("  ")));
  } catch (const ComError& error) {
    std::printf("%lX %s: %s\n", error.number, error.source.c_str(), error.text.c_str());
  }
}

void Run(const std::string& configuration, const char* capture) {
  auto* cfg = Create<_clsCfgConmut>(CLSID_clsCfgConmut, IID__clsCfgConmut);
  auto* translator = Create<_clsTradEST>(CLSID_clsTradEST, IID__clsTradEST);
  Sink sink;
  {
    const Connection connection(cfg, &sink);
    Check(cfg->Abrir(Bstr(configuration)));
    Check(translator->putref_Conmutador(cfg));
    _clsLlamadaTRD* record = Get(translator, &_clsTradEST::get_InfoLlamada);
    TranslateCapture(cfg, translator, record, capture);
    ShowProperties(cfg, translator, record);
    ShowError(cfg);
    record->Release();
  }
  translator->Release();
  cfg->Release();
  std::puts("== eventos");
  for (const std::string& event : sink.heard) std::puts(event.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  CoInitialize(nullptr);
  int status = 0;
  try {
    Run(argv[1], argv[2]);
  } catch (const ComError& error) {
    std::printf("%lX %s: %s\n", error.number, error.source.c_str(), error.text.c_str());
    status = 1;
  }
  CoUninitialize();
  return status;
}
