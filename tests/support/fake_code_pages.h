// Code pages of known behaviour, the same on every machine.
#pragma once

#include "platform/code_page.h"

namespace conmuta::test {

// One byte for each character up to U+00FF, "?" for the others.
class Latin1 final : public CodePage {
 public:
  std::string ToBytes(TextView text) const override {
    std::string bytes;
    for (const char16_t c : text) bytes.push_back(c <= 0xFF ? static_cast<char>(c) : '?');
    return bytes;
  }

  Text FromBytes(std::string_view bytes) const override {
    Text text;
    for (const char b : bytes) text.push_back(static_cast<unsigned char>(b));
    return text;
  }
};
inline const Latin1 kLatin1;

// One byte for each character up to U+007F, "<>" for each of the others, "[==]" for a surrogate
// pair. The way back gives nothing for a lone "<".
class SeveralBytes final : public CodePage {
 public:
  std::string ToBytes(TextView text) const override {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool is_pair =
          (text[i] & 0xFC00) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
      if (is_pair) {
        bytes += "[==]";
        ++i;
      } else if (text[i] < 0x80) {
        bytes.push_back(static_cast<char>(text[i]));
      } else {
        bytes += "<>";
      }
    }
    return bytes;
  }

  Text FromBytes(std::string_view bytes) const override {
    Text text;
    for (const char b : bytes) {
      if (b != '<') text.push_back(static_cast<unsigned char>(b));
    }
    return text;
  }
};

}  // namespace conmuta::test
