// Texts of a fixed width, as configurations and call records store them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/text.h"

namespace conmuta {

namespace basConmuta {

// The first `width` characters of the text, filled up with NULs; empty for a width below 1.
Text CadenaAFija(TextView text, int width);

// The text without its NULs, wherever they stand.
Text FijaACadena(TextView fixed);

}  // namespace basConmuta

// A text of always exactly kWidth characters: stored as CadenaAFija gives it, read back through
// FijaACadena, without an allocation in between.
template <std::size_t kWidth>
class FixedText {
 public:
  static constexpr std::size_t kSize = kWidth;

  // Stores the first kWidth characters, filled up with NULs; true when that changed anything.
  bool Assign(TextView value) {
    std::array<char16_t, kWidth> fixed{};
    std::copy_n(value.begin(), std::min(value.size(), kWidth), fixed.begin());
    if (fixed == characters_) return false;
    characters_ = fixed;
    length_ = kWidth - static_cast<std::size_t>(std::count(fixed.begin(), fixed.end(), kNul));
    return true;
  }

  // As it reads back: all characters but the NULs.
  Text Read() const { return basConmuta::FijaACadena(Raw()); }
  std::size_t Length() const { return length_; }
  bool Empty() const { return length_ == 0; }

  // As it is stored: kWidth characters, NULs included.
  TextView Raw() const { return {characters_.data(), kWidth}; }

  bool operator==(const FixedText&) const = default;

 private:
  std::array<char16_t, kWidth> characters_{};
  std::size_t length_ = 0;  // of what reads back
};

}  // namespace conmuta
