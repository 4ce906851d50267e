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
  text = Trim(text);
  const bool negative = text.starts_with(u'-');
  if (negative || text.starts_with(u'+')) text.remove_prefix(1);

  const TextView whole = text.substr(0, CountDigits(text));
  text.remove_prefix(whole.size());
  TextView fraction;
  if (text.starts_with(u'.')) {
    text.remove_prefix(1);
    fraction = text.substr(0, CountDigits(text));
    text.remove_prefix(fraction.size());
  }
  if (!text.empty() || (whole.empty() && fraction.empty())) return std::nullopt;

  std::int64_t value = std::max<std::int64_t>(ReadDigits(whole), 0);
  if (value == kBeyondEveryWidth) return negative ? -value : value;
  if (RoundsUp(fraction, value % 2 != 0)) ++value;
  return negative ? -value : value;
}

}  // namespace conmuta
