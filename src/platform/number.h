// Which texts count as a number, and which whole number they stand for.
#pragma once

#include <cstdint>
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

// The number that the text's digits make up, whatever stands between them.
inline constexpr std::int64_t kNoDigits = -1;
std::int64_t ReadDigits(TextView text);

// ReadWholeNumber in the width T; OverflowError when the number does not fit.
template <std::integral T>
std::optional<T> ReadWholeNumberAs(TextView text) {
  const auto number = ReadWholeNumber(text);
  if (!number) return std::nullopt;
  return Narrow<T>(*number);
}

}  // namespace conmuta
