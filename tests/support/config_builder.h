// Configurations for tests, written down like the layouts they stand for.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "config/clsCfgConmut.h"

namespace conmuta::test {

// Gives an item its place. The type comes last, as hosts have to write it.
inline void DefineItem(clsCfgConmut& config, emParamDato kind, int pos, int size,
                       emTipoDato type = emValorNumerico) {
  config.DATOActivo(kind);
  config.DATOPos(static_cast<std::uint8_t>(pos));
  config.DATOTam(static_cast<std::uint8_t>(size));
  config.TipoDatoDATO(type);
}

inline void DefineConstant(clsCfgConmut& config, emParamDatoConstante kind, int pos,
                           TextView text) {
  config.CTEActivo(kind);
  config.Constante(text);
  config.CTEPos(static_cast<std::uint8_t>(pos));
}

// A configuration with brand, model and the standard case, to which items are added.
class ConfigBuilder {
 public:
  ConfigBuilder() : config_(std::make_unique<clsCfgConmut>(SystemPlatform())) {
    config_->Marca(u"ACME");
    config_->Modelo(u"X1");
  }

  ConfigBuilder& Case(emCasos value) {
    config_->Caso(value);
    return *this;
  }
  ConfigBuilder& Item(emParamDato kind, int pos, int size, emTipoDato type = emValorNumerico) {
    DefineItem(*config_, kind, pos, size, type);
    return *this;
  }
  ConfigBuilder& TextItem(emParamDato kind, int pos, int size) {
    return Item(kind, pos, size, emValorCadena);
  }
  ConfigBuilder& Constant(emParamDatoConstante kind, int pos, TextView text) {
    DefineConstant(*config_, kind, pos, text);
    return *this;
  }

  std::unique_ptr<clsCfgConmut> Build() { return std::move(config_); }

 private:
  std::unique_ptr<clsCfgConmut> config_;
};

}  // namespace conmuta::test
