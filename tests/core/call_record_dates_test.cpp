// Date, time and duration as a call record tells them.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/fake_clock.h"
#include "translate/clsLlamadaTRD.h"

namespace conmuta {
namespace {

using test::FakeClock;

// A part of -1 is not written: it stays 0, as after a failure half way.
struct StartDate {
  int year, month, day;
  double serial;
};

void PrintTo(const StartDate& row, std::ostream* out) {
  *out << row.year << '/' << row.month << '/' << row.day;
}

clsLlamadaTRD CallOn(const Clock& clock, int year, int month, int day) {
  clsLlamadaTRD call(clock);
  if (year != -1) call.Anio(emParamFecha, static_cast<std::int16_t>(year));
  if (month != -1) call.Mes(emParamFecha, static_cast<std::int16_t>(month));
  if (day != -1) call.Dia(emParamFecha, static_cast<std::int16_t>(day));
  return call;
}

class CallRecordFecha : public testing::TestWithParam<StartDate> {};

TEST_P(CallRecordFecha, IsTheDayNumberOfTheRolledOverDate) {
  const FakeClock clock;
  const StartDate& row = GetParam();
  EXPECT_EQ(CallOn(clock, row.year, row.month, row.day).Fecha(), row.serial);
}

INSTANTIATE_TEST_SUITE_P(
    Dates, CallRecordFecha,
    testing::Values(StartDate{2026, 11, 21, 46347}, StartDate{1899, 12, 30, 0},
                    StartDate{1899, 12, 29, -1}, StartDate{9999, 12, 31, 2958465},
                    StartDate{100, 1, 1, -657434},
                    // Two-digit years.
                    StartDate{1, 1, 1, 36892}, StartDate{29, 1, 1, 47119},
                    StartDate{30, 1, 1, 10959}, StartDate{99, 1, 1, 36161},
                    // Days that the month lacks.
                    StartDate{2026, 2, 31, 46084}, StartDate{2024, 2, 31, 45353},
                    StartDate{2026, 4, 31, 46143},
                    // Parts that were not written: month and day 0.
                    StartDate{2026, -1, -1, 45991}, StartDate{2026, -1, 21, 46012},
                    StartDate{2026, 11, -1, 46326}, StartDate{-1, 11, 21, -657434},
                    StartDate{-1, -1, -1, -657434}));

TEST(Fecha, OutOfTheCalendarRaisesInvalidArgument) {
  const FakeClock clock;
  EXPECT_THROW((void)CallOn(clock, 10000, 1, 1).Fecha(), InvalidArgumentError);
  EXPECT_THROW((void)CallOn(clock, 32767, 12, 31).Fecha(), InvalidArgumentError);
  EXPECT_THROW((void)CallOn(clock, 100, -1, 1).Fecha(), InvalidArgumentError);
}

TEST(Fecha, IsBuiltFromTheStartOnly) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Anio(emParamDuracion, 2026);
  call.Mes(emParamDuracion, 11);
  call.Dia(emParamDuracion, 21);
  call.Horas(emParamDuracion, 12);
  EXPECT_EQ(call.Fecha(), -657434);
  EXPECT_EQ(call.Hora(), 0);
}

double HoraOf(std::int16_t hours, std::int16_t minutes, std::int16_t seconds) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Horas(emParamFecha, hours);
  call.Minutos(emParamFecha, minutes);
  call.Segundos(emParamFecha, seconds);
  return call.Hora();
}

TEST(Hora, IsTheFractionOfTheDay) {
  EXPECT_DOUBLE_EQ(HoraOf(1, 0, 0), 1.0 / 24);
  EXPECT_DOUBLE_EQ(HoraOf(12, 0, 0), 0.5);
  EXPECT_DOUBLE_EQ(HoraOf(10, 5, 30), 36330.0 / 86400);
  EXPECT_DOUBLE_EQ(HoraOf(23, 59, 59), 86399.0 / 86400);
}

TEST(Hora, IsZeroInTheHourAfterMidnight) {
  EXPECT_EQ(HoraOf(0, 30, 0), 0);
  EXPECT_EQ(HoraOf(0, 59, 59), 0);
  EXPECT_EQ(HoraOf(-5, 30, 0), 0);
}

TEST(Hora, RollsHoursBeyondADayIntoDays) {
  EXPECT_DOUBLE_EQ(HoraOf(24, 0, 0), 1.0);
  EXPECT_DOUBLE_EQ(HoraOf(49, 30, 0), 2 + 1.5 / 24);
  EXPECT_DOUBLE_EQ(HoraOf(32767, 59, 59), (32767.0 * 3600 + 3599) / 86400);
}

TEST(Duracion, IsInSeconds) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Segundos(emParamDuracion, 20);
  EXPECT_EQ(call.Duracion(), 20);
  call.Minutos(emParamDuracion, 7);
  EXPECT_EQ(call.Duracion(), 440);
  call.Horas(emParamDuracion, 1);
  EXPECT_EQ(call.Duracion(), 4040);
}

TEST(Duracion, HoldsTheLongestThereIs) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Horas(emParamDuracion, 32767);
  call.Minutos(emParamDuracion, 59);
  call.Segundos(emParamDuracion, 59);
  EXPECT_EQ(call.Duracion(), 117964799);
}

TEST(Duracion, DoesNotCountItsDate) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Dia(emParamDuracion, 3);
  call.Mes(emParamDuracion, 2);
  call.Anio(emParamDuracion, 1);
  EXPECT_EQ(call.Duracion(), 0);
}

}  // namespace
}  // namespace conmuta
