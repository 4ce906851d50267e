#include "platform/calendar.h"

#include <chrono>

#include "platform/errors.h"

namespace conmuta {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

int FullYear(int year) {
  if (year < 0 || year > 99) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

}  // namespace

std::int64_t DayNumber(int year, int month, int day) {
  year = FullYear(year);
  if (year < kFirstYear || year > kLastYear) throw InvalidArgumentError();
  const auto first_of_month =
      std::chrono::year{year} / 1 / 1 + (std::chrono::months{month} - std::chrono::months{1});
  const sys_days date = sys_days{first_of_month} + (days{day} - days{1});
  const int resulting_year{std::chrono::year_month_day{date}.year()};
  if (resulting_year < kFirstYear || resulting_year > kLastYear) throw InvalidArgumentError();
  return (date - kDayZero).count();
}

CivilDate DateOfDayNumber(std::int64_t day_number) {
  const std::chrono::year_month_day date{kDayZero + days{day_number}};
  return {int{date.year()}, static_cast<int>(unsigned{date.month()}),
          static_cast<int>(unsigned{date.day()})};
}

}  // namespace conmuta
