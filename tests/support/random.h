// Random choices from a fixed seed, the same on every platform.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace conmuta::test {

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}

  // 0 to below - 1.
  int Below(int below) { return static_cast<int>(engine_() % static_cast<unsigned>(below)); }
  int Between(int first, int last) { return first + Below(last - first + 1); }
  bool Percent(int chance) { return Below(100) < chance; }

  template <class Container>
  const auto& OneOf(const Container& container) {
    return *(std::begin(container) + Below(static_cast<int>(std::size(container))));
  }

  std::u16string String(std::u16string_view alphabet, int length) {
    std::u16string text;
    for (int i = 0; i < length; ++i) text += OneOf(alphabet);
    return text;
  }

 private:
  std::mt19937 engine_;  // its sequence is laid down, that of the distributions is not
};

}  // namespace conmuta::test
