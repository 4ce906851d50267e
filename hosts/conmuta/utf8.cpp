#include "conmuta/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "platform/unicode.h"
#include "platform/windows1252.h"

namespace conmuta::host {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

bool IsAscii(TextView text) {
  unsigned all = 0;
  for (const char16_t c : text) all |= c;
  return all < 0x80;
}

void AppendAscii(std::string& out, TextView text) {
  const std::size_t begin = out.size();
  out.resize(begin + text.size());
  std::transform(text.begin(), text.end(), out.begin() + static_cast<std::ptrdiff_t>(begin),
                 [](char16_t c) { return static_cast<char>(c); });
}

void AppendCodePoint(std::string& out, char32_t c) {
  const auto put = [&](char32_t byte) { out += static_cast<char>(byte); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | c >> 6);
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | c >> 12);
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | c >> 18);
    put(0x80 | (c >> 12 & 0x3F));
    put(0x80 | (c >> 6 & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

// Takes the next code point off the front of a text that is not empty.
char32_t TakeCodePoint(TextView& text) {
  const char16_t first = text[0];
  text.remove_prefix(1);
  if (first < 0xD800 || first > 0xDFFF) return first;
  if (first > 0xDBFF || text.empty() || text[0] < 0xDC00 || text[0] > 0xDFFF) return kReplacement;
  const char16_t second = text[0];
  text.remove_prefix(1);
  return 0x10000 + ((char32_t{first} - 0xD800) << 10) + (char32_t{second} - 0xDC00);
}

void AppendEscape(std::string& out, char16_t c) {
  char escape[8];
  std::snprintf(escape, sizeof escape, c < 0x100 ? "\\x%02X" : "\\u%04X", unsigned{c});
  out += escape;
}

}  // namespace

void AppendUtf8(std::string& out, TextView text) {
  if (IsAscii(text)) return AppendAscii(out, text);
  while (!text.empty()) AppendCodePoint(out, TakeCodePoint(text));
}

std::string Utf8(TextView text) {
  std::string out;
  AppendUtf8(out, text);
  return out;
}

void AppendShown(std::string& out, TextView text) {
  while (!text.empty()) {
    const char32_t c = TakeCodePoint(text);
    if (c < 0x10000 && Steers(static_cast<char16_t>(c))) {
      AppendEscape(out, static_cast<char16_t>(c));
    } else {
      AppendCodePoint(out, c);
    }
  }
}

std::string Shown(TextView text) {
  std::string out;
  AppendShown(out, text);
  return out;
}

std::size_t Columns(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

void Widen(std::string_view bytes, Text& text) {
  text.resize(bytes.size());
  unsigned char all = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text[i] = byte;
    all |= byte;
  }
  if (all < 0x80) return;
  text = FromUtf8(bytes);
  if (text.find(kReplacement) == Text::npos) return;
  text.resize(bytes.size());
  std::transform(bytes.begin(), bytes.end(), text.begin(), CharacterOfWindows1252);
}

}  // namespace conmuta::host
