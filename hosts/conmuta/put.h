// Writing fields of a row into room that is large enough. All give where they came to.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "conmuta/call_fields.h"
#include "platform/text.h"

namespace conmuta::host {

inline char* Put(char* at, std::string_view text) {
  return std::copy(text.begin(), text.end(), at);
}

// At least so many digits.
inline char* PutNumber(char* at, std::uint64_t number, int least = 1) {
  char digits[20];
  int count = 0;
  do {
    digits[count++] = static_cast<char>('0' + number % 10);
    number /= 10;
  } while (number != 0);
  for (int i = count; i < least; ++i) *at++ = '0';
  while (count > 0) *at++ = digits[--count];
  return at;
}

inline char* PutPair(char* at, int number) {
  if (number > 99) return PutNumber(at, static_cast<std::uint64_t>(number));
  *at++ = static_cast<char>('0' + number / 10);
  *at++ = static_cast<char>('0' + number % 10);
  return at;
}

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

// A text of characters that are ASCII and seen, and none of them the two; null, and any bytes
// written, for every other.
inline char* PutPlain(char* at, TextView text, char16_t one, char16_t other) {
  bool plain = true;
  for (const char16_t c : text) {
    plain &= (c >= u' ') & (c < 0x7F) & (c != one) & (c != other);
    *at++ = static_cast<char>(c);
  }
  return plain ? at : nullptr;
}

}  // namespace conmuta::host
