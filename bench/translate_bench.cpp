// Lines per second of the translator on each example, beside a parser written by hand.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "capture.h"
#include "handwritten_kx.h"
#include "translate/clsTradEST.h"

namespace conmuta::bench {
namespace {

constexpr char kYardstick[] = "panasonic-kx";

class ConfiguredTranslator {
 public:
  explicit ConfiguredTranslator(const std::string& example)
      : config_(SystemPlatform()), translator_(SystemPlatform().clock) {
    config_.Abrir(ToText16(ConfigPath(example)));
    translator_.Conmutador(&config_);
  }

  void Translate(TextView line) {
    try {
      translator_.Llamada(line);
    } catch (const OverflowError&) {  // cut and glued lines are part of a capture
    } catch (const InvalidArgumentError&) {
    }
  }
  const clsLlamadaTRD& call() { return translator_.InfoLlamada(); }

 private:
  clsCfgConmut config_;
  clsTradEST translator_;
};

template <class Translator>
void Run(benchmark::State& state, Translator& translator, const std::vector<Text>& lines) {
  for (auto _ : state) {
    for (const Text& line : lines) {
      translator.Translate(line);
      benchmark::DoNotOptimize(translator.call());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines.size()));
}

void Configured(benchmark::State& state, const std::string& example) {
  ConfiguredTranslator translator(example);
  Run(state, translator, CaptureLines(example));
}

void Handwritten(benchmark::State& state) {
  HandwrittenKx parser(SystemPlatform().clock);
  Run(state, parser, CaptureLines(kYardstick));
}

bool Same(const clsLlamadaTRD& a, const clsLlamadaTRD& b) {
  for (const auto group : {emParamFecha, emParamDuracion}) {
    if (a.Anio(group) != b.Anio(group) || a.Mes(group) != b.Mes(group) ||
        a.Dia(group) != b.Dia(group) || a.Horas(group) != b.Horas(group) ||
        a.Minutos(group) != b.Minutos(group) || a.Segundos(group) != b.Segundos(group)) {
      return false;
    }
  }
  return a.Ring() == b.Ring() && a.TipoLlamada() == b.TipoLlamada() &&
         a.Atributos() == b.Atributos() && a.Telefono() == b.Telefono() &&
         a.Emisor() == b.Emisor() && a.Receptor() == b.Receptor() &&
         a.CodigoCuenta() == b.CodigoCuenta();
}

// A yardstick that does less than the thing it measures would be none.
void CheckYardstick() {
  ConfiguredTranslator configured(kYardstick);
  HandwrittenKx handwritten(SystemPlatform().clock);
  for (const Text& line : CaptureLines(kYardstick)) {
    configured.Translate(line);
    handwritten.Translate(line);
    if (Same(configured.call(), handwritten.call())) continue;
    std::fprintf(stderr, "the hand-written parser differs on: %s\n",
                 std::string(line.begin(), line.end()).c_str());
    std::exit(1);
  }
}

// The two in turn, several times, so that what else the machine does falls on both.
template <class Translator>
double NanosecondsPerLine(Translator& translator, const std::vector<Text>& lines) {
  constexpr int kPasses = 2000;
  const std::clock_t begin = std::clock();
  for (int pass = 0; pass < kPasses; ++pass) {
    for (const Text& line : lines) {
      translator.Translate(line);
      benchmark::DoNotOptimize(translator.call());
    }
  }
  const double spent = 1e9 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  return spent / kPasses / static_cast<double>(lines.size());
}

void PrintRatio() {
  const std::vector<Text> lines = CaptureLines(kYardstick);
  ConfiguredTranslator configured(kYardstick);
  HandwrittenKx handwritten(SystemPlatform().clock);
  double best_configured = 1e9;
  double best_handwritten = 1e9;
  for (int round = 0; round < 9; ++round) {
    best_configured = std::min(best_configured, NanosecondsPerLine(configured, lines));
    best_handwritten = std::min(best_handwritten, NanosecondsPerLine(handwritten, lines));
  }
  std::printf("\n%s: %.1f ns a line configured, %.1f ns by hand, ratio %.2f\n", kYardstick,
              best_configured, best_handwritten, best_configured / best_handwritten);
}

}  // namespace
}  // namespace conmuta::bench

int main(int argc, char** argv) {
  using namespace conmuta::bench;
  CheckYardstick();
  for (const char* example : {"panasonic-kx", "samsung", "two-dates", "norstar", "meridian"}) {
    benchmark::RegisterBenchmark((std::string("configured/") + example).c_str(),
                                 [example](benchmark::State& s) { Configured(s, example); });
  }
  benchmark::RegisterBenchmark("by_hand/panasonic-kx", Handwritten);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  PrintRatio();
}
