// Month names that no system has.
#pragma once

#include "platform/month_names.h"

namespace conmuta::test {

// "M01" to "M12".
class FakeMonthNames final : public MonthNames {
 public:
  Text Abbreviation(int month) const override {
    return Text(month < 10 ? u"M0" : u"M").append(ToText(month));
  }
};

}  // namespace conmuta::test
