// Calendar arithmetic with roll-over, on the day and date numbers that hosts exchange.
#pragma once

#include <cstdint>
#include <optional>

namespace conmuta {

// A date as the platform exchanges it with hosts: days since 30 December 1899, the time of day as
// the fraction. For days before that one the fraction still counts away from zero.
using DateValue = double;

struct CivilDate {
  int year;
  int month;  // 1 to 12
  int day;    // 1 to 31
};

inline constexpr std::int64_t kSecondsPerDay = std::int64_t{24} * 60 * 60;

// Day number (days since 30 December 1899) of a date whose month and day may lie outside the
// calendar: month 13 is January of the next year, day 0 the last day of the month before. The
// years 0 to 29 mean 2000 to 2029 and 30 to 99 mean 1930 to 1999. InvalidArgumentError when year
// or result leave the years 100 to 9999.
std::int64_t DayNumber(int year, int month, int day);

// The same, with nothing instead of the error.
std::optional<std::int64_t> TryDayNumber(int year, int month, int day);

// The date of a day number.
CivilDate DateOfDayNumber(std::int64_t day_number);

// Seconds of a time of day whose parts may roll over: 25 hours are a day and an hour.
constexpr std::int64_t SecondsOfDay(int hours, int minutes, int seconds) {
  return std::int64_t{hours} * 3600 + std::int64_t{minutes} * 60 + seconds;
}

}  // namespace conmuta
