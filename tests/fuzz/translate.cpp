#include "fuzz/targets.h"
#include "support/call_values.h"
#include "support/config_bench.h"
#include "support/fake_clock.h"
#include "translate/clsTradEST.h"

namespace conmuta::fuzz {

void Translate(std::string_view bytes) {
  constexpr std::string_view kBorder = "\n==\n";
  const std::size_t border = bytes.find(kBorder);
  if (border == std::string_view::npos) return;
  test::ConfigBench bench;
  bench.files.entries[u"switch.cfg"] = {std::string(bytes.substr(0, border))};
  bytes.remove_prefix(border + kBorder.size());
  try {
    bench.config.Abrir(u"switch.cfg");
  } catch (const ConfigError&) {
    return;
  }

  const test::FakeClock clock;
  clsTradEST unwatched(clock);
  clsTradEST watched(clock);
  unwatched.Conmutador(&bench.config);
  watched.Conmutador(&bench.config);
  LineObserver nobody;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    Text line;
    for (const char b : bytes.substr(0, end)) line.push_back(static_cast<unsigned char>(b));
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    const LineError error = unwatched.Translate(line);
    const Verdict verdict = watched.Translate(line, nobody);
    Require(error == verdict.error, "watching changes no error");
    Require(error != LineError::kNone || verdict.IsCall() == unwatched.InfoLlamada().EsValido(),
            "the verdict is the record's");
    Require(test::ValuesOf(unwatched.InfoLlamada()) == test::ValuesOf(watched.InfoLlamada()),
            "watching changes no call");
  }
}

}  // namespace conmuta::fuzz
