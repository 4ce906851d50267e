#include "config/slot_list.h"

#include <gtest/gtest.h>

#include <limits>

namespace conmuta {
namespace {

constexpr auto kNoKind = static_cast<emParamDato>(99);

TEST(SlotList, NumbersSlotsFromOneInTheOrderOfTheirMaking) {
  SlotList<DATO> list;
  EXPECT_EQ(list.Busca(emParamFechaMes), 0);
  EXPECT_EQ(list.Alta(emParamFechaMes), 1);
  EXPECT_EQ(list.Alta(emParamFechaDia), 2);
  EXPECT_EQ(list.Busca(emParamFechaMes), 1);
  EXPECT_EQ(list.Busca(emParamFechaDia), 2);
  EXPECT_EQ(list.Busca(emParamFechaAnio), 0);
  EXPECT_EQ(list.end() - list.begin(), 2);
}

TEST(SlotList, NewSlotHasTheTypeOfItsListAndNoPlace) {
  SlotList<DATO> datos;
  const DATO& dato = datos[datos.Alta(emParamFechaMes)];
  EXPECT_EQ(dato.Param, emParamFechaMes);
  EXPECT_EQ(dato.TipoDato, emValorNumerico);
  EXPECT_EQ(dato.Pos, 0);
  EXPECT_EQ(dato.Tam, 0);
  SlotList<CTE> ctes;
  const CTE& cte = ctes[ctes.Alta(emDatoCteIdentEntrante)];
  EXPECT_EQ(cte.TipoDato, emValorConstante);
  EXPECT_TRUE(cte.Constante.Empty());
}

TEST(SlotList, ReleasedSlotIsTakenOverWithItsPositionAndSize) {
  SlotList<DATO> list;
  for (const auto kind : {emParamFechaDia, emParamFechaMes, emParamFechaAnio}) list.Alta(kind);
  list[2] = {emParamFechaMes, emNoDefinido, 5, 2};
  EXPECT_EQ(list.Alta(emParamFechaHoras), 2);
  EXPECT_EQ(list.Busca(emParamFechaHoras), 2);
  EXPECT_EQ(list.Busca(emParamFechaMes), 0);
  EXPECT_EQ(list[2].Pos, 5);
  EXPECT_EQ(list[2].Tam, 2);
  EXPECT_EQ(list[2].TipoDato, emValorNumerico);
}

TEST(SlotList, TheFirstReleasedSlotGoesFirst) {
  SlotList<DATO> list;
  for (const auto kind : {emParamFechaDia, emParamFechaMes, emParamFechaAnio}) list.Alta(kind);
  list.ReleaseAll();
  EXPECT_EQ(list.Alta(emParamRingHoras), 1);
  EXPECT_EQ(list.Alta(emParamRingMinutos), 2);
  EXPECT_EQ(list.Busca(emParamFechaAnio), 3);  // released, but still found
  EXPECT_EQ(list.Alta(emParamRingSegundos), 3);
  EXPECT_EQ(list.Alta(emParamCodigoCuenta), 4);
}

TEST(SlotList, CodeThatIsNoKindIsNeverFoundButKeepsItsSlot) {
  SlotList<DATO> list;
  EXPECT_EQ(list.Alta(kNoKind), 1);
  EXPECT_EQ(list.Busca(kNoKind), 0);
  EXPECT_EQ(list.Alta(kNoKind), 1);
  EXPECT_EQ(list.Alta(emParamFechaDia), 2);
  EXPECT_EQ(list.Alta(kNoKind), 1);
  list[1].TipoDato = emNoDefinido;
  EXPECT_EQ(list.Alta(emParamFechaMes), 1);
  EXPECT_EQ(list.Busca(emParamFechaMes), 1);
}

TEST(SlotList, BoundsAndHostileCodesAreNoKinds) {
  for (const std::int32_t code : {std::numeric_limits<std::int32_t>::min(), -1, 0, 1, 54, 55,
                                  std::numeric_limits<std::int32_t>::max()}) {
    SlotList<DATO> list;
    const auto kind = static_cast<emParamDato>(code);
    EXPECT_FALSE(IsKind<DATO>(kind)) << code;
    list[list.Alta(kind)] = {kind, emValorNumerico, 1, 1};
    EXPECT_EQ(list.Busca(kind), 0) << code;
    EXPECT_EQ(list.FindValid(kind), nullptr) << code;
    EXPECT_FALSE(DATOValido(list[1])) << code;
  }
  for (const std::int32_t code : {-1, 0, 1, 24, 53}) {
    SlotList<CTE> list;
    const auto kind = static_cast<emParamDatoConstante>(code);
    EXPECT_FALSE(IsKind<CTE>(kind)) << code;
    list.Alta(kind);
    EXPECT_EQ(list.Busca(kind), 0) << code;
  }
}

TEST(SlotList, GivesValidSlotsOnly) {
  SlotList<DATO> list;
  list.Alta(emParamFechaDia);
  EXPECT_EQ(list.FindValid(emParamFechaDia), nullptr);
  list[1].Pos = 5;
  EXPECT_EQ(list.FindValid(emParamFechaDia), nullptr);
  list[1].Tam = 2;
  EXPECT_EQ(list.FindValid(emParamFechaDia), &list[1]);
  EXPECT_EQ(list.FindValid(emParamFechaMes), nullptr);
  list.ReleaseAll();
  EXPECT_EQ(list.FindValid(emParamFechaDia), nullptr);
}

TEST(SlotList, MoreSlotsThanTheCountCanHoldRaise) {
  SlotList<DATO> list;
  constexpr int kMost = std::numeric_limits<std::int16_t>::max();
  for (int i = 1; i <= kMost; ++i) ASSERT_EQ(list.Alta(static_cast<emParamDato>(-i)), i);
  EXPECT_THROW(list.Alta(emParamFechaDia), OverflowError);
  EXPECT_EQ(list.end() - list.begin(), kMost);
  EXPECT_EQ(list.Busca(emParamFechaDia), 0);
  list[kMost].TipoDato = emNoDefinido;
  EXPECT_EQ(list.Alta(emParamFechaDia), kMost);
}

TEST(DATOValido, NeedsKindPositionSizeAndType) {
  EXPECT_TRUE(DATOValido({emParamFechaDia, emValorNumerico, 1, 1}));
  EXPECT_TRUE(DATOValido({emParamTroncal2InterTroncalFinTransferida, emValorCadena, 255, 255}));
  EXPECT_TRUE(DATOValido({emParamFechaDia, static_cast<emTipoDato>(-1), 1, 1}));
  EXPECT_FALSE(DATOValido({emParamFechaDia, emValorNumerico, 0, 1}));
  EXPECT_FALSE(DATOValido({emParamFechaDia, emValorNumerico, 1, 0}));
  EXPECT_FALSE(DATOValido({emParamFechaDia, emNoDefinido, 1, 1}));
  EXPECT_FALSE(DATOValido({emPrimerParamDato, emValorNumerico, 1, 1}));
  EXPECT_FALSE(DATOValido({emUltimoParamDato, emValorNumerico, 1, 1}));
}

TEST(CTEValido, NeedsKindPositionTypeAndConstantButNoSize) {
  CTE slot{emDatoCteIdentEntrante, emValorConstante, 1, 0, {}};
  EXPECT_FALSE(CTEValido(slot));
  slot.Constante.Assign(u" ");
  EXPECT_TRUE(CTEValido(slot));
  EXPECT_TRUE(IsValid(slot));
  for (const auto kind : {emPrimerParamDatoConstante, emUltimoParamDatoConstante}) {
    CTE changed = slot;
    changed.Param = kind;
    EXPECT_FALSE(CTEValido(changed));
  }
  CTE released = slot;
  released.TipoDato = emNoDefinido;
  EXPECT_FALSE(CTEValido(released));
  CTE nowhere = slot;
  nowhere.Pos = 0;
  EXPECT_FALSE(CTEValido(nowhere));
}

}  // namespace
}  // namespace conmuta
