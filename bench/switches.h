// The switches of the catalogue, and a translator set up for one of them.
#pragma once

#include <string>
#include <vector>

#include "lines.h"
#include "translate/clsTradEST.h"

namespace conmuta::bench {

std::vector<std::string> Switches();
emCasos CaseOf(const std::string& name);

// The configuration file that `scripts/build catalogue` made of it.
std::string ConfigFile(const std::string& name);
Text ConfigPath(const std::string& name);
Lines Capture(const std::string& name);

class Translator {
 public:
  Translator();  // without a configuration: takes texts and translates none
  explicit Translator(const std::string& name);

  // False when the line ended in an error; cut and glued lines of a capture do.
  bool Translate(TextView line) { return translator_.Translate(line) == LineError::kNone; }
  void Watch(TextView line, LineObserver& observer) { translator_.Translate(line, observer); }
  void Translate(const Lines& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) Translate(lines[i]);
  }

  const clsLlamadaTRD& call() { return translator_.InfoLlamada(); }
  std::int16_t ParkedOn(TextView trunk) const {
    return translator_.BuscaLlamadaTroncalLista(trunk);
  }

 private:
  clsCfgConmut config_;
  clsTradEST translator_;
};

}  // namespace conmuta::bench
