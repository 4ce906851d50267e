#include "platform/code_page.h"

namespace conmuta {

unsigned char CharacterCode(const CodePage& code_page, char16_t character) {
  const std::string bytes = code_page.ToBytes(TextView(&character, 1));
  return bytes.size() == 1 ? static_cast<unsigned char>(bytes[0]) : '?';
}

char16_t CharacterOfCode(const CodePage& code_page, unsigned char code) {
  const char byte = static_cast<char>(code);
  const Text text = code_page.FromBytes(std::string_view(&byte, 1));
  return text.size() == 1 ? text[0] : u'\uFFFD';
}

std::string ToFixedBytes(const CodePage& code_page, TextView text, std::size_t width) {
  std::string bytes = code_page.ToBytes(text);
  while (bytes.size() > width) {
    // Only a code page with several bytes to a character gets here: drop whole characters.
    const bool is_pair = text.size() > 1 && (text.back() & 0xFC00) == 0xDC00 &&
                         (text[text.size() - 2] & 0xFC00) == 0xD800;
    text.remove_suffix(is_pair ? 2 : 1);
    bytes = code_page.ToBytes(text);
  }
  bytes.resize(width, '\0');
  return bytes;
}

}  // namespace conmuta
