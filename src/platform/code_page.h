// The ANSI code page: the form of text on disk and of the character codes that hosts see.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace conmuta {

class CodePage {
 public:
  virtual ~CodePage() = default;

  // What the code page cannot hold becomes "?". NULs pass through both ways.
  virtual std::string ToBytes(TextView text) const = 0;
  virtual Text FromBytes(std::string_view bytes) const = 0;
};

// Code 0 to 255 of a character; that of "?" when the code page has no single byte for it.
unsigned char CharacterCode(const CodePage& code_page, char16_t character);

// The character of a one-byte code; U+FFFD when the byte alone is none in this code page.
char16_t CharacterOfCode(const CodePage& code_page, unsigned char code);

// Exactly `width` bytes: whole characters only, cut at the width or filled with NULs.
std::string ToFixedBytes(const CodePage& code_page, TextView text, std::size_t width);

}  // namespace conmuta
