// Changing one thing in a layout.toml that a person wrote, and nothing else of it: comments, order,
// blanks and line ends stay.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "layouts/layout.h"
#include "layouts/mistake.h"

namespace conmuta::layouts {

// A place that is counted is changed where it stands. One that is drawn is moved in its mask; where
// that cannot be (it shares its letter, its new columns are taken or behind the line, or the line
// has another text there) its letter loses it, and it is counted from then on. A new one comes to
// the end of its table.
struct SetItem {
  DATO item;
};
struct SetConstant {
  CTE constant;
};

// Nothing happens to what is not there.
struct RemoveItem {
  emParamDato kind;
};
struct RemoveConstant {
  emParamDatoConstante kind;
};

struct SetText {
  enum class Key : std::uint8_t { kBrand, kModel, kComments, kSeparator };
  Key key;
  Text text;
};
struct SetCase {
  emCasos code;
};

// The pins of the switch that a pin of the computer is wired to; 0 cuts all wires.
struct SetWires {
  emPuertoSerial pair;
  int pin;
  WiringMask pins;
};

using LayoutChange =
    std::variant<SetItem, SetConstant, RemoveItem, RemoveConstant, SetText, SetCase, SetWires>;

struct LayoutEdit {
  std::optional<std::string> toml;  // when there is no mistake
  std::vector<Mistake> mistakes;    // of the text, or of what the change would make of it
};

// What a reader would refuse is refused here, too. Never gives a text that says anything but what
// was to be said: where tables are written in a way that one change cannot be made in, there is a
// mistake of kind kCannotChange.
LayoutEdit EditLayout(std::string_view toml, const LayoutChange& change,
                      TextView file = u"layout.toml");

}  // namespace conmuta::layouts
