#include "layouts/edit_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "support/random_layout.h"
#include "support/source_files.h"

namespace conmuta::layouts {
namespace {

std::string Edited(const std::string& toml, const LayoutChange& change) {
  auto edit = EditLayout(toml, change);
  for (const Mistake& mistake : edit.mistakes) {
    ADD_FAILURE() << testing::PrintToString(Sentence(mistake)) << "\n" << toml;
  }
  return edit.toml.value_or("");
}

Text Refusal(const std::string& toml, const LayoutChange& change) {
  const auto edit = EditLayout(toml, change);
  EXPECT_FALSE(edit.toml);
  return edit.mistakes.empty() ? Text() : Sentence(edit.mistakes[0]);
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
    lines.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return lines;
}

// How many lines of `after` are others than in `before`, which has as many.
int LinesChanged(const std::string& before, const std::string& after) {
  const auto a = Lines(before);
  const auto b = Lines(after);
  if (a.size() != b.size()) return -1;
  int changed = 0;
  for (std::size_t i = 0; i < a.size(); ++i) changed += a[i] != b[i];
  return changed;
}

DATO Item(emParamDato kind, int pos, int size, emTipoDato type = emValorNumerico) {
  return {kind, type, static_cast<std::uint8_t>(pos), static_cast<std::uint8_t>(size)};
}
CTE Constant(emParamDatoConstante kind, int pos, TextView text) {
  CTE constant;
  constant.Param = kind;
  constant.TipoDato = emValorConstante;
  constant.Pos = static_cast<std::uint8_t>(pos);
  constant.Constante.Assign(text);
  constant.Tam = static_cast<std::uint8_t>(constant.Constante.Length());
  return constant;
}

const std::string kHeader =
    "# de mano\r\n"
    "marca = 'ACME'   # la marca\r\n"
    "modelo = \"X1\"\r\n"
    "comentarios = \"\"\r\n"
    "separador = \"\\r\\n\"\r\n"
    "caso = \"Estandar\"\r\n";

const std::string kDrawn = kHeader +
                           "[dibujo.entrante]\r\n"
                           "linea   = \"01/14/19 09:15AM 1210\"   # una\r\n"
                           "mascara = \"MM DD           EEEE\"\r\n"
                           "M = \"FechaMes\"\r\n"
                           "D = \"FechaDia\"  # el día\r\n"
                           "E = [\"ExtensionEntrante\", \"ExtensionSaliente\"]\r\n";

std::string Swapped(std::string text, const std::string& old, const std::string& by) {
  const std::size_t at = text.find(old);
  EXPECT_NE(at, text.npos) << old;
  return text.replace(at, old.size(), by);
}

// Every switch.

class EditedSwitch : public testing::TestWithParam<std::filesystem::path> {
 protected:
  // Changes one thing and changes it back. What is drawn may have to be counted from then on.
  template <class Set, class Slot>
  void ThereAndBack(const Slot& old, const Slot& other, bool is_drawn) {
    SCOPED_TRACE(old.Param);
    const std::string changed = Edited(toml_, Set{other});
    if (is_drawn) return;
    EXPECT_EQ(LinesChanged(toml_, changed), 1) << changed;
    EXPECT_EQ(Edited(changed, Set{old}), toml_);
  }

  std::string toml_ = test::ReadWhole(GetParam() / "layout.toml");
  Layout layout_ = ReadLayout(toml_).layout.value_or(Layout());

  template <class Kinds, class Kind>
  static bool IsAmong(const Kinds& kinds, Kind kind) {
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
  }
  bool IsDrawn(emParamDato kind) const {
    return std::any_of(layout_.drawings.begin(), layout_.drawings.end(), [&](const auto& drawing) {
      return std::any_of(drawing.letters.begin(), drawing.letters.end(),
                         [&](const auto& letter) { return IsAmong(letter.items, kind); });
    });
  }
  bool IsDrawn(emParamDatoConstante kind) const {
    return std::any_of(layout_.drawings.begin(), layout_.drawings.end(), [&](const auto& drawing) {
      return std::any_of(drawing.letters.begin(), drawing.letters.end(),
                         [&](const auto& letter) { return IsAmong(letter.constants, kind); });
    });
  }
};

TEST_P(EditedSwitch, ChangingAnItemChangesItsLineAndChangingItBackEverything) {
  for (const DATO& item : layout_.items) {
    DATO other = item;
    other.Pos = static_cast<std::uint8_t>(item.Pos + 100);
    other.Tam = static_cast<std::uint8_t>(item.Tam + 1);
    other.TipoDato = item.TipoDato == emValorCadena ? emValorNumerico : emValorCadena;
    ThereAndBack<SetItem>(item, other, IsDrawn(item.Param));
  }
}

TEST_P(EditedSwitch, ChangingAConstantChangesItsLineAndChangingItBackEverything) {
  for (const CTE& constant : layout_.constants) {
    const CTE other = Constant(constant.Param, constant.Pos + 100, u"\"ñ'\\");
    ThereAndBack<SetConstant>(constant, other, IsDrawn(constant.Param));
  }
}

TEST_P(EditedSwitch, ChangingTheHeaderChangesItsLine) {
  const ConfigHeader& header = layout_.header;
  const std::pair<SetText::Key, Text> keys[] = {
      {SetText::Key::kBrand, header.Marca.Read()},
      {SetText::Key::kModel, header.Modelo.Read()},
      {SetText::Key::kComments, header.Comentarios.Read()},
      {SetText::Key::kSeparator, header.Separador.Read()}};
  for (const auto& [key, old] : keys) {
    const std::string changed = Edited(toml_, SetText{key, u"\"otro\"\n"});
    EXPECT_EQ(LinesChanged(toml_, changed), 1);
    EXPECT_EQ(Edited(changed, SetText{key, old}), toml_);
  }
  const std::string changed = Edited(toml_, SetCase{static_cast<emCasos>(9)});
  EXPECT_EQ(LinesChanged(toml_, changed), 1);
  EXPECT_EQ(Edited(changed, SetCase{header.Caso}), toml_);
}

TEST_P(EditedSwitch, ChangingAWireChangesItsLine) {
  for (int code = emPuertoSerialDB9DB9; code <= emPuertoSerialDB25DB25; ++code) {
    const auto pair = static_cast<emPuertoSerial>(code);
    for (int pin = 1; pin <= LeftPins(pair); ++pin) {
      const WiringMask old = layout_.header.Cables.Table(pair)[static_cast<std::size_t>(pin)];
      if (old == 0) continue;
      const std::string changed = Edited(toml_, SetWires{pair, pin, PinMask(1) | PinMask(9)});
      EXPECT_EQ(LinesChanged(toml_, changed), 1);
      EXPECT_EQ(Edited(changed, SetWires{pair, pin, old}), toml_);
      EXPECT_EQ(Lines(Edited(toml_, SetWires{pair, pin, 0})).size(), Lines(toml_).size() - 1);
    }
  }
}

TEST_P(EditedSwitch, EverythingCanBeRemoved) {
  std::string left = toml_;
  for (const DATO& item : layout_.items) left = Edited(left, RemoveItem{item.Param});
  for (const CTE& constant : layout_.constants) {
    left = Edited(left, RemoveConstant{constant.Param});
  }
  EXPECT_LT(left.size(), toml_.size());
}

INSTANTIATE_TEST_SUITE_P(, EditedSwitch,
                         testing::ValuesIn(test::Entries(CONMUTA_SOURCES "/switches")),
                         [](const auto& info) {
                           std::string name = info.param.filename().string();
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

// Single cases.

TEST(EditLayout, WhatIsSoAlreadyChangesNothing) {
  EXPECT_EQ(Edited(kDrawn, SetItem{Item(emParamExtensionEntrante, 17, 4)}), kDrawn);
  EXPECT_EQ(Edited(kDrawn, RemoveItem{emParamFechaAnio}), kDrawn);
  EXPECT_EQ(Edited(kDrawn, RemoveConstant{emDatoCteIdentEntrante}), kDrawn);
  EXPECT_EQ(Edited(kDrawn, SetWires{emPuertoSerialDB9DB9, 1, 0}), kDrawn);
}

TEST(EditLayout, ANewItemComesToTheEndOfItsTable) {
  const std::string table =
      "\r\n[datos]\r\n  FechaMes = { pos = 1, tam = 2 }  # mes\r\n\r\n# otra "
      "cosa\r\n[constantes]\r\n";
  EXPECT_EQ(Edited(kHeader + table, SetItem{Item(emParamFechaDia, 4, 2, emValorCadena)}),
            kHeader +
                "\r\n[datos]\r\n  FechaMes = { pos = 1, tam = 2 }  # mes\r\n"
                "  FechaDia = { pos = 4, tam = 2, tipo = \"cadena\" }\r\n\r\n# otra "
                "cosa\r\n[constantes]\r\n");
  EXPECT_EQ(Edited(kHeader + table, SetConstant{Constant(emDatoCteIdentEntrante, 4, u"<I>")}),
            kHeader + table + "IdentEntrante = { pos = 4, texto = \"<I>\" }\r\n");
}

TEST(EditLayout, ATableThatIsNotThereIsMade) {
  EXPECT_EQ(Edited(kHeader, SetItem{Item(emParamFechaDia, 4, 2)}),
            kHeader + "\r\n[datos]\r\nFechaDia = { pos = 4, tam = 2 }\r\n");
  EXPECT_EQ(Edited(kHeader, SetWires{emPuertoSerialDB25DB9, 4, PinMask(1) | PinMask(6)}),
            kHeader + "\r\n[cable.DB25-DB9]\r\n4 = [1, 6]\r\n");
}

TEST(EditLayout, ATextWithoutALastLineEndStaysSo) {
  const std::string open = kHeader + "[datos]\r\nFechaMes = { pos = 1, tam = 2 }";
  const std::string longer = Edited(open, SetItem{Item(emParamFechaDia, 4, 2)});
  EXPECT_EQ(longer, open + "\r\nFechaDia = { pos = 4, tam = 2 }");
  EXPECT_EQ(Edited(longer, RemoveItem{emParamFechaDia}), open);
  EXPECT_EQ(Edited(open, SetConstant{Constant(emDatoCteIdentEntrante, 4, u"I")}),
            open + "\r\n\r\n[constantes]\r\nIdentEntrante = { pos = 4, texto = \"I\" }");
}

TEST(EditLayout, AByteOrderMarkStays) {
  const std::string marked =
      "\xEF\xBB\xBFmarca = \"A\"\nmodelo = \"B\"\ncomentarios = \"\"\n"
      "separador = \"\\n\"\ncaso = 1\n";
  EXPECT_EQ(Edited(marked, SetText{SetText::Key::kBrand, u"ñ"}),
            "\xEF\xBB\xBFmarca = \"ñ\"\nmodelo = \"B\"\ncomentarios = \"\"\n"
            "separador = \"\\n\"\ncaso = 1\n");
}

TEST(EditLayout, QuotesStayAsTheyWere) {
  EXPECT_EQ(Edited(kHeader, SetText{SetText::Key::kBrand, u"Otra \"marca\""}).substr(11, 25),
            "marca = 'Otra \"marca\"'   ");
  EXPECT_EQ(Edited(kHeader, SetText{SetText::Key::kBrand, u"d'Or"}).substr(11, 18),
            "marca = \"d'Or\"   #");
}

TEST(EditLayout, WhatIsDrawnMovesInItsMask) {
  const std::string moved = Edited(kDrawn, SetItem{Item(emParamFechaDia, 7, 3)});
  EXPECT_EQ(moved, Swapped(kDrawn, "MM DD           EEEE", "MM    DDD       EEEE"));
  EXPECT_EQ(Edited(moved, SetItem{Item(emParamFechaDia, 4, 2)}), kDrawn);
}

TEST(EditLayout, TheMaskGrowsAndShrinksWithWhatIsLastInIt) {
  const std::string alone = Swapped(kDrawn, "MM DD           EEEE", "MMEEEE DD");
  const std::string moved = Edited(alone, SetItem{Item(emParamFechaDia, 20, 2)});
  EXPECT_EQ(moved, Swapped(kDrawn, "MM DD           EEEE", "MMEEEE             DD"));
  EXPECT_EQ(Edited(moved, SetItem{Item(emParamFechaDia, 8, 2)}), alone);
}

TEST(EditLayout, TheTypeOfWhatIsDrawnStandsBesideItsName) {
  const std::string text = Edited(kDrawn, SetItem{Item(emParamFechaDia, 4, 2, emValorCadena)});
  EXPECT_EQ(text, Swapped(kDrawn, "\"FechaDia\"", "{ nombre = \"FechaDia\", tipo = \"cadena\" }"));
  EXPECT_EQ(Edited(text, SetItem{Item(emParamFechaDia, 4, 2)}), kDrawn);
}

TEST(EditLayout, WhatCannotBeDrawnIsCounted) {
  const std::string counted = "\r\n[datos]\r\n";
  // Taken columns; behind the line.
  const std::string undrawn =
      Swapped(Swapped(kDrawn, "MM DD   ", "MM      "), "D = \"FechaDia\"  # el día\r\n", "");
  EXPECT_EQ(Edited(kDrawn, SetItem{Item(emParamFechaDia, 2, 2)}),
            undrawn + counted + "FechaDia = { pos = 2, tam = 2 }\r\n");
  EXPECT_EQ(Edited(kDrawn, SetItem{Item(emParamFechaDia, 21, 2)}),
            undrawn + counted + "FechaDia = { pos = 21, tam = 2 }\r\n");
  // A letter with another name.
  EXPECT_EQ(Edited(kDrawn, SetItem{Item(emParamExtensionEntrante, 18, 4)}),
            Swapped(kDrawn, "\"ExtensionEntrante\", ", "") + counted +
                "ExtensionEntrante = { pos = 18, tam = 4 }\r\n");
}

TEST(EditLayout, ADrawnConstantMovesToWhereTheLineHasItsText) {
  const std::string drawn =
      Swapped(Swapped(kDrawn, "MM DD   ", "MMCDD   "), "M = ", "C = \"IdentEntrante\"\r\nM = ");
  EXPECT_EQ(Edited(drawn, SetConstant{Constant(emDatoCteIdentEntrante, 6, u"/")}),
            Swapped(drawn, "MMCDD   ", "MM DDC  "));
  EXPECT_EQ(Edited(drawn, SetConstant{Constant(emDatoCteIdentEntrante, 7, u"/")}),
            Swapped(Swapped(drawn, "MMCDD   ", "MM DD   "), "C = \"IdentEntrante\"\r\n", "") +
                "\r\n[constantes]\r\nIdentEntrante = { pos = 7, texto = \"/\" }\r\n");
}

TEST(EditLayout, RemovingTheLastNameOfALetterRemovesItsLine) {
  const std::string one = Edited(kDrawn, RemoveItem{emParamExtensionSaliente});
  EXPECT_EQ(one, Swapped(kDrawn, ", \"ExtensionSaliente\"", ""));
  EXPECT_EQ(Edited(one, RemoveItem{emParamExtensionEntrante}),
            Swapped(Swapped(one, "MM DD           EEEE", "MM DD"),
                    "E = [\"ExtensionEntrante\"]\r\n", ""));
}

TEST(EditLayout, TablesOfAnyNotationAreChangedOrNotAtAll) {
  const std::string notations[] = {
      "datos = { FechaMes = { pos = 1, tam = 2 } }\r\n",
      "datos.FechaMes.pos = 1\r\ndatos.FechaMes.tam = 2\r\n",
      "[datos.FechaMes]\r\npos = 1\r\ntam = 2\r\n",
      "[datos]\r\nFechaMes.pos = 1\r\nFechaMes.tam = 2\r\n",
      "[datos]\r\n[datos.FechaMes]\r\npos = 1\r\ntam = 2\r\n",
  };
  const LayoutChange changes[] = {
      SetItem{Item(emParamFechaMes, 3, 4)}, SetItem{Item(emParamFechaMes, 1, 2, emValorCadena)},
      SetItem{Item(emParamFechaDia, 3, 4)}, RemoveItem{emParamFechaMes}};
  int done = 0;
  for (const std::string& notation : notations) {
    for (const LayoutChange& change : changes) {
      const auto edit = EditLayout(kHeader + notation, change);
      if (edit.toml) {
        ++done;
      } else {
        EXPECT_EQ(edit.mistakes[0].kind, MistakeKind::kCannotChange) << notation;
      }
    }
  }
  EXPECT_EQ(done, 17);
}

TEST(EditLayout, WhatAReaderWouldRefuseIsRefused) {
  EXPECT_EQ(
      Refusal(kHeader, SetItem{Item(emParamFechaDia, 254, 2)}),
      u"layout.toml:9: FechaDia: las columnas 254 a 255 pasan de la 254 (más allá, cada línea "
      u"da el error 6)");
  EXPECT_EQ(Refusal(kHeader, SetText{SetText::Key::kBrand, u""}),
            u"layout.toml:2: marca: está vacío");
  EXPECT_EQ(Refusal(kHeader, SetText{SetText::Key::kModel, Text(51, u'x')}),
            u"layout.toml:3: modelo: tiene 51 caracteres (hasta 50)");
  EXPECT_EQ(Refusal(kHeader, SetConstant{Constant(emDatoCteIdentEntrante, 1, u"λ")}),
            u"layout.toml:9: IdentEntrante: «λ» no existe en Windows-1252");
  EXPECT_EQ(Refusal("marca = 1", SetCase{emCasoEstandar}), u"layout.toml:1: modelo: falta");
}

TEST(EditLayout, ThereIsNoSuchThingToChange) {
  const Text refusal = u"layout.toml:1: no hay tal dato, constante o pata";
  EXPECT_EQ(Refusal(kHeader, SetItem{Item(emUltimoParamDato, 1, 1)}), refusal);
  EXPECT_EQ(Refusal(kHeader, SetItem{Item(emParamFechaDia, 0, 1)}), refusal);
  EXPECT_EQ(Refusal(kHeader, SetConstant{Constant(emPrimerParamDatoConstante, 1, u"x")}), refusal);
  EXPECT_EQ(Refusal(kHeader, SetWires{emNoPuerto, 1, 1}), refusal);
  EXPECT_EQ(Refusal(kHeader, SetWires{emPuertoSerialDB9DB9, 10, 1}), refusal);
  EXPECT_EQ(Refusal(kHeader, SetWires{emPuertoSerialDB9DB9, 0, 1}), refusal);
}

TEST(EditLayout, WiresOfAPinThatIsANumberStayOne) {
  const std::string cable = kHeader + "[cable.DB9-DB9]\r\nmascaras = { 0 = 7, 3 = -1 }\r\n";
  EXPECT_EQ(Edited(cable, SetWires{emPuertoSerialDB9DB9, 3, PinMask(2)}),
            kHeader + "[cable.DB9-DB9]\r\nmascaras = { 0 = 7, 3 = 2 }\r\n");
}

// Whatever is written, any change gives exactly what was to be said: EditLayout checks it.
TEST(EditLayout, RandomLayoutsTakeRandomChanges) {
  test::Random random(7);
  for (int round = 0; round < 30; ++round) {
    std::string toml = WriteLayout(test::RandomLayout(random));
    for (int step = 0; step < 5; ++step) {
      const auto item = static_cast<emParamDato>(random.Between(2, 53));
      const auto constant = static_cast<emParamDatoConstante>(random.Between(2, 23));
      toml = Edited(toml, SetItem{Item(item, random.Between(1, 100), random.Between(1, 100),
                                       static_cast<emTipoDato>(random.Between(1, 4)))});
      toml = Edited(toml, RemoveItem{static_cast<emParamDato>(random.Between(2, 53))});
      toml = Edited(toml, RemoveConstant{constant});
      toml = Edited(toml, SetConstant{Constant(constant, random.Between(1, 100),
                                               random.String(u" aZ\"'\\ñ€", 5))});
      toml = Edited(toml, SetText{SetText::Key::kComments, test::RandomText(random, 250)});
      const auto pair = static_cast<emPuertoSerial>(random.Between(1, 4));
      toml = Edited(toml, SetWires{pair, random.Between(1, LeftPins(pair)), random.Below(512)});
    }
  }
}

}  // namespace
}  // namespace conmuta::layouts
