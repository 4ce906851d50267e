// Writing fields that need no quotes or escapes, as nearly all are.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "platform/text.h"

namespace conmuta::host {

// Narrows texts of characters that are ASCII and seen, and neither of two, to bytes.
struct PlainText {
  char16_t one;
  char16_t other;

  // For a text that lies in room for kRoom characters, and so much room behind `at`: all of it is
  // looked at and written, because nobody could predict how much of it counts. Gives where it came
  // to, or null where another character is in the text.
  template <std::size_t kRoom>
  char* Put(char* at, TextView text) const {
    std::array<char16_t, kRoom> wide;
    std::memcpy(wide.data(), text.data(), sizeof wide);
    std::array<char, kRoom> narrow;
    const auto size = static_cast<std::uint16_t>(text.size());
    std::uint16_t wrong = 0;
    for (std::uint16_t i = 0; i < kRoom; ++i) {
      const char16_t c = wide[i];
      const auto from_blank = static_cast<std::uint16_t>(c - u' ');
      wrong |= static_cast<std::uint16_t>(
          (i < size) & ((from_blank >= 0x7F - u' ') | (c == one) | (c == other)));
      narrow[i] = static_cast<char>(c);
    }
    std::memcpy(at, narrow.data(), sizeof narrow);
    return wrong == 0 ? at + size : nullptr;
  }
};

}  // namespace conmuta::host
