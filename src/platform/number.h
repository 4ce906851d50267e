// Which texts count as a number, and which whole number they stand for.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>

#include "platform/arithmetic.h"
#include "platform/text.h"

namespace conmuta {

// A number is: blanks (U+0020) around it at will, one sign directly before it at most, ASCII digits
// with at most one point among or around them ("1.", ".5", "1.5"). Nothing else is: no exponent,
// comma, hexadecimal, currency or trailing sign.
//
// The answer is its nearest integer, halves to even; nothing when the text is not a number. Numbers
// of any length are read in linear time; those beyond 18 digits come out as +-10^18, which no
// stored width can hold, so narrowing them raises.
std::optional<std::int64_t> ReadWholeNumber(TextView text);

// Whether the text is a number and exactly this one: no fraction is rounded away.
bool IsExactly(TextView text, std::int64_t number);

// The number that the text's digits make up, whatever stands between them.
inline constexpr std::int32_t kNoDigits = -1;
std::int64_t ReadDigits(TextView text);

// The same for a text of at most nine characters, which every width of 32 bits holds.
constexpr std::int32_t ReadFewDigits(TextView text) {
  std::int32_t value = kNoDigits;
  for (const char16_t c : text) {
    if (IsDigit(c)) value = (value < 0 ? 0 : value * 10) + (c - u'0');
  }
  return value;
}

// The same for two characters. They mostly are both digits, which is seen of both at once: 30 to 39
// keep their high bits when 6 is added, and nothing else comes to 30.
inline std::int32_t ReadTwoDigits(const char16_t* text) {
  std::uint32_t both = 0;
  std::memcpy(&both, text, sizeof both);
  if ((both & (both + 0x0006'0006) & 0xFFF0'FFF0) == 0x0030'0030) [[likely]] {
    constexpr std::uint32_t kTenTimesFirstPlusSecond = 10 << 16 | 1;  // the first is the low half
    return static_cast<std::int32_t>((both & 0x000F'000F) * kTenTimesFirstPlusSecond >> 16);
  }
  return ReadFewDigits({text, 2});
}

// ReadWholeNumber in the width T; OverflowError when the number does not fit.
template <std::integral T>
std::optional<T> ReadWholeNumberAs(TextView text) {
  const auto number = ReadWholeNumber(text);
  if (!number) return std::nullopt;
  return Narrow<T>(*number);
}

}  // namespace conmuta
