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

// Day number of the first of a month, counted from January of the year 0. The calendar repeats
// itself every 400 years; within them it is the library's.
std::int64_t FirstOfMonth(std::int64_t month) {
  constexpr std::int64_t kMonthsOfCycle = std::int64_t{400} * 12;
  constexpr std::int64_t kDaysOfCycle = 146097;
  const std::int64_t cycle = (month >= 0 ? month : month - (kMonthsOfCycle - 1)) / kMonthsOfCycle;
  const auto in_cycle = static_cast<int>(month - cycle * kMonthsOfCycle);
  const sys_days first{std::chrono::year{in_cycle / 12} / (in_cycle % 12 + 1) / 1};
  return (first - kDayZero).count() + cycle * kDaysOfCycle;
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
