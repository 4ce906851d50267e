// Writing fields of a row into room that is large enough. All give where they came to.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "conmuta/call_fields.h"

namespace conmuta::host {

inline char* Put(char* at, std::string_view text) {
  return std::copy(text.begin(), text.end(), at);
}

// "00" to "99", one behind the other: two digits at once need no division.
inline constexpr std::array<char, 200> kPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

inline char* PutPair(char* at, int number) {
  if (number > 99) [[unlikely]] {
    return std::to_chars(at, at + 10, number).ptr;
  }
  return std::copy_n(kPairs.data() + 2 * number, 2, at);
}

// No number is longer.
inline constexpr std::size_t kMostDigits = 20;

// Needs room for kMostDigits. Without a branch on how many digits a small number has: durations
// have any number of them.
inline char* PutNumber(char* at, std::uint64_t number) {
  if (number > 9999) return std::to_chars(at, at + kMostDigits, number).ptr;
  const auto small = static_cast<int>(number);
  char digits[8] = {};
  PutPair(PutPair(digits, small / 100), small % 100);
  const int zeros = (small < 1000) + (small < 100) + (small < 10);
  std::memcpy(at, digits + zeros, 4);
  return at + 4 - zeros;
}

// Room for a date or a time of any numbers.
inline constexpr std::size_t kMostOfMoment = 4 * kMostDigits;

// "2019-01-16", "09:15:00"
inline char* PutDate(char* at, const Moment& moment) {
  at = PutPair(at, moment.year / 100);
  at = PutPair(at, moment.year % 100);
  *at++ = '-';
  at = PutPair(at, moment.month);
  *at++ = '-';
  return PutPair(at, moment.day);
}
inline char* PutTime(char* at, const Moment& moment) {
  at = PutPair(at, moment.hours);
  *at++ = ':';
  at = PutPair(at, moment.minutes);
  *at++ = ':';
  return PutPair(at, moment.seconds);
}

}  // namespace conmuta::host
