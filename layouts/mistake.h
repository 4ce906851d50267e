// What is wrong with a file that a technician wrote, in parts that a program can use and in one
// sentence that a person can.
#pragma once

#include <cstdint>
#include <vector>

#include "layouts/place.h"
#include "platform/text.h"

namespace conmuta::layouts {

enum class MistakeKind : std::uint8_t {
  kSyntax,         // not the form of the file at all; nothing behind it was looked at
  kUnknownName,    // a table, key, item or value that does not exist
  kMissing,        // what has to be there
  kWrongType,      // a number where a text belongs, and the like
  kOutOfRange,     // a number or a code beyond what can be stored
  kBeyondLine,     // columns that no line is read to
  kTooLong,        // a text beyond its width
  kEmpty,          // a text that must say something
  kNotInCodePage,  // a character that the configuration cannot keep
  kNeverStands,    // a constant that no line can have
  kGivenTwice,     // what has one place only
  kMaskTooLong,    // a drawing whose mask goes on behind its line
  kUnnamedLetter,  // a letter of a mask that says of nothing what it is
  kUndrawnLetter,  // a letter that its mask does not have
  kBrokenRun,      // a letter that stands in more than one run
  kNotInCapture,   // an expected row for a line that the capture does not have
  kNotExpected,    // a line of the capture without an expected row
  kCannotChange,   // a change that cannot be made where the text stands
};

struct Mistake {
  MistakeKind kind = MistakeKind::kSyntax;
  Text file;
  Place place;
  Text item;     // the name or the path of what is wrong; may be empty
  Text what;     // what is wrong with it, in Spanish
  Text allowed;  // what would be right, in Spanish; may be empty

  bool operator==(const Mistake&) const = default;
};

// "layout.toml:12: FechaMes: la posición 300 pasa de 254 (de 1 a 254)"
Text Sentence(const Mistake& mistake);

// By place; mistakes at the same place stay in their order.
void SortByPlace(std::vector<Mistake>& mistakes);

}  // namespace conmuta::layouts
