// The text of a line, kept so that its columns can be looked at without asking for its length, and
// with its digits known.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include "platform/text.h"
#include "translate/bounded_text.h"

namespace conmuta {

// Where the digits of a field are found, worked out beforehand.
struct DigitsPlace {
  constexpr DigitsPlace() = default;
  constexpr DigitsPlace(std::size_t begin, std::size_t size)
      : byte(static_cast<std::uint8_t>(begin / 8)),
        shift(static_cast<std::uint8_t>(begin % 8)),
        mask((std::uint64_t{1} << size % 64) - 1) {}

  std::uint8_t byte = 0;
  std::uint8_t shift = 0;
  std::uint64_t mask = 0;  // as many bits as columns
};

class LineText {
 public:
  // Slots name columns up to 255; comparing and copying may look some further. A shorter line reads
  // as NULs up to here, which no constant and no digit is.
  static constexpr std::size_t kReach = 256 + FieldDigits::kBeyond;

  LineText() = default;
  explicit LineText(TextView text) { Assign(text); }

  // Costs an allocation only when the text is longer than any before, gives back the room that a
  // giant line took, or is a part of the present one.
  void Assign(TextView text);

  TextView View() const { return {characters_.get(), size_}; }
  std::size_t size() const { return size_; }

  // From a column on, counted from 0; good up to column kReach, whatever the size.
  const char16_t* From(std::size_t begin) const { return characters_.get() + begin; }

  // The characters at a place, cut at the end of the line.
  TextView Cut(std::size_t begin, std::size_t size) const {
    return begin < size_ ? View().substr(begin, size) : TextView();
  }

  bool HasDigit() const;

  // The digits of a field of at most FieldDigits::kMost columns within reach.
  FieldDigits DigitsIn(std::size_t begin, const DigitsPlace& place) const {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &digits_[place.byte], sizeof bits);
    return {From(begin), bits >> place.shift & place.mask};
  }

 private:
  // Lines beyond are rare enough for their room to be given back.
  static constexpr std::size_t kOrdinary = 1 << 16;

  bool Holds(TextView text) const;
  void Take(TextView text);
  void Clear();

  std::unique_ptr<char16_t[]> characters_ = std::make_unique<char16_t[]>(kReach);
  std::size_t capacity_ = kReach;
  std::size_t size_ = 0;
  // A bit for each column within reach, set for a digit; the bytes behind are there to be loaded.
  std::array<std::uint8_t, kReach / 8 + sizeof(std::uint64_t)> digits_{};
};

}  // namespace conmuta
