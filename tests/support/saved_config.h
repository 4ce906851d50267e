// A configuration whose file is in memory.
#pragma once

#include <string>

#include "config/clsCfgConmut.h"
#include "layouts/layout_config.h"
#include "platform/errors.h"
#include "support/fake_files.h"

namespace conmuta::test {

struct SavedConfig {
  SavedConfig() = default;
  explicit SavedConfig(const layouts::Layout& layout) { layouts::Apply(layout, config); }

  // Whether the bytes are a configuration.
  bool Open(const std::string& bytes) {
    files.entries[u"a.cfg"] = {bytes};
    try {
      config.Abrir(u"a.cfg");
    } catch (const ConfigError&) {
      return false;
    }
    return true;
  }

  bool CanBeSaved() const {
    return config.Caso() != emNoCaso && config.HayConfig() && !config.Separador().empty();
  }

  std::string Bytes() {
    config.GuardarComo(u"b.cfg");
    return files.entries[u"b.cfg"].bytes;
  }

  FakeFiles files;
  Platform platform{files, SystemPlatform().clock, SystemPlatform().code_page,
                    SystemPlatform().profiles};
  clsCfgConmut config{platform};
};

}  // namespace conmuta::test
