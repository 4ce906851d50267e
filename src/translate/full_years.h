// The full years that the digits of a line stand for.
#pragma once

#include <algorithm>
#include <cstdint>

namespace conmuta {

class FullYears {
 public:
  // By the present year.
  FullYears& For(int year) {
    const auto current = static_cast<std::int16_t>(year);
    if (current != current_) [[unlikely]] {
      current_ = current;
      decade_ = current % 100 - current % 10;
      century_ = current - current % 100;
    }
    return *this;
  }

  // One to four digits replace as many of the present year's, 80 to 99 mean 1980 to 1999; hosts
  // rely on a year before the present one becoming that. May exceed 16 bits.
  std::int32_t Complete(std::int32_t read) const {
    std::int32_t year = read;
    if (read < 100) [[likely]] {
      // Without a branch: any of the three comes.
      const std::int32_t present = century_ + (decade_ & -std::int32_t{read < 10});
      year += 1900 + ((present - 1900) & -std::int32_t{read < 80});
    } else if (read < 1000) {
      year += current_ - current_ % 1000;
    } else if (read < 10000) {
      year += current_ - current_ % 10000;
    }
    return std::max(current_, year);
  }

 private:
  std::int32_t current_ = 0;
  std::int32_t decade_ = 0;  // 20 in 2026
  std::int32_t century_ = 0;
};

}  // namespace conmuta
