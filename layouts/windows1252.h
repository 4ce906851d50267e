// The characters that a configuration file can keep wherever it is read: those of Windows-1252.
#pragma once

#include <algorithm>
#include <iterator>

#include "platform/text.h"

namespace conmuta::layouts {

// Its five undefined bytes stand for the controls of the same codes.
constexpr bool IsInWindows1252(char16_t c) {
  constexpr char16_t kIn80To9F[] = {0x81,   0x8D,   0x8F,   0x90,   0x9D,   0x0152, 0x0153, 0x0160,
                                    0x0161, 0x0178, 0x017D, 0x017E, 0x0192, 0x02C6, 0x02DC, 0x2013,
                                    0x2014, 0x2018, 0x2019, 0x201A, 0x201C, 0x201D, 0x201E, 0x2020,
                                    0x2021, 0x2022, 0x2026, 0x2030, 0x2039, 0x203A, 0x20AC, 0x2122};
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return true;
  return std::binary_search(std::begin(kIn80To9F), std::end(kIn80To9F), c);
}

// The first character that is none of them; npos when all are.
constexpr std::size_t FindNotInWindows1252(TextView text) {
  const auto found = std::find_if_not(text.begin(), text.end(), IsInWindows1252);
  return found == text.end() ? TextView::npos : static_cast<std::size_t>(found - text.begin());
}

}  // namespace conmuta::layouts
