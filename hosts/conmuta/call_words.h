// What people call a call.
#pragma once

#include <array>
#include <string_view>

#include "translate/enums.h"

namespace conmuta::host {

struct TypeWords {
  emTiposLlamadas type;
  std::string_view one;  // in UTF-8
  std::string_view many;
};

// In the order in which they are told.
inline constexpr std::array<TypeWords, 4> kTypeWords = {{
    {emLlamadaSaliente, "saliente", "salientes"},
    {emLlamadaEntrante, "entrante", "entrantes"},
    {emLlamadaInterExtension, "interna", "internas"},
    {emLlamadaInterTroncal, "entre troncales", "entre troncales"},
}};

}  // namespace conmuta::host
