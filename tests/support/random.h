// Random choices, the same on every platform: from a fixed seed, or from bytes that a fuzzer chose.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace conmuta::test {

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  explicit Random(std::string_view bytes) : bytes_(bytes) {}

  // Whether there are no bytes any more; from then on a fixed seed decides.
  bool Spent() const { return bytes_.empty(); }

  // 0 to below - 1.
  int Below(int below) { return static_cast<int>(Next() % static_cast<unsigned>(below)); }
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
  std::uint_fast32_t Next() {
    if (bytes_.empty()) return engine_();
    const auto next = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return next;
  }

  std::string_view bytes_;
  std::mt19937 engine_;  // its sequence is laid down, that of the distributions is not
};

}  // namespace conmuta::test
