// What stands in some columns of many lines.
#pragma once

#include <vector>

#include "platform/text.h"

namespace conmuta::taller {

struct ColumnLook {
  std::size_t lines = 0;  // that reach so far and have something there
  double digits = 0;      // share of them with nothing but digits there
  double letters = 0;     // with a letter or a sign
  double steady = 0;      // with the text that most have
  int least = 0;          // of the numbers
  int most = 0;
  char16_t before = u' ';  // what most have in the column before, and behind
  char16_t behind = u' ';
  char16_t beyond = u' ';  // behind the two columns that follow that sign: of 00:12'40 the ' at 00
};

// From column 1. Numbers of more than nine digits count as the greatest.
ColumnLook LookAt(const std::vector<Text>& lines, int pos, int size);

}  // namespace conmuta::taller
