// What came of a capture, counted, and where it is not what must come.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "layouts/proof/family.h"

namespace conmuta::layouts {

struct Difference {
  int line = 0;  // number in the capture
  Outcome expected;
  Outcome found;
};

struct Tally {
  int lines = 0;
  std::map<emTiposLlamadas, int> calls;
  std::map<NoCall, int> without_call;
  int errors = 0;
  std::vector<Difference> differences;
};

Tally TallyOf(const Family& family);

// A line a family: lines, calls by type, errors, lines without a call by reason. Spanish.
std::string TallyTable(const std::vector<Family>& families, const std::vector<Tally>& tallies);

// "switches/nec-date: línea 13: ..." with both outcomes.
std::string Sentence(const std::string& family, const Difference& difference);

}  // namespace conmuta::layouts
