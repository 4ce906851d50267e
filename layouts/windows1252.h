// The characters that a configuration file can keep wherever it is read: those of Windows-1252.
#pragma once

#include <algorithm>

#include "platform/text.h"
#include "platform/windows1252.h"

namespace conmuta::layouts {

constexpr bool IsInWindows1252(char16_t c) {
  return c < 0x80 || (c >= 0xA0 && c <= 0xFF) ||
         std::find(kWindows1252Upper.begin(), kWindows1252Upper.end(), c) !=
             kWindows1252Upper.end();
}

// The first character that is none of them; npos when all are.
constexpr std::size_t FindNotInWindows1252(TextView text) {
  const auto found = std::find_if_not(text.begin(), text.end(), IsInWindows1252);
  return found == text.end() ? TextView::npos : static_cast<std::size_t>(found - text.begin());
}

}  // namespace conmuta::layouts
