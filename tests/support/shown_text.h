// Texts as one can read them in a log.
#pragma once

#include <string>

#include "platform/text.h"

namespace conmuta::test {

// Printable ASCII as it is, the rest as {hex}.
inline std::string Shown(TextView text) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string shown;
  for (const char16_t c : text) {
    if (c >= u' ' && c < 0x7F) {
      shown.push_back(static_cast<char>(c));
      continue;
    }
    shown.push_back('{');
    for (int shift = 12; shift >= 0; shift -= 4) shown.push_back(kHex[(c >> shift) & 0xF]);
    shown.push_back('}');
  }
  return shown;
}

}  // namespace conmuta::test
