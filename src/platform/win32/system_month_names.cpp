#include <windows.h>

#include <array>

#include "platform/month_names.h"

namespace conmuta {
namespace {

class LocaleMonthNames final : public MonthNames {
 public:
  Text Abbreviation(int month) const override {
    std::array<wchar_t, 80> name{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVMONTHNAME1 + static_cast<LCTYPE>(month - 1),
                   name.data(), static_cast<int>(name.size()));
    const std::wstring_view abbreviation(name.data());
    return Text(abbreviation.begin(), abbreviation.end()).substr(0, 3);  // some end with a point
  }
};

}  // namespace

const MonthNames& SystemMonthNames() {
  static const LocaleMonthNames names;
  return names;
}

}  // namespace conmuta
