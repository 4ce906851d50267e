// The texts of a call record: short, without NULs, never on the heap.
#pragma once

#include <array>
#include <cstddef>

#include "platform/text.h"

namespace conmuta {

template <std::size_t kWidth>
class BoundedText {
 public:
  BoundedText() = default;
  BoundedText(TextView value) { *this = value; }

  // The first kWidth characters of the value, less the NULs among them.
  BoundedText& operator=(TextView value) {
    std::size_t size = 0;
    for (const char16_t c : value.substr(0, kWidth)) {
      if (c != kNul) characters_[size++] = c;
    }
    size_ = size;
    return *this;
  }

  void Clear() { size_ = 0; }

  operator TextView() const { return {characters_.data(), size_}; }

 private:
  std::size_t size_ = 0;
  std::array<char16_t, kWidth> characters_{};  // only the first size_ count
};

}  // namespace conmuta
