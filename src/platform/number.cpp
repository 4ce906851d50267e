#include "platform/number.h"

#include <algorithm>

namespace conmuta {
namespace {

constexpr std::int64_t kBeyondEveryWidth = 1'000'000'000'000'000'000;

std::size_t CountDigits(TextView text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  return static_cast<std::size_t>(end - text.begin());
}

// Whether 0.FRACTION rounds a whole part up, halves to even.
bool RoundsUp(TextView fraction, bool whole_is_odd) {
  if (fraction.empty() || fraction[0] < u'5') return false;
  const bool exactly_half =
      fraction[0] == u'5' && fraction.find_first_not_of(u'0', 1) == TextView::npos;
  return !exactly_half || whole_is_odd;
}

// A number as its text has it: digits on both sides of the point.
struct Parts {
  bool negative;
  TextView whole;
  TextView fraction;
};

std::optional<Parts> Split(TextView text) {
  text = Trim(text);
  Parts parts{text.starts_with(u'-'), {}, {}};
  if (parts.negative || text.starts_with(u'+')) text.remove_prefix(1);

  parts.whole = text.substr(0, CountDigits(text));
  text.remove_prefix(parts.whole.size());
  if (text.starts_with(u'.')) {
    text.remove_prefix(1);
    parts.fraction = text.substr(0, CountDigits(text));
    text.remove_prefix(parts.fraction.size());
  }
  if (!text.empty() || (parts.whole.empty() && parts.fraction.empty())) return std::nullopt;
  return parts;
}

}  // namespace

std::int64_t ReadDigits(TextView text) {
  constexpr std::size_t kFew = 9;
  if (text.size() <= kFew) return ReadFewDigits(text);
  std::int64_t value = kNoDigits;
  for (const char16_t c : text) {
    if (!IsDigit(c)) continue;
    if (value >= kBeyondEveryWidth / 10) return kBeyondEveryWidth;
    value = (value == kNoDigits ? 0 : value * 10) + (c - u'0');
  }
  return value;
}

std::optional<std::int64_t> ReadWholeNumber(TextView text) {
  const auto parts = Split(text);
  if (!parts) return std::nullopt;
  std::int64_t value = std::max<std::int64_t>(ReadDigits(parts->whole), 0);
  if (value != kBeyondEveryWidth && RoundsUp(parts->fraction, value % 2 != 0)) ++value;
  return parts->negative ? -value : value;
}

bool IsExactly(TextView text, std::int64_t number) {
  const auto parts = Split(text);
  const bool is_whole = parts && parts->fraction.find_first_not_of(u'0') == TextView::npos;
  return is_whole && ReadWholeNumber(text) == number;
}

}  // namespace conmuta
