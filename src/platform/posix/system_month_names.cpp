#include <array>

#include "platform/month_names.h"

namespace conmuta {
namespace {

class SpanishMonthNames final : public MonthNames {
 public:
  Text Abbreviation(int month) const override {
    static constexpr std::array<TextView, 12> kNames = {u"ene", u"feb", u"mar", u"abr",
                                                        u"may", u"jun", u"jul", u"ago",
                                                        u"sep", u"oct", u"nov", u"dic"};
    return Text(kNames.at(static_cast<std::size_t>(month - 1)));
  }
};

}  // namespace

const MonthNames& SystemMonthNames() {
  static const SpanishMonthNames names;
  return names;
}

}  // namespace conmuta
