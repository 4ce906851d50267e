// A translator at a frozen date, together with what it needs.
#pragma once

#include <memory>
#include <utility>

#include "support/call_values.h"
#include "support/config_builder.h"
#include "support/fake_clock.h"
#include "translate/clsTradEST.h"

namespace conmuta::test {

struct Translation {
  explicit Translation(std::unique_ptr<clsCfgConmut> first) : config(std::move(first)) {
    translator.Conmutador(config.get());
  }

  clsLlamadaTRD& Translate(TextView line) {
    translator.Llamada(line);
    return call();
  }
  clsLlamadaTRD& call() { return translator.InfoLlamada(); }

  FakeClock clock;
  std::unique_ptr<clsCfgConmut> config;
  clsTradEST translator{clock};
};

}  // namespace conmuta::test
