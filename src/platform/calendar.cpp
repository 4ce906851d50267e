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
constexpr std::int64_t kFirstDay = -657434;  // 1 January 100
constexpr std::int64_t kLastDay = 2958465;   // 31 December 9999

int FullYear(int year) {
  if (year < 0 || year > 99) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

// Day number of the first of a month, counted from January of the year 0. A year begins with March
// here, so that the leap day is its last.
std::int64_t FirstOfMonth(std::int64_t month) {
  const std::int64_t from_march = month - 2;
  const std::int64_t year = from_march >= 0 ? from_march / 12 : (from_march - 11) / 12;
  const std::int64_t days_before = (153 * (from_march - year * 12) + 2) / 5;
  const std::int64_t century = year >= 0 ? year / 400 : (year - 399) / 400;
  const std::int64_t in_cycle = year - century * 400;
  constexpr std::int64_t kDaysOfCycle = 146097;
  constexpr std::int64_t kFirstOfMarchOfYear0 = -693899;
  return kFirstOfMarchOfYear0 + century * kDaysOfCycle + in_cycle * 365 + in_cycle / 4 -
         in_cycle / 100 + days_before;
}

}  // namespace

std::optional<std::int64_t> TryDayNumber(int year, int month, int day) {
  year = FullYear(year);
  if (year < kFirstYear || year > kLastYear) return std::nullopt;
  const std::int64_t number =
      FirstOfMonth(std::int64_t{year} * 12 + month - 1) + (std::int64_t{day} - 1);
  if (number < kFirstDay || number > kLastDay) return std::nullopt;
  return number;
}

std::int64_t DayNumber(int year, int month, int day) {
  const auto number = TryDayNumber(year, month, day);
  if (!number) throw InvalidArgumentError();
  return *number;
}

CivilDate DateOfDayNumber(std::int64_t day_number) {
  const std::chrono::year_month_day date{kDayZero + days{day_number}};
  return {int{date.year()}, static_cast<int>(unsigned{date.month()}),
          static_cast<int>(unsigned{date.day()})};
}

}  // namespace conmuta
