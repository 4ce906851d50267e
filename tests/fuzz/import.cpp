#include "fuzz/targets.h"
#include "support/config_bench.h"

namespace conmuta::fuzz {

void Import(std::string_view bytes) {
  test::ConfigBench bench;
  bench.files.entries[u"exchange.ini"] = {std::string(bytes)};
  try {
    bench.config.Importar(u"exchange.ini");
  } catch (const ConfigError& error) {
    Require(error.number() == 0x800405E0, "a refused file is an import error");
    Require(!bench.config.Modificado(), "a refused file leaves the change flag alone");
    return;
  }
  Require(!bench.config.Modificado(), "what was imported is unmodified");
  Require(bench.config.HayConfig(), "what was imported can be translated with");
  Require(bench.config.Caso() == emCasoEstandar, "only the standard case is imported");
  Require(bench.listener.events.back() == "ConfiguracionCargada", "importing is announced last");

  // It can be exported, with one line for each value.
  bench.config.Exportar(u"again.ini");
  Require(bench.files.entries[u"exchange.ini"].bytes == bytes, "importing leaves the file alone");
}

}  // namespace conmuta::fuzz
