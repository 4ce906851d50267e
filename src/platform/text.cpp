#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace conmuta {
namespace {

struct UpperCaseRun {
  char16_t first;
  char16_t last;
  std::int32_t distance;
  std::uint8_t step;
};

constexpr UpperCaseRun kUpperCaseRuns[] = {
#include "platform/uppercase_runs.inc"
};

}  // namespace

TextView TrimRight(TextView text) {
  return text.substr(0, text.find_last_not_of(u' ') + 1);
}

TextView Trim(TextView text) {
  text = TrimRight(text);
  return text.substr(std::min(text.find_first_not_of(u' '), text.size()));
}

bool HasDigit(TextView text) {
  return std::any_of(text.begin(), text.end(), IsDigit);
}

char16_t ToUpper(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - (u'a' - u'A')) : c;
  const auto* run = std::lower_bound(std::begin(kUpperCaseRuns), std::end(kUpperCaseRuns), c,
                                     [](const UpperCaseRun& r, char16_t v) { return r.last < v; });
  if (run == std::end(kUpperCaseRuns) || c < run->first || (c - run->first) % run->step != 0) {
    return c;
  }
  return static_cast<char16_t>(c + run->distance);
}

Text ToUpper(TextView text) {
  Text upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char16_t c) { return ToUpper(c); });
  return upper;
}

bool EqualIgnoringCase(TextView a, TextView b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return x == y || ToUpper(x) == ToUpper(y); });
}

Text ToText(long long value) {
  const std::string digits = std::to_string(value);
  return Text(digits.begin(), digits.end());
}

}  // namespace conmuta
