#include "taller/layout_outline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "taller/captures.h"
#include "taller/changes.h"
#include "taller/map_disk.h"

namespace conmuta::taller {
namespace {

using Typed = LayoutOutline::Field;

OutlineRow Row(const LayoutOutline& outline, const SlotKind& kind) {
  for (const OutlineGroup& group : outline.Groups()) {
    for (const OutlineRow& row : group.rows) {
      if (row.kind == kind) return row;
    }
  }
  return {};
}

TEST(SlotWords, EveryItemAndConstantIsInOneGroupUnderANameOfItsOwn) {
  std::set<SlotKind> kinds;
  for (std::size_t i = 0; i < kSlotGroups; ++i) {
    std::set<Text> names;
    const auto group = static_cast<SlotGroup>(i);
    EXPECT_FALSE(TitleOf(group).empty());
    for (const SlotKind& kind : KindsOf(group)) {
      EXPECT_TRUE(kinds.insert(kind).second);
      const Text name = ShortNameOf(kind);
      // "y" and "o" belong to what they follow.
      EXPECT_TRUE(names.insert(name).second || name.size() == 1);
    }
  }
  EXPECT_EQ(kinds.size(), 52u + 22u);
}

TEST(SlotWords, NamesAreThoseThatATechnicianUses) {
  EXPECT_EQ(ShortNameOf(emParamFechaMes), u"Mes");
  EXPECT_EQ(ShortNameOf(emDatoCteIdentificadorHorarioMatutinoFecha), u"Mañana");
  EXPECT_EQ(ShortNameOf(emParamExtension2InterExtension), u"Entre extensiones 2");
  EXPECT_EQ(ShortNameOf(emParamTroncalEntrante), u"Entrante");
  EXPECT_EQ(ShortNameOf(emDatoCteIdentEntranteOR), u"o");
  EXPECT_EQ(ShortNameOf(emParamTelefonoSalienteFinTransferida), u"Saliente, fin: teléfono");
  EXPECT_EQ(ShortNameOf(emDatoCteIdentInterTroncalInicioTransferida),
            u"Entre troncales, inicio: identificador");
  const auto transfers = KindsOf(SlotGroup::kTransfers);
  EXPECT_EQ(transfers[0], SlotKind(emDatoCteIdentEntranteInicioTransferida));
  EXPECT_EQ(transfers[1], SlotKind(emParamTelefonoEntranteInicioTransferida));
  EXPECT_EQ(transfers[4], SlotKind(emDatoCteIdentEntranteFinTransferida));
  const auto identifiers = KindsOf(SlotGroup::kIdentifiers);
  EXPECT_EQ(identifiers[1], SlotKind(emDatoCteIdentEntranteAND));
}

TEST(ColumnMarks, ThingsOfTheSameColumnsShareOneMarkAndNeighboursDifferInColour) {
  const auto marks = MarksOf(test::LayoutOf("mitel-standard"));
  ASSERT_GT(marks.size(), 5u);
  for (std::size_t i = 0; i < marks.size(); ++i) {
    EXPECT_EQ(marks[i].color, i);
    EXPECT_LE(marks[i == 0 ? 0 : i - 1].pos, marks[i].pos);
  }
  const auto phone = std::find_if(marks.begin(), marks.end(),
                                  [](const ColumnMark& mark) { return mark.pos == 34; });
  EXPECT_EQ(phone->kinds, (std::vector<SlotKind>{emParamTelefonoEntrante, emParamTelefonoSaliente,
                                                 emParamTelefonoInterExtension}));
  EXPECT_EQ(ColorOf(marks, emParamTelefonoSaliente), phone->color);
  EXPECT_EQ(ColorOf(marks, emParamRingHoras), std::nullopt);
  // The letter in front of a trunk's number is drawn over it.
  const auto trunk = std::find_if(marks.begin(), marks.end(),
                                  [](const ColumnMark& mark) { return mark.pos == 24; });
  EXPECT_GT(trunk->size, (trunk + 1)->size);
}

TEST(LayoutOutline, ShowsWhatTheLayoutHasAndWhatItLacks) {
  Document document;
  LayoutOutline outline(document);
  ASSERT_EQ(document.Apply(test::Item(emParamFechaMes, 4, 2)), Messages());
  ASSERT_EQ(document.Apply(test::Constant(emDatoCteIdentEntrante, 27, u"<I>")), Messages());
  const auto groups = outline.Groups();
  ASSERT_EQ(groups.size(), kSlotGroups);
  EXPECT_TRUE(groups[0].InUse());
  EXPECT_FALSE(groups[1].InUse());
  const OutlineRow month = Row(outline, emParamFechaMes);
  EXPECT_TRUE(month.in_use);
  EXPECT_EQ(month.pos, u"4");
  EXPECT_EQ(month.size, u"2");
  EXPECT_EQ(month.type, u"numerico");
  EXPECT_EQ(month.color, 0u);
  const OutlineRow incoming = Row(outline, emDatoCteIdentEntrante);
  EXPECT_EQ(incoming.text, u"<I>");
  EXPECT_EQ(incoming.size, u"");
  EXPECT_EQ(incoming.color, 1u);
  const OutlineRow day = Row(outline, emParamFechaDia);
  EXPECT_FALSE(day.in_use);
  EXPECT_EQ(day.pos, u"");
  EXPECT_EQ(day.color, std::nullopt);
}

TEST(LayoutOutline, WhatIsTypedGoesIntoTheDocumentAsSoonAsItSaysSomething) {
  Document document;
  const std::string before = document.toml();
  LayoutOutline outline(document);
  EXPECT_FALSE(outline.Type(emParamFechaMes, Typed::kPos, u"1").empty()) << "no size yet";
  EXPECT_FALSE(document.IsModified());
  EXPECT_EQ(Row(outline, emParamFechaMes).pos, u"1");
  EXPECT_EQ(Row(outline, emParamFechaMes).doubt, u"el tamaño: falta");
  EXPECT_EQ(outline.Type(emParamFechaMes, Typed::kSize, u"2"), Messages());
  EXPECT_EQ(outline.Type(emParamFechaMes, Typed::kSize, u"21"), Messages());
  ASSERT_EQ(document.layout().items.size(), 1u);
  EXPECT_EQ(document.layout().items[0].Tam, 21);
  EXPECT_EQ(outline.Type(emParamFechaMes, Typed::kType, u"cadena"), Messages());
  EXPECT_EQ(document.layout().items[0].TipoDato, emValorCadena);
  EXPECT_EQ(outline.Type(emParamFechaMes, Typed::kPos, u"3"), Messages());
  EXPECT_EQ(document.layout().items[0].TipoDato, emValorCadena) << "it keeps its type";
  document.Undo();
  EXPECT_EQ(document.toml(), before) << "typing into one row is one step";
}

TEST(LayoutOutline, ATypeWithoutAWordStaysWhatItIs) {
  Document document;
  layouts::SetItem change = test::Item(emParamFechaMes, 4, 2);
  change.item.TipoDato = static_cast<emTipoDato>(7);
  ASSERT_EQ(document.Apply(change), Messages());
  LayoutOutline outline(document);
  EXPECT_EQ(Row(outline, emParamFechaMes).type, u"7");
  EXPECT_EQ(outline.Type(emParamFechaMes, Typed::kPos, u"5"), Messages());
  EXPECT_EQ(document.layout().items[0].TipoDato, 7);
}

TEST(LayoutOutline, AWrongNumberStaysBesideItsFieldAndTheLayoutAsItWas) {
  Document document;
  ASSERT_EQ(document.Apply(test::Item(emParamFechaMes, 4, 2)), Messages());
  const std::string before = document.toml();
  LayoutOutline outline(document);
  const struct {
    Typed field;
    TextView typed;
    TextView said;
  } rows[] = {{Typed::kPos, u"", u"la posición: falta"},
              {Typed::kPos, u"0", u"la posición va de 1 a 254"},
              {Typed::kPos, u"255", u"la posición va de 1 a 254"},
              {Typed::kPos, u"4x", u"la posición va de 1 a 254"},
              {Typed::kSize, u"99999999999", u"el tamaño va de 1 a 254"},
              {Typed::kType, u"nada", u"no hay tal tipo"}};
  for (const auto& row : rows) {
    EXPECT_FALSE(outline.Type(emParamFechaMes, row.field, row.typed).empty());
    EXPECT_EQ(Row(outline, emParamFechaMes).doubt, row.said);
    EXPECT_EQ(document.toml(), before);
    EXPECT_TRUE(Row(outline, emParamFechaMes).in_use);
    // Right again.
    outline.Type(emParamFechaMes, Typed::kPos, u"4");
    outline.Type(emParamFechaMes, Typed::kSize, u"2");
    EXPECT_EQ(outline.Type(emParamFechaMes, Typed::kType, u"numerico"), Messages());
    EXPECT_EQ(Row(outline, emParamFechaMes).doubt, u"");
  }
  // Columns that no line has: position and size together.
  EXPECT_FALSE(outline.Type(emParamFechaMes, Typed::kPos, u"254").empty());
  EXPECT_NE(Row(outline, emParamFechaMes).doubt.find(u"254 a 255"), Text::npos);
  EXPECT_EQ(document.toml(), before);
}

TEST(LayoutOutline, WhatAConstantCannotBeIsSaidBesideIt) {
  Document document;
  LayoutOutline outline(document);
  EXPECT_FALSE(outline.Type(emDatoCteIdentEntranteAND, Typed::kText, u"x").empty());
  EXPECT_EQ(outline.Type(emDatoCteIdentEntranteAND, Typed::kPos, u"3"), Messages());
  EXPECT_EQ(Row(outline, emDatoCteIdentEntranteAND).doubt, u"no cuenta sin IdentEntrante");
  EXPECT_FALSE(
      outline.Type(emDatoCteIdentEntranteAND, Typed::kText, u"123456789012345678901").empty());
  EXPECT_EQ(Row(outline, emDatoCteIdentEntranteAND).doubt,
            u"el texto tiene 21 caracteres (hasta 20)");
  EXPECT_EQ(Row(outline, emDatoCteIdentEntranteAND).text, u"123456789012345678901");
  EXPECT_EQ(document.layout().constants[0].Constante.Read(), u"x");
  EXPECT_FALSE(outline.Type(emDatoCteIdentEntranteAND, Typed::kText, u"").empty());
  EXPECT_EQ(Row(outline, emDatoCteIdentEntranteAND).doubt, u"el texto: falta");
}

TEST(LayoutOutline, WhatWasTypedIsForgottenWhenTheDocumentChangesOtherwise) {
  Document document;
  ASSERT_EQ(document.Apply(test::Item(emParamFechaMes, 4, 2)), Messages());
  LayoutOutline outline(document);
  EXPECT_FALSE(outline.Type(emParamFechaMes, Typed::kPos, u"999").empty());
  document.Undo();
  EXPECT_EQ(Row(outline, emParamFechaMes).pos, u"");
  document.Redo();
  EXPECT_EQ(Row(outline, emParamFechaMes).pos, u"4");
  EXPECT_EQ(Row(outline, emParamFechaMes).doubt, u"");
}

TEST(LayoutOutline, TypingIntoOneRowLeavesWhatIsWrongInAnother) {
  Document document;
  LayoutOutline outline(document);
  EXPECT_FALSE(outline.Type(emParamFechaDia, Typed::kPos, u"7").empty());
  EXPECT_FALSE(outline.Type(emParamFechaMes, Typed::kPos, u"4").empty());
  EXPECT_EQ(outline.Type(emParamFechaMes, Typed::kSize, u"2"), Messages());
  EXPECT_EQ(Row(outline, emParamFechaDia).pos, u"7");
  EXPECT_EQ(Row(outline, emParamFechaDia).doubt, u"el tamaño: falta");
}

TEST(LayoutOutline, ARowThatIsRemovedIsNotInUse) {
  Document document;
  ASSERT_EQ(document.Apply(test::Item(emParamFechaMes, 4, 2)), Messages());
  ASSERT_EQ(document.Apply(test::Constant(emDatoCteIdentEntrante, 27, u"<I>")), Messages());
  LayoutOutline outline(document);
  EXPECT_EQ(outline.Remove(emParamFechaMes), Messages());
  EXPECT_EQ(outline.Remove(emDatoCteIdentEntrante), Messages());
  EXPECT_FALSE(Row(outline, emParamFechaMes).in_use);
  EXPECT_FALSE(Row(outline, emDatoCteIdentEntrante).in_use);
  document.Undo();
  document.Undo();
  EXPECT_TRUE(Row(outline, emParamFechaMes).in_use);
}

}  // namespace
}  // namespace conmuta::taller
