// Texts of the core as UTF-8, and as something that a terminal can be given.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace conmuta::host {

// Half a surrogate pair becomes U+FFFD.
void AppendUtf8(std::string& out, TextView text);
std::string Utf8(TextView text);

// The same, with characters that would steer a terminal (controls, marks of direction) written as
// "\x1B" or "\u202E".
void AppendShown(std::string& out, TextView text);
std::string Shown(TextView text);

// Whether a character steers a terminal instead of being seen.
constexpr bool Steers(char16_t c) {
  return c < u' ' || (c >= 0x7F && c < 0xA0) || c == 0x61C || (c >= 0x200B && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

// How many columns of a terminal the text takes: its code points.
std::size_t Columns(std::string_view utf8);

// What a switch or a person wrote, in UTF-8 or, where it is none, in Windows-1252. `text` is filled
// anew; its room is kept.
void Widen(std::string_view bytes, Text& text);

}  // namespace conmuta::host
