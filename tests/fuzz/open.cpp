#include "fuzz/targets.h"
#include "support/config_bench.h"
#include "support/config_snapshot.h"

namespace conmuta::fuzz {

void Open(std::string_view bytes) {
  test::ConfigBench bench;
  bench.files.entries[u"switch.cfg"] = {std::string(bytes)};
  const auto before = test::Snapshot::OfState(bench.config);
  try {
    bench.config.Abrir(u"switch.cfg");
  } catch (const ConfigError& error) {
    Require(error.number() == 0x800405E1, "a file that is refused is not recognised");
    Require(test::Snapshot::OfState(bench.config) == before, "a refused file changes nothing");
    return;
  }
  Require(!bench.config.Modificado(), "what was opened is unmodified");
  Require(!bench.TakeEvents().empty(), "opening is announced");

  // What was opened can be saved if it is complete, and says the same when it is opened again.
  if (!bench.config.HayConfig() || bench.config.Separador().empty()) return;
  bench.config.GuardarComo(u"again.cfg");
  test::ConfigBench again;
  again.files = bench.files;
  again.config.Abrir(u"again.cfg");
  Require(test::Snapshot::OfContent(again.config) == test::Snapshot::OfContent(bench.config),
          "saving loses nothing");
}

}  // namespace conmuta::fuzz
