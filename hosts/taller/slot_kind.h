// An item or a constant of a layout, by its kind.
#pragma once

#include <variant>

#include "layouts/names.h"

namespace conmuta::taller {

using SlotKind = std::variant<emParamDato, emParamDatoConstante>;

inline TextView NameOf(const SlotKind& kind) {
  return std::visit([](auto code) { return layouts::NameOf(code); }, kind);
}

}  // namespace conmuta::taller
