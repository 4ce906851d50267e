// Text in memory: UTF-16 code units, the form in which hosts hand it over. NULs may stand anywhere.
#pragma once

#include <string>
#include <string_view>

namespace conmuta {

using Text = std::u16string;
using TextView = std::u16string_view;

inline constexpr char16_t kNul = u'\0';
inline constexpr TextView kLineBreak = u"\r\n";

// Without the blanks (U+0020 only) at both ends, or at the right end.
TextView Trim(TextView text);
TextView TrimRight(TextView text);

constexpr bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

bool HasDigit(TextView text);

// Upper case, one code unit to one code unit over the basic plane: "ñ" becomes "Ñ", "ß" stays.
char16_t ToUpper(char16_t c);
Text ToUpper(TextView text);
bool EqualIgnoringCase(TextView a, TextView b);

// Decimal digits with a leading "-" when negative.
Text ToText(long long value);

}  // namespace conmuta
