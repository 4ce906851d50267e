// Lines as a Panasonic KX prints them (switches/panasonic-kx), made up: so many and so varied that
// no processor knows them by heart.
#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>

namespace conmuta::bench {

// Always the same lines in the same order, on every machine.
class KxLines {
 public:
  // The next line without its line end. Lives until the one after it.
  const std::string& Next();

 private:
  unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
  bool OnceIn(unsigned times) { return Below(times) == 0; }
  template <std::size_t kCount>
  std::string_view OneOf(const std::array<std::string_view, kCount>& texts) {
    return texts[Below(kCount)];
  }

  // Each gives the column behind what it put down.
  std::size_t Put(std::size_t column, std::string_view text);
  std::size_t PutDigits(std::size_t column, unsigned count);
  std::size_t PutPair(std::size_t column, unsigned first, unsigned last);

  void PutNoise();
  void PutStart();
  void PutNumber(std::size_t column);
  void PutOutgoing();
  void PutIncoming();
  void PutInternal();
  void PutDuration(std::string_view mark);
  void PutTail();
  void Damage();

  std::mt19937 random_{20190114};
  std::string line_;
};

}  // namespace conmuta::bench
