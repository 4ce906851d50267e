// The parts of the catalogue's page that are worked out, not written.
#include "layouts/proof/page.h"

#include <gtest/gtest.h>

#include "layouts/catalogue.h"
#include "layouts/proof/identifiers.h"
#include "layouts/proof/sample_lines.h"

namespace conmuta::layouts {
namespace {

Layout WithItems(std::initializer_list<emParamDato> kinds) {
  Layout layout;
  for (const emParamDato kind : kinds) layout.items.push_back({kind, emValorNumerico, 1, 2});
  return layout;
}

TEST(Identifiers, WhatHasNoColumnsForItsPartiesIsATrap) {
  const Layout layout =
      WithItems({emParamTroncalSaliente, emParamExtensionSaliente, emParamTroncalEntrante});
  EXPECT_FALSE(IsTrap(emDatoCteIdentSaliente, layout));
  EXPECT_FALSE(IsTrap(emDatoCteIdentSalienteAND, layout));
  EXPECT_TRUE(IsTrap(emDatoCteIdentSalienteFinTransferida, layout));
  EXPECT_TRUE(IsTrap(emDatoCteIdentEntranteOR, layout));  // one party is not enough
  EXPECT_TRUE(IsTrap(emDatoCteIdentInterTroncal, layout));
  EXPECT_FALSE(IsTrap(emDatoCteIdentificadorHorarioMatutinoFecha, layout));
}

TEST(Identifiers, TransferColumnsMakeAMarkOfIt) {
  const Layout layout =
      WithItems({emParamTroncalSalienteFinTransferida, emParamExtensionSalienteFinTransferida});
  EXPECT_FALSE(IsTrap(emDatoCteIdentSalienteFinTransferida, layout));
  EXPECT_TRUE(IsTrap(emDatoCteIdentSalienteInicioTransferida, layout));
}

TEST(Identifiers, PurposesAreNamed) {
  EXPECT_EQ(Purpose(emDatoCteIdentEntrante), u"entrante");
  EXPECT_EQ(Purpose(emDatoCteIdentSalienteAND), u"saliente, y además");
  EXPECT_EQ(Purpose(emDatoCteIdentInterExtensionOR), u"o bien interna");
  EXPECT_EQ(Purpose(emDatoCteIdentInterTroncalInicioTransferida),
            u"inicio de transferencia, entre troncales");
  EXPECT_EQ(Purpose(emDatoCteIdentEntranteFinTransferida), u"fin de transferencia, entrante");
  EXPECT_EQ(Purpose(emDatoCteIdentificadorHorarioMatutinoFecha),
            u"mañana, en un reloj de 12 horas");
}

TEST(SampleLines, OneForEachTypeWithTheBlockThatItEnds) {
  Family family;
  const auto add = [&](TextView line, NoCall reason, emTiposLlamadas type) {
    family.capture.lines.push_back({0, Text(line)});
    Outcome& outcome = family.expected.emplace_back();
    outcome.reason = reason;
    if (type != emLlamadaIndefinida) outcome.call.emplace().type = type;
  };
  add(u"title", NoCall::kNoDigits, emLlamadaIndefinida);
  add(u"begins", NoCall::kBlockBegins, emLlamadaIndefinida);
  add(u"goes on", NoCall::kPartOfBlock, emLlamadaIndefinida);
  add(u"out  ", NoCall::kNone, emLlamadaSaliente);
  add(u"out again", NoCall::kNone, emLlamadaSaliente);
  add(u"in", NoCall::kNone, emLlamadaEntrante);
  EXPECT_EQ(SampleLines(family), (std::vector<Text>{u"begins", u"goes on", u"out", u"in"}));
}

TEST(SampleLines, RulerCountsColumnsFromOne) {
  EXPECT_EQ(Ruler(12), u"         1\n123456789012\n");
}

TEST(CataloguePage, SignsOfATextAreNoMarkup) {
  Family family;
  family.name = "acme-x1";
  family.layout.sheet.covers = u"KX_1 <I> **/**";
  family.layout.sheet.sources = {u"https://x.test/a_b line|2"};
  const std::string page = CataloguePage({family}, {DamageReport()});
  EXPECT_NE(page.find("Cubre KX\\_1 \\<I\\> \\*\\*/\\*\\*."), std::string::npos) << page;
  EXPECT_NE(page.find("<https://x.test/a_b> line\\|2."), std::string::npos) << page;
}

}  // namespace
}  // namespace conmuta::layouts
