// Numbers and dates as captures and expected rows write them.
#pragma once

#include <algorithm>
#include <optional>

#include "platform/calendar.h"
#include "platform/text.h"

namespace conmuta::layouts {

// A number of up to nine digits and nothing else.
inline std::optional<int> ReadDigitsOnly(TextView text) {
  constexpr std::size_t kMost = 9;
  if (text.empty() || text.size() > kMost || !std::all_of(text.begin(), text.end(), IsDigit)) {
    return std::nullopt;
  }
  int number = 0;
  for (const char16_t c : text) number = number * 10 + (c - u'0');
  return number;
}

// Whether there is such a day.
inline bool IsInCalendar(CivilDate date) {
  if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31) return false;
  if (date.day <= 28 && date.year >= 1900 && date.year <= 9999) return true;
  const auto number = TryDayNumber(date.year, date.month, date.day);
  return number && DateOfDayNumber(*number).month == date.month;
}

// "2019-01-16", from 1900 on; nothing for what is no day.
inline std::optional<CivilDate> ReadDate(TextView text) {
  if (text.size() != 10 || text[4] != u'-' || text[7] != u'-') return std::nullopt;
  const auto year = ReadDigitsOnly(text.substr(0, 4));
  const auto month = ReadDigitsOnly(text.substr(5, 2));
  const auto day = ReadDigitsOnly(text.substr(8, 2));
  if (!year || !month || !day || *year < 1900) return std::nullopt;
  const CivilDate date{*year, *month, *day};
  return IsInCalendar(date) ? std::optional(date) : std::nullopt;
}

}  // namespace conmuta::layouts
