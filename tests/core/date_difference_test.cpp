// Switches that print the end of a call where others print its duration.
#include <gtest/gtest.h>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::CallValues;
using test::ConfigBuilder;
using test::IsCleared;
using test::Translation;
using test::ValuesOf;

// Start and a second moment, each year/month/day hours:minutes:seconds and AM or PM.
ConfigBuilder TwoMoments() {
  ConfigBuilder layout;
  layout.Case(emCasoRestaFechasDuracion);
  layout.Item(emParamFechaAnio, 1, 5).Item(emParamFechaMes, 7, 2).Item(emParamFechaDia, 10, 2);
  layout.Item(emParamFechaHoras, 13, 2).Item(emParamFechaMinutos, 16, 2);
  layout.Item(emParamFechaSegundos, 19, 2).Item(emParamDuracionAnio, 24, 5);
  layout.Item(emParamDuracionMes, 30, 2).Item(emParamDuracionDia, 33, 2);
  layout.Item(emParamDuracionHoras, 36, 2).Item(emParamDuracionMinutos, 39, 2);
  layout.Item(emParamDuracionSegundos, 42, 2).Item(emParamRingSegundos, 47, 1);
  layout.TextItem(emParamExtensionSaliente, 49, 3).TextItem(emParamTroncalSaliente, 53, 2);
  return layout;
}

constexpr TextView kTwoDates = u" 2026/11/21 10:05:30AM  2026/11/21 09:58:10AM 7 205 T1";

TEST(DateDifference, IsTheDurationOfTheCall) {
  Translation desk(TwoMoments().Build());
  const clsLlamadaTRD& call = desk.Translate(kTwoDates);
  CallValues expected;
  expected.start = {2026, 11, 21, 10, 5, 30};
  expected.duration = {0, 0, 0, 0, 7, 20};
  expected.ring = 7;
  expected.type = emLlamadaSaliente;
  expected.caller = u"205";
  expected.callee = u"T1";
  EXPECT_EQ(ValuesOf(call), expected);
  EXPECT_EQ(call.Duracion(), 440);
  EXPECT_TRUE(call.EsValido());
}

TEST(DateDifference, BelongsToItsCaseOnly) {
  for (const emCasos code : {emCasoEstandar, emCasoSamsungNX_820}) {
    Translation desk(TwoMoments().Case(code).Item(emParamTelefonoSaliente, 1, 5).Build());
    EXPECT_EQ(ValuesOf(desk.Translate(kTwoDates)).duration,
              (std::array<int, 6>{2026, 11, 21, 9, 58, 10}))
        << code;
  }
}

TEST(DateDifference, OfALaterSecondMomentIsNegative) {
  Translation desk(TwoMoments().Build());
  const clsLlamadaTRD& call =
      desk.Translate(u" 2026/11/21 10:05:30AM  2026/11/21 12:09:59AM 7 205 T1");
  EXPECT_EQ(ValuesOf(call).duration, (std::array<int, 6>{0, 0, 0, -2, -4, -29}));
  EXPECT_EQ(call.Duracion(), -(2 * 3600 + 4 * 60 + 29));
}

TEST(DateDifference, IsNotTakenOnAWholeMinuteOrAfterMidnight) {
  Translation desk(TwoMoments().Build());
  for (const TextView line : {u" 2026/11/21 10:05:00AM  2026/11/21 09:58:10AM 7 205 T1",
                              u" 2026/11/21 10:00:30AM  2026/11/21 09:58:10AM 7 205 T1",
                              u" 2026/11/21 00:05:30AM  2026/11/21 09:58:10AM 7 205 T1",
                              u" 2026/11/21 10:05:30AM      /11/21 09:58:10AM 7 205 T1"}) {
    const clsLlamadaTRD& call = desk.Translate(line);
    EXPECT_EQ(call.Duracion(), 9 * 3600 + 58 * 60 + 10);
    EXPECT_EQ(call.Dia(emParamDuracion), 21);
  }
}

TEST(DateDifference, IsTakenAfterTheMorningMarkers) {
  Translation desk(TwoMoments()
                       .Constant(emDatoCteIdentificadorHorarioMatutinoFecha, 21, u"AM")
                       .Constant(emDatoCteIdentificadorHorarioMatutinoDuracion, 44, u"AM")
                       .Build());
  const clsLlamadaTRD& call =
      desk.Translate(u" 2026/11/21 01:05:30PM  2026/11/21 11:58:10AM 7 205 T1");
  EXPECT_EQ(call.Horas(emParamFecha), 13);
  EXPECT_EQ(call.Duracion(), 3600 + 7 * 60 + 20);
}

// A year before the current one is read as the current one, in both moments.
TEST(DateDifference, TakesBothYearsAsTheReadersGiveThem) {
  Translation desk(TwoMoments().Build());
  EXPECT_EQ(desk.Translate(u"   26/11/21 10:05:30AM    99/11/21 09:58:10AM 7 205 T1").Duracion(),
            440);
  desk.clock.today = {2027, 1, 1};
  EXPECT_EQ(desk.Translate(u" 2027/01/01 01:01:01AM  2026/12/31 23:59:59AM 7 205 T1").Duracion(),
            -(364 * 86400 + 22 * 3600 + 58 * 60 + 58));
}

TEST(DateDifference, BeyondItsWidthOverflowsAndLeavesWhatWasRead) {
  Translation desk(TwoMoments().Build());
  EXPECT_THROW(desk.Translate(u" 2031/11/21 10:05:30AM  2026/11/21 09:58:10AM 7 205 T1"),
               OverflowError);
  CallValues expected;
  expected.start = {2031, 11, 21, 10, 5, 30};
  expected.duration = {0, 0, 0, 9, 58, 10};
  EXPECT_EQ(ValuesOf(desk.call()), expected);
  EXPECT_THROW(desk.Translate(u" 2126/11/21 10:05:30AM  2026/11/21 09:58:10AM 7 205 T1"),
               OverflowError);
  EXPECT_EQ(ValuesOf(desk.call()).duration, (std::array<int, 6>{2026, 11, 21, 9, 58, 10}));
}

TEST(DateDifference, YearBeyondTheCalendarIsAnInvalidArgument) {
  Translation desk(TwoMoments().Build());
  EXPECT_THROW(desk.Translate(u"10000/11/21 10:05:30AM  2026/11/21 09:58:10AM 7 205 T1"),
               InvalidArgumentError);
  EXPECT_EQ(ValuesOf(desk.call()).duration, (std::array<int, 6>{2026, 11, 21, 9, 58, 10}));
  EXPECT_EQ(desk.call().Ring(), 0);
  EXPECT_EQ(desk.Translate(kTwoDates).Duracion(), 440);
}

TEST(DateDifference, OfADayThatTheMonthLacksRollsOver) {
  Translation desk(TwoMoments().Build());
  EXPECT_EQ(desk.Translate(u" 2026/03/03 10:05:30AM  2026/02/31 09:58:10AM 7 205 T1").Duracion(),
            440);
}

}  // namespace
}  // namespace conmuta
