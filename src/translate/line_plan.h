// What a configuration says of a line, made ready for reading lines: compiled once, read for each.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "config/clsCfgConmut.h"
#include "translate/line_text.h"

namespace conmuta {

// Where a data item stands.
struct PlannedItem {
  enum class Form : std::uint8_t {
    kUndefined,
    kOneDigit,      // numeric, one column
    kTwoDigits,     // numeric, two columns
    kFewDigits,     // numeric, and too short to exceed any number it is read as
    kDigits,        // numeric, at most FieldDigits::kMost
    kManyDigits,    // numeric, more than that
    kDigitsBeyond,  // numeric; position plus size exceed 255: cannot be read
    kText,          // of any other type
    kTextBeyond,
  };

  bool IsDefined() const { return form != Form::kUndefined; }
  bool IsNumeric() const { return form >= Form::kOneDigit && form <= Form::kDigitsBeyond; }
  bool IsBeyond() const { return form == Form::kDigitsBeyond || form == Form::kTextBeyond; }

  Form form = Form::kUndefined;
  std::uint8_t begin = 0;  // column, from 0
  std::uint8_t size = 0;
  DigitsPlace digits;
};

// Where which text identifies a line.
struct PlannedConstant {
  enum class Form : std::uint8_t {
    kUndefined,
    kComparable,
    kNever,   // its size is not that of its text, so it never stands
    kBeyond,  // position plus size exceed 255: cannot be looked at
  };

  TextView Wanted() const { return {text.data(), length}; }

  bool IsDefined() const { return form != Form::kUndefined; }

  // Whether it stands among the columns of a line (LineText::From); for a comparable one.
  bool StandsAmong(const char16_t* columns) const {
    const char16_t* found = columns + begin;
    std::uint64_t first_found = 0;
    std::uint64_t first_wanted = 0;
    std::memcpy(&first_found, found, sizeof first_found);
    std::memcpy(&first_wanted, text.data(), sizeof first_wanted);
    const bool first_stands = (first_found & first_mask) == first_wanted;
    if (length <= kFirst) [[likely]]
      return first_stands;
    return first_stands && std::memcmp(found + kFirst, text.data() + kFirst,
                                       (length - kFirst) * sizeof(char16_t)) == 0;
  }

  static constexpr std::size_t kFirst = 4;  // characters that are compared at once

  Form form = Form::kUndefined;
  std::uint8_t begin = 0;
  std::uint8_t size = 0;
  std::uint8_t length = 0;
  std::uint64_t first_mask = 0;  // covers as many of the first characters as there are
  std::array<char16_t, 20> text{};
};

class LinePlan {
 public:
  LinePlan() = default;  // nothing is defined
  explicit LinePlan(const clsCfgConmut& config);

  // Of a kind that a valid slot can have.
  const PlannedItem& operator[](emParamDato kind) const {
    return items_[static_cast<std::size_t>(kind)];
  }
  const PlannedConstant& operator[](emParamDatoConstante kind) const {
    return constants_[static_cast<std::size_t>(kind)];
  }

 private:
  std::array<PlannedItem, DATO::kUpperBound> items_{};
  std::array<PlannedConstant, CTE::kUpperBound> constants_{};
};

// The plan of the configuration in use, compiled anew when its slots have changed.
class CurrentPlan {
 public:
  const LinePlan& Of(const clsCfgConmut& config) {
    if (&config != config_ || config.SlotRevision() != revision_) Compile(config);
    return plan_;
  }

  // Another configuration may come to stand where the present one stood.
  void Forget() { config_ = nullptr; }

 private:
  void Compile(const clsCfgConmut& config);

  LinePlan plan_;
  const clsCfgConmut* config_ = nullptr;
  std::uint64_t revision_ = 0;
};

}  // namespace conmuta
