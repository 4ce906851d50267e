// Changes of a document as tests make them.
#pragma once

#include "layouts/edit_layout.h"

namespace conmuta::test {

inline layouts::SetItem Item(emParamDato kind, int pos, int size) {
  return {{kind, emValorNumerico, static_cast<std::uint8_t>(pos), static_cast<std::uint8_t>(size)}};
}

inline layouts::SetConstant Constant(emParamDatoConstante kind, int pos, TextView text) {
  CTE constant;
  constant.Param = kind;
  constant.TipoDato = emValorConstante;
  constant.Pos = static_cast<std::uint8_t>(pos);
  constant.Constante.Assign(text);
  constant.Tam = static_cast<std::uint8_t>(constant.Constante.Length());
  return {constant};
}

inline layouts::SetText Model(TextView text) {
  return {layouts::SetText::Key::kModel, Text(text)};
}

}  // namespace conmuta::test
