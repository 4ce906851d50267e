// A parser written by hand for one layout (switches/panasonic-kx), the yardstick of the configured
// translator: columns known at compile time, a plain record, and nothing of the core in it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kx {

struct Date {
  int year;
  int month;
  int day;
};

enum class Type : std::uint8_t { kNone = 1, kIncoming, kOutgoing, kInternal, kUnrecognised };

enum class Transfer : std::uint8_t { kNone, kBegins, kEnds };

template <std::size_t kMost>
struct Digits {
  std::size_t size = 0;
  std::array<char16_t, kMost> characters;

  std::u16string_view view() const { return {characters.data(), size}; }
};

struct Call {
  // Whoever delivers a call can show the line that it came of; the reader's buffer is gone by then.
  std::u16string line;
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int duration = 0;  // seconds
  int ring = 0;      // seconds
  Type type = Type::kNone;
  Transfer transfer = Transfer::kNone;
  Digits<25> phone;
  Digits<5> caller;
  Digits<5> callee;
  Digits<10> account;
};

class Parser {
 public:
  // Whoever makes the parser reads the clock, once a run: a program that goes through a file of
  // years need not ask for the date at each line.
  explicit Parser(const Date& today);

  // The same call lives as long as the parser; a line that is none leaves it of type kNone.
  const Call& Parse(std::u16string_view line);

 private:
  Date today_;
  std::array<int, 100> years_;  // what the two digits mean
  Call call_;
};

}  // namespace kx
