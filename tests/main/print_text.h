// Texts stand in failure messages as text, not as numbers. Every test file has this included by the
// build, since a printer that only some of them see would be one too many.
#pragma once

#include <gtest/gtest-printers.h>

#include <cstdio>
#include <ostream>
#include <string>
#include <string_view>

namespace conmuta::test {

// As UTF-8 between quotes; what is no visible character as \xHHHH.
inline void PrintUtf16(std::u16string_view text, std::ostream* out) {
  *out << "u\"";
  for (const char16_t c : text) {
    if (c == u'"' || c == u'\\') *out << '\\';
    if (c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0xD800 && c < 0xE000)) {
      char code[8];
      std::snprintf(code, sizeof code, "\\x%04X", unsigned{c});
      *out << code;
    } else if (c < 0x80) {
      *out << static_cast<char>(c);
    } else if (c < 0x800) {
      *out << static_cast<char>(0xC0 | (c >> 6)) << static_cast<char>(0x80 | (c & 0x3F));
    } else {
      *out << static_cast<char>(0xE0 | (c >> 12)) << static_cast<char>(0x80 | ((c >> 6) & 0x3F))
           << static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  *out << '"';
}

}  // namespace conmuta::test

namespace testing::internal {

template <>
class UniversalPrinter<std::u16string> {
 public:
  static void Print(const std::u16string& text, std::ostream* out) {
    conmuta::test::PrintUtf16(text, out);
  }
};

template <>
class UniversalPrinter<std::u16string_view> {
 public:
  static void Print(const std::u16string_view& text, std::ostream* out) {
    conmuta::test::PrintUtf16(text, out);
  }
};

}  // namespace testing::internal
