// The texts of a call record: short, without NULs, never on the heap.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/text.h"

namespace conmuta {

// Stands for the ASCII digits of a text, in their order.
struct DigitsOf {
  TextView text;
};

// The same for a field of a line whose digits are known. What stands up to kBeyond characters
// beyond the field may be copied with it.
struct FieldDigits {
  static constexpr std::size_t kMost = 56;  // columns
  static constexpr std::uint64_t kEnd = std::uint64_t{1} << kMost;
  static constexpr std::size_t kBeyond = 2 * kMost;

  const char16_t* from = nullptr;
  std::uint64_t bits = 0;  // the lowest for the first column
};

template <std::size_t kWidth>
class BoundedText {
 public:
  BoundedText() = default;
  BoundedText(TextView value) { *this = value; }

  // The first kWidth characters of the value, less the NULs among them.
  BoundedText& operator=(TextView value) {
    return Keep(value.substr(0, kWidth), [](char16_t c) { return c != kNul; });
  }

  // The first kWidth of the digits.
  BoundedText& operator=(DigitsOf digits) { return Keep(digits.text, IsDigit); }
  BoundedText& operator=(FieldDigits digits);

  void Clear() { size_ = 0; }

  operator TextView() const { return {characters_.data(), size_}; }

 private:
  static constexpr std::size_t kBlock = 8;

 public:
  // So many characters may be read from where the text begins. In whole blocks, which are quicker
  // to copy than what is needed of them.
  static constexpr std::size_t kRoom = (kWidth + kBlock - 1) / kBlock * kBlock;

 private:
  template <class Predicate>
  BoundedText& Keep(TextView text, Predicate keep) {
    size_ = 0;
    for (const char16_t c : text) {
      if (size_ == kWidth) break;
      if (keep(c)) characters_[size_++] = c;
    }
    return *this;
  }

  std::uint32_t size_ = 0;
  std::array<char16_t, kRoom> characters_{};  // only the first size_ count
};

// By runs of digits, of which there mostly is one, or none; it is copied as if it were as long as
// can be, because nobody could predict its length.
template <std::size_t kWidth>
BoundedText<kWidth>& BoundedText<kWidth>::operator=(FieldDigits digits) {
  const auto begin = static_cast<unsigned>(std::countr_zero(digits.bits | FieldDigits::kEnd));
  constexpr std::size_t kCopied = std::min(kRoom, FieldDigits::kMost);
  static_assert(kCopied % kBlock == 0);
  for (std::size_t block = 0; block < kCopied; block += kBlock) {
    std::memcpy(&characters_[block], digits.from + begin + block, kBlock * sizeof(char16_t));
  }
  const auto end = begin + static_cast<unsigned>(std::countr_one(digits.bits >> begin));
  size_ = std::min<std::uint32_t>(end - begin, kWidth);
  digits.bits &= ~std::uint64_t{0} << end;
  // The digits of further runs one by one.
  for (; digits.bits != 0 && size_ < kWidth; digits.bits &= digits.bits - 1) {
    characters_[size_++] = digits.from[std::countr_zero(digits.bits)];
  }
  return *this;
}

}  // namespace conmuta
