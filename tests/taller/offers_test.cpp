#include "taller/offers.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace conmuta::taller {
namespace {

const std::vector<Text> kLines = {
    u"01/14/19 09:07AM 1204  03 18005550123                    00:12'40 98765",
    u"01/14/19 09:15AM 1210  01 <I>5550177                0'12 00:00'20 431211",
    u"01/15/19 10:21AM 1201  02 5550199                        00:58'02",
    u"02/28/19 23:59PM 1233  11 <I>5550188                0'40 01:10'59"};

std::vector<Offer> Offers(int pos, int size, std::size_t line = 1) {
  return OffersFor({line + 1, pos, size}, kLines[line], kLines, Document().layout());
}

TextView First(int pos, int size, std::size_t line = 1) {
  return NameOf(Offers(pos, size, line)[0].kind);
}

TEST(Offers, WhatColumnsLookLikeIsOfferedFirst) {
  EXPECT_EQ(First(1, 2), u"FechaMes");
  EXPECT_EQ(First(4, 2), u"FechaDia");
  EXPECT_EQ(First(7, 2), u"FechaAnio");
  EXPECT_EQ(First(10, 2), u"FechaHoras");
  EXPECT_EQ(First(13, 2), u"FechaMinutos");
  EXPECT_EQ(First(15, 2), u"IdentificadorHorarioMatutinoFecha");
  EXPECT_EQ(First(58, 2), u"DuracionHoras");
  EXPECT_EQ(First(61, 2), u"DuracionMinutos");
  EXPECT_EQ(First(64, 2), u"DuracionSegundos");
  EXPECT_EQ(First(27, 3), u"IdentEntrante");
  EXPECT_EQ(First(30, 9).substr(0, 8), u"Telefono");
  EXPECT_EQ(First(18, 4).substr(0, 9), u"Extension");
}

TEST(Offers, AllItemsAndConstantsAreThereOnce) {
  auto offers = Offers(1, 2);
  EXPECT_EQ(offers.size(), 52u + 22u);
  std::sort(offers.begin(), offers.end(),
            [](const Offer& a, const Offer& b) { return NameOf(a.kind) < NameOf(b.kind); });
  EXPECT_EQ(std::adjacent_find(offers.begin(), offers.end(),
                               [](const Offer& a, const Offer& b) { return a.kind == b.kind; }),
            offers.end());
}

TEST(Offers, WhatTheLayoutHasComesBehindWhatItLacks) {
  Document document;
  ASSERT_EQ(Choose(document, emDatoCteIdentEntrante, {2, 27, 3}, kLines[1]), Messages());
  const auto offers = OffersFor({2, 27, 3}, kLines[1], kLines, document.layout());
  EXPECT_EQ(NameOf(offers[0].kind), u"IdentSaliente");
}

TEST(Offers, AreFilteredByTheWordsOfNameAndGroup) {
  const auto duration = Matching(Offers(58, 2), u"duracion HORAS");
  ASSERT_EQ(duration.size(), 1u);
  EXPECT_EQ(NameOf(duration[0].kind), u"DuracionHoras");
  EXPECT_EQ(Matching(Offers(58, 2), u"").size(), 74u);
  EXPECT_TRUE(Matching(Offers(58, 2), u"zzz").empty());
}

TEST(Offers, AConstantTakesTheMarkedTextInOneStep) {
  Document document;
  const std::string before = document.toml();
  ASSERT_EQ(Choose(document, emDatoCteIdentEntrante, {2, 27, 3}, kLines[1]), Messages());
  ASSERT_EQ(document.layout().constants.size(), 1u);
  EXPECT_EQ(document.layout().constants[0].Constante.Read(), u"<I>");
  EXPECT_EQ(document.layout().constants[0].Pos, 27);
  document.Undo();
  EXPECT_EQ(document.toml(), before);
}

TEST(Offers, AConstantOfMoreThanTwentyCharactersIsSaidAndNotCut) {
  Document document;
  const Messages said = Choose(document, emDatoCteIdentEntrante, {2, 1, 21}, kLines[1]);
  ASSERT_EQ(said.size(), 1u);
  EXPECT_EQ(said[0].item, u"IdentEntrante");
  EXPECT_FALSE(document.IsModified());
  EXPECT_FALSE(Choose(document, emDatoCteIdentEntrante, {2, 200, 3}, kLines[1]).empty())
      << "nothing is there";
}

}  // namespace
}  // namespace conmuta::taller
