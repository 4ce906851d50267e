// The slot properties: what they read and what each write leaves behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/config_bench.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::ConfigBench;
using testing::ElementsAre;
using testing::IsEmpty;

class ConfigSlots : public testing::Test, protected ConfigBench {
 protected:
  // A valid item of one kind, without its events.
  void Define(emParamDato kind, int pos, int size, emTipoDato type = emValorNumerico) {
    test::DefineItem(config, kind, pos, size, type);
    TakeEvents();
  }
  void Define(emParamDatoConstante kind, int pos, TextView text) {
    test::DefineConstant(config, kind, pos, text);
    TakeEvents();
  }
};

TEST_F(ConfigSlots, ReadingWithoutASlotGivesNothingAndMakesNone) {
  config.DATOActivo(emParamFechaDia);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.TipoDatoDATO(), emNoDefinido);
  EXPECT_EQ(config.DATOPos(), 0);
  EXPECT_EQ(config.DATOTam(), 0);
  EXPECT_FALSE(config.HayCTE());
  EXPECT_EQ(config.TipoDatoCTE(), emNoDefinido);
  EXPECT_EQ(config.CTEPos(), 0);
  EXPECT_EQ(config.CTETam(), 0);
  EXPECT_EQ(config.Constante(), u"");
  EXPECT_EQ(config.FindDATO(emParamFechaDia), nullptr);
  EXPECT_EQ(config.FindCTE(emDatoCteIdentEntrante), nullptr);
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, ChoosingAKindIsNoChange) {
  for (const std::int32_t kind : {std::numeric_limits<std::int32_t>::min(), -1, 0, 2, 53, 54,
                                  std::numeric_limits<std::int32_t>::max()}) {
    config.DATOActivo(static_cast<emParamDato>(kind));
    config.CTEActivo(static_cast<emParamDatoConstante>(kind));
    EXPECT_EQ(config.DATOActivo(), kind);
    EXPECT_EQ(config.CTEActivo(), kind);
  }
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, ItemIsThereOnceItHasPositionAndSize) {
  config.DATOActivo(emParamFechaDia);
  config.DATOPos(5);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.TipoDatoDATO(), emNoDefinido);
  EXPECT_EQ(config.DATOPos(), 5);
  config.DATOTam(2);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  EXPECT_TRUE(config.HayDATO());
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
  EXPECT_TRUE(config.Modificado());
}

TEST_F(ConfigSlots, SizeMayComeFirst) {
  config.DATOActivo(emParamFechaDia);
  config.DATOTam(2);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.DATOTam(), 2);
  config.DATOPos(5);
  EXPECT_TRUE(config.HayDATO());
}

TEST_F(ConfigSlots, PositionAndSizeTurnTheTypeBackIntoNumeric) {
  Define(emParamFechaDia, 5, 2, emValorCadena);
  EXPECT_EQ(config.TipoDatoDATO(), emValorCadena);
  config.DATOPos(6);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
  config.TipoDatoDATO(emValorCadena);
  config.DATOTam(3);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
}

TEST_F(ConfigSlots, EvenAnUnchangedPositionTurnsTheTypeBackWithoutAnEvent) {
  Define(emParamFechaDia, 5, 2, emValorCadena);
  config.DATOPos(5);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
  config.TipoDatoDATO(emValorCadena);
  TakeEvents();
  config.DATOTam(2);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, ZeroPositionOrSizeReleasesTheItem) {
  Define(emParamFechaDia, 5, 2);
  config.DATOPos(0);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.TipoDatoDATO(), emNoDefinido);
  EXPECT_EQ(config.DATOTam(), 2);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  config.DATOPos(7);
  EXPECT_TRUE(config.HayDATO());
  config.DATOTam(0);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 7);
}

TEST_F(ConfigSlots, PositionAndSizeTakeAnyByte) {
  Define(emParamFechaDia, 255, 255);
  EXPECT_EQ(config.DATOPos(), 255);
  EXPECT_EQ(config.DATOTam(), 255);
  EXPECT_TRUE(config.HayDATO());
}

TEST_F(ConfigSlots, UndefinedTypeReleasesTheItem) {
  Define(emParamFechaDia, 5, 2);
  config.TipoDatoDATO(emNoDefinido);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 5);
  EXPECT_EQ(config.DATOTam(), 2);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  config.TipoDatoDATO(emNoDefinido);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, TypeTakesAnyCodeAndRaisesOnlyForAnother) {
  Define(emParamFechaDia, 5, 2);
  for (const std::int32_t code : {2, 3, 9, -1, 1}) {
    config.TipoDatoDATO(static_cast<emTipoDato>(code));
    config.TipoDatoDATO(static_cast<emTipoDato>(code));
    EXPECT_EQ(config.TipoDatoDATO(), code);
    EXPECT_TRUE(config.HayDATO());
    EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  }
}

TEST_F(ConfigSlots, TypeOfAReleasedItemBringsItBack) {
  Define(emParamFechaDia, 5, 2);
  config.TipoDatoDATO(emNoDefinido);
  config.TipoDatoDATO(emValorCadena);
  EXPECT_TRUE(config.HayDATO());
  EXPECT_EQ(config.TipoDatoDATO(), emValorCadena);
}

TEST_F(ConfigSlots, TypeBeforePositionIsReleasedAgain) {
  config.DATOActivo(emParamFechaDia);
  config.TipoDatoDATO(emValorCadena);
  EXPECT_EQ(config.TipoDatoDATO(), emNoDefinido);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  EXPECT_TRUE(config.Modificado());
}

TEST_F(ConfigSlots, NumericTypeMakesASlotAndStopsThere) {
  config.DATOActivo(emParamFechaDia);
  config.TipoDatoDATO(emValorNumerico);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
  config.DATOActivo(emParamFechaMes);  // does not take that slot over
  config.DATOPos(5);
  config.DATOActivo(emParamFechaDia);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
}

TEST_F(ConfigSlots, UndefinedTypeMakesASlotAndReleasesIt) {
  config.DATOActivo(emParamFechaDia);
  config.TipoDatoDATO(emNoDefinido);
  EXPECT_EQ(config.TipoDatoDATO(), emNoDefinido);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
}

class CodeThatIsNoKind : public testing::TestWithParam<std::int32_t>, protected ConfigBench {};

TEST_P(CodeThatIsNoKind, LeavesAReleasedSlotBehind) {
  config.DATOActivo(static_cast<emParamDato>(GetParam()));
  config.DATOPos(5);
  EXPECT_EQ(config.DATOPos(), 0);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_TRUE(config.Modificado());
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  // The next kind takes it over, position included.
  config.DATOActivo(emParamFechaMes);
  config.DATOTam(2);
  EXPECT_TRUE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 5);
}

TEST_P(CodeThatIsNoKind, LeavesAReleasedConstantBehind) {
  config.CTEActivo(static_cast<emParamDatoConstante>(GetParam()));
  config.Constante(u"IN");
  EXPECT_EQ(config.Constante(), u"");
  EXPECT_EQ(config.CTETam(), 0);
  EXPECT_FALSE(config.HayCTE());
  EXPECT_EQ(config.TipoDatoCTE(), emNoDefinido);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  config.CTEActivo(emDatoCteIdentSaliente);
  config.CTEPos(3);
  EXPECT_TRUE(config.HayCTE());
  EXPECT_EQ(config.Constante(), u"IN");
}

TEST_P(CodeThatIsNoKind, RaisesAgainOnlyWhenTheSlotIsAnother) {
  config.DATOActivo(static_cast<emParamDato>(GetParam()));
  config.DATOPos(5);
  config.DATOPos(5);  // the released slot carries the code and the position already
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
}

INSTANTIATE_TEST_SUITE_P(All, CodeThatIsNoKind,
                         testing::Values(std::numeric_limits<std::int32_t>::min(), -1, 0, 1, 54, 55,
                                         std::numeric_limits<std::int32_t>::max()));

TEST_F(ConfigSlots, ReleasedItemIsTakenOverByTheNextKind) {
  Define(emParamFechaDia, 5, 2);
  Define(emParamFechaMes, 8, 2);
  config.DATOActivo(emParamFechaDia);
  config.TipoDatoDATO(emNoDefinido);
  config.DATOActivo(emParamFechaAnio);
  config.DATOPos(11);
  EXPECT_TRUE(config.HayDATO());  // with the size of the kind before
  EXPECT_EQ(config.DATOTam(), 2);
  config.DATOActivo(emParamFechaDia);
  EXPECT_EQ(config.DATOPos(), 0);
  EXPECT_EQ(config.DATOTam(), 0);
}

TEST_F(ConfigSlots, TakingOverWithTheSamePositionRaisesNothing) {
  Define(emParamFechaDia, 5, 2);
  config.TipoDatoDATO(emNoDefinido);
  TakeEvents();
  config.DATOActivo(emParamFechaMes);
  config.DATOPos(5);
  EXPECT_TRUE(config.HayDATO());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, ItemAfterIniciarIsReleasedButKeepsItsPlace) {
  Define(emParamFechaDia, 5, 2);
  config.Iniciar();
  config.DATOActivo(emParamFechaDia);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.TipoDatoDATO(), emNoDefinido);
  EXPECT_EQ(config.DATOPos(), 5);
  EXPECT_EQ(config.DATOTam(), 2);
  TakeEvents();
  config.DATOPos(5);
  EXPECT_TRUE(config.HayDATO());
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_FALSE(config.Modificado());
}

TEST_F(ConfigSlots, ConstantAfterIniciarIsReleasedButKeepsItsText) {
  Define(emDatoCteIdentEntrante, 1, u"IN");
  config.Iniciar();
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_FALSE(config.HayCTE());
  EXPECT_EQ(config.Constante(), u"IN");
  EXPECT_EQ(config.CTEPos(), 1);
  EXPECT_EQ(config.CTETam(), 2);
  TakeEvents();
  config.Constante(u"IN");
  EXPECT_TRUE(config.HayCTE());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, ConstantSetsItsSizeAndNeedsAPosition) {
  config.CTEActivo(emDatoCteIdentEntrante);
  config.Constante(u"IN");
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  EXPECT_FALSE(config.HayCTE());
  EXPECT_EQ(config.CTETam(), 2);
  config.CTEPos(1);
  EXPECT_TRUE(config.HayCTE());
  EXPECT_EQ(config.TipoDatoCTE(), emValorConstante);
  EXPECT_EQ(config.CTETam(), 2);
}

TEST_F(ConfigSlots, EmptyConstantIsReleased) {
  Define(emDatoCteIdentEntrante, 1, u"IN");
  for (const Text& empty : {u""s, Text(20, kNul), Text(20, kNul) + u"x"}) {
    config.Constante(u"IN");
    EXPECT_TRUE(config.HayCTE());
    config.Constante(empty);
    EXPECT_FALSE(config.HayCTE());
    EXPECT_EQ(config.TipoDatoCTE(), emNoDefinido);
    EXPECT_EQ(config.CTETam(), 0);
    EXPECT_EQ(config.CTEPos(), 1);
  }
}

TEST_F(ConfigSlots, ConstantIsCutToTwentyCharacters) {
  Define(emDatoCteIdentEntrante, 1, u"ABCDEFGHIJKLMNOPQRSTUVWXY");
  EXPECT_EQ(config.Constante(), u"ABCDEFGHIJKLMNOPQRST");
  EXPECT_EQ(config.CTETam(), 20);
  config.Constante(u"ABCDEFGHIJKLMNOPQRST, too");
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, ConstantDropsNulsAndDoesNotCountThem) {
  Define(emDatoCteIdentEntrante, 1, u"\0A\0B"s);
  EXPECT_EQ(config.Constante(), u"AB");
  EXPECT_EQ(config.CTETam(), 2);
  config.Constante(u"AB");  // stored differently
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
}

TEST_F(ConfigSlots, BlankConstantIsAConstant) {
  Define(emDatoCteIdentEntrante, 1, u"  ");
  EXPECT_TRUE(config.HayCTE());
  EXPECT_EQ(config.CTETam(), 2);
}

TEST_F(ConfigSlots, SizeOfAConstantMayBeWrittenUntilItsTextIs) {
  Define(emDatoCteIdentEntrante, 1, u"IN");
  config.CTETam(9);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  EXPECT_EQ(config.CTETam(), 9);
  EXPECT_TRUE(config.HayCTE());
  config.CTETam(0);  // the size does not count
  EXPECT_TRUE(config.HayCTE());
  TakeEvents();
  config.Constante(u"IN");  // sets the size without an event
  EXPECT_EQ(config.CTETam(), 2);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSlots, ZeroPositionReleasesTheConstant) {
  Define(emDatoCteIdentEntrante, 1, u"IN");
  config.CTEPos(0);
  EXPECT_FALSE(config.HayCTE());
  EXPECT_EQ(config.Constante(), u"IN");
  config.CTETam(5);  // does not bring it back
  EXPECT_FALSE(config.HayCTE());
  config.CTEPos(2);
  EXPECT_TRUE(config.HayCTE());
  EXPECT_EQ(config.TipoDatoCTE(), emValorConstante);
}

TEST_F(ConfigSlots, ReleasedConstantIsTakenOverWithItsText) {
  Define(emDatoCteIdentEntrante, 1, u"IN");
  config.CTEPos(0);
  TakeEvents();
  config.CTEActivo(emDatoCteIdentSaliente);
  config.CTEPos(4);
  EXPECT_TRUE(config.HayCTE());
  EXPECT_EQ(config.Constante(), u"IN");
  EXPECT_EQ(config.CTETam(), 2);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"");
}

TEST_F(ConfigSlots, ItemsAndConstantsDoNotMeet) {
  Define(emParamFechaDia, 5, 2);
  Define(emDatoCteIdentificadorHorarioMatutinoFecha, 9, u"AM");  // the same code
  EXPECT_EQ(config.DATOPos(), 5);
  EXPECT_EQ(config.CTEPos(), 9);
  config.CTEPos(0);
  EXPECT_TRUE(config.HayDATO());
}

TEST_F(ConfigSlots, EveryKindHasItsOwnSlot) {
  for (int kind = 2; kind <= 53; ++kind) Define(static_cast<emParamDato>(kind), kind, 100 + kind);
  for (int kind = 2; kind <= 23; ++kind) {
    Define(static_cast<emParamDatoConstante>(kind), kind,
           Text(1, static_cast<char16_t>(u'A' + kind)));
  }
  for (int kind = 2; kind <= 53; ++kind) {
    config.DATOActivo(static_cast<emParamDato>(kind));
    EXPECT_TRUE(config.HayDATO());
    EXPECT_EQ(config.DATOPos(), kind);
    EXPECT_EQ(config.DATOTam(), 100 + kind);
  }
  for (int kind = 2; kind <= 23; ++kind) {
    config.CTEActivo(static_cast<emParamDatoConstante>(kind));
    EXPECT_TRUE(config.HayCTE());
    EXPECT_EQ(config.CTEPos(), kind);
    EXPECT_EQ(config.Constante(), Text(1, static_cast<char16_t>(u'A' + kind)));
  }
}

}  // namespace
}  // namespace conmuta
