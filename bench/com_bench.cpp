// What COM adds to a translated line: the same lines through the core and through the DLL's vtable.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "capture.h"
#include "component/conmuta_idl.h"
#include "translate/clsTradEST.h"

namespace conmuta::bench {
namespace {

constexpr int kPasses = 2000;
constexpr int kRounds = 7;

template <class TranslateLine>
double NanosecondsPerLine(std::size_t lines, TranslateLine translate) {
  double best = 1e12;
  for (int round = 0; round < kRounds; ++round) {
    const auto begin = std::chrono::steady_clock::now();
    for (int pass = 0; pass < kPasses; ++pass) {
      for (std::size_t i = 0; i < lines; ++i) translate(i);
    }
    const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - begin;
    best = std::min(best, spent.count() / kPasses / static_cast<double>(lines));
  }
  return best;
}

BSTR ToBstr(const Text& text) {
  return SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                           static_cast<UINT>(text.size()));
}

template <class Interface>
Interface* Create(REFCLSID clsid, REFIID iid) {
  void* object = nullptr;
  const HRESULT result = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, &object);
  if (FAILED(result)) {
    std::fprintf(stderr, "the component is not registered: %08lx\n",
                 static_cast<unsigned long>(result));
    ExitProcess(1);
  }
  return static_cast<Interface*>(object);
}

void Measure(const std::string& example) {
  const std::vector<Text> lines = CaptureLines(example);
  const Text path = ToText16("Z:" + ConfigPath(example));

  clsCfgConmut config(SystemPlatform());
  config.Abrir(path);
  clsTradEST translator(SystemPlatform().clock);
  translator.Conmutador(&config);
  const double core = NanosecondsPerLine(lines.size(), [&](std::size_t i) {
    try {
      translator.Llamada(lines[i]);
    } catch (const std::exception&) {  // cut and glued lines are part of a capture
    }
  });

  auto* com_config = Create<_clsCfgConmut>(CLSID_clsCfgConmut, IID__clsCfgConmut);
  auto* com_translator = Create<_clsTradEST>(CLSID_clsTradEST, IID__clsTradEST);
  const BSTR com_path = ToBstr(path);
  com_config->Abrir(com_path);
  com_translator->putref_Conmutador(com_config);
  std::vector<BSTR> texts;
  for (const Text& line : lines) texts.push_back(ToBstr(line));
  const double com = NanosecondsPerLine(
      lines.size(), [&](std::size_t i) { com_translator->put_Llamada(texts[i]); });

  std::printf("%-14s %7.1f ns a line in the core, %7.1f ns through COM: COM adds %.1f ns\n",
              example.c_str(), core, com, com - core);
  for (const BSTR text : texts) SysFreeString(text);
  SysFreeString(com_path);
  com_translator->Release();
  com_config->Release();
}

}  // namespace
}  // namespace conmuta::bench

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  for (const char* example : {"panasonic-kx", "samsung", "two-dates", "norstar", "meridian"}) {
    conmuta::bench::Measure(example);
  }
  CoUninitialize();
}
