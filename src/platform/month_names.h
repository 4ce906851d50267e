// Month names in the user's language.
#pragma once

#include "platform/text.h"

namespace conmuta {

class MonthNames {
 public:
  virtual ~MonthNames() = default;

  // The first three letters of a month's abbreviation; 1 is January.
  virtual Text Abbreviation(int month) const = 0;
};

// Those of the system: the user's locale on Windows, Spanish elsewhere. Lives as long as the
// process.
const MonthNames& SystemMonthNames();

}  // namespace conmuta
