// Layouts of anything that a configuration can hold, whether it makes sense or not.
#pragma once

#include <algorithm>
#include <vector>

#include "layouts/layout.h"
#include "platform/code_page.h"
#include "platform/platform.h"
#include "support/random.h"

namespace conmuta::test {

// Any characters that a file can keep, NULs and controls among them.
inline Text RandomText(Random& random, int most) {
  Text text;
  for (int left = random.Between(0, most); left > 0; --left) {
    text += random.Percent(70) ? static_cast<char16_t>(random.Between(0x20, 0x7E))
                               : CharacterOfCode(SystemPlatform().code_page,
                                                 static_cast<unsigned char>(random.Below(256)));
  }
  return text;
}

// Of a text that says something.
inline Text RandomWord(Random& random, int most) {
  return u"x" + RandomText(random, most - 1);
}

template <class Slot>
std::vector<typename Slot::Kind> RandomKinds(Random& random) {
  std::vector<typename Slot::Kind> kinds;
  for (int code = Slot::kLowerBound + 1; code < Slot::kUpperBound; ++code) {
    if (random.Percent(40)) kinds.push_back(static_cast<typename Slot::Kind>(code));
  }
  for (std::size_t i = kinds.size(); i > 1; --i) {
    std::swap(kinds[i - 1], kinds[static_cast<std::size_t>(random.Below(static_cast<int>(i)))]);
  }
  return kinds;
}

inline std::uint8_t RandomByte(Random& random, int first) {
  return static_cast<std::uint8_t>(random.Percent(70) ? random.Between(1, 40)
                                                      : random.Between(first, 255));
}

inline layouts::Layout RandomLayout(Random& random) {
  layouts::Layout layout;
  ConfigHeader& header = layout.header;
  header.Marca.Assign(RandomWord(random, 50));
  header.Modelo.Assign(RandomWord(random, 50));
  header.Comentarios.Assign(RandomText(random, 250));
  header.Separador.Assign(random.Percent(50) ? Text(u"\r\n") : RandomWord(random, 10));
  header.Caso = static_cast<emCasos>(
      random.Percent(70) ? random.Between(1, 5)
                         : random.OneOf(std::vector<int>{-1, 6, 9, INT32_MAX, INT32_MIN}));
  for (int pair = emPuertoSerialDB9DB9; pair <= emPuertoSerialDB25DB25; ++pair) {
    for (WiringMask& mask : header.Cables.Table(static_cast<emPuertoSerial>(pair))) {
      if (random.Percent(30)) mask = 1 << random.Below(25);
      if (random.Percent(5)) mask = random.Below(INT32_MAX) - (1 << 30);
    }
  }
  for (const emParamDato kind : RandomKinds<DATO>(random)) {
    const int type = random.Percent(80)
                         ? random.Between(1, 3)
                         : random.OneOf(std::vector<int>{7, -1, INT32_MAX, INT32_MIN});
    layout.items.push_back(
        {kind, static_cast<emTipoDato>(type), RandomByte(random, 1), RandomByte(random, 1)});
  }
  for (const emParamDatoConstante kind : RandomKinds<CTE>(random)) {
    CTE constant;
    constant.Param = kind;
    constant.TipoDato = emValorConstante;
    constant.Pos = RandomByte(random, 1);
    constant.Constante.Assign(RandomWord(random, 20));
    constant.Tam = random.Percent(70) ? static_cast<std::uint8_t>(constant.Constante.Length())
                                      : RandomByte(random, 0);
    layout.constants.push_back(constant);
  }
  return layout;
}

}  // namespace conmuta::test
