// A duration that is the difference of two moments.
#include <gtest/gtest.h>

#include <array>
#include <ostream>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/fake_clock.h"

namespace conmuta {
namespace {

using test::CallValues;
using test::FakeClock;
using test::ValuesOf;

// Year, month, day, hours, minutes, seconds.
using Moment = std::array<int, 6>;

void SetPart(clsLlamadaTRD& call, emParamTipoFecha group, std::size_t part, int value) {
  const auto stored = static_cast<std::int16_t>(value);
  switch (part) {
    case 0:
      return call.Anio(group, stored);
    case 1:
      return call.Mes(group, stored);
    case 2:
      return call.Dia(group, stored);
    case 3:
      return call.Horas(group, stored);
    case 4:
      return call.Minutos(group, stored);
    default:
      return call.Segundos(group, stored);
  }
}

// A part of 0 is left as a fresh record has it, so that a start without a date is possible.
clsLlamadaTRD CallBetween(const Clock& clock, const Moment& start, const Moment& second) {
  clsLlamadaTRD call(clock);
  for (std::size_t part = 0; part < start.size(); ++part) {
    if (start[part] != 0) SetPart(call, emParamFecha, part, start[part]);
    if (second[part] != 0) SetPart(call, emParamDuracion, part, second[part]);
  }
  return call;
}

struct DifferenceRow {
  const char* name;
  Moment start;
  Moment second;
  int hours, minutes, seconds;
};

void PrintTo(const DifferenceRow& row, std::ostream* out) {
  *out << row.name;
}

class AjustaDuracion : public testing::TestWithParam<DifferenceRow> {};

TEST_P(AjustaDuracion, IsTheTimeFromTheSecondMomentToTheStart) {
  const DifferenceRow& row = GetParam();
  const FakeClock clock;
  clsLlamadaTRD call = CallBetween(clock, row.start, row.second);
  CallValues expected = ValuesOf(call);
  expected.duration = {0, 0, 0, row.hours, row.minutes, row.seconds};
  call.AjustaDuracionPorRestaFechas();
  EXPECT_EQ(ValuesOf(call), expected);
  EXPECT_EQ(call.Duracion(), row.hours * 3600 + row.minutes * 60 + row.seconds);
}

INSTANTIATE_TEST_SUITE_P(
    Moments, AjustaDuracion,
    testing::Values(
        DifferenceRow{"same day", {2026, 11, 21, 10, 5, 30}, {2026, 11, 21, 9, 58, 10}, 0, 7, 20},
        DifferenceRow{
            "second is later", {2026, 11, 21, 9, 58, 10}, {2026, 11, 21, 10, 5, 30}, 0, -7, -20},
        DifferenceRow{
            "all parts negative", {2026, 11, 21, 8, 1, 1}, {2026, 11, 21, 10, 5, 30}, -2, -4, -29},
        DifferenceRow{"same moment", {2026, 11, 21, 9, 9, 9}, {2026, 11, 21, 9, 9, 9}, 0, 0, 0},
        DifferenceRow{
            "over midnight", {2026, 11, 22, 1, 1, 1}, {2026, 11, 21, 23, 59, 59}, 1, 1, 2},
        DifferenceRow{"over a leap day", {2028, 3, 1, 1, 1, 1}, {2028, 2, 28, 1, 1, 1}, 48, 0, 0},
        DifferenceRow{"over new year", {2027, 1, 1, 1, 1, 1}, {2026, 12, 31, 1, 1, 1}, 24, 0, 0},
        DifferenceRow{
            "31 February is 3 March", {2026, 3, 3, 1, 1, 1}, {2026, 2, 31, 1, 1, 1}, 0, 0, 0},
        DifferenceRow{
            "hours beyond a day", {2026, 11, 21, 25, 1, 1}, {2026, 11, 22, 1, 1, 1}, 0, 0, 0},
        DifferenceRow{"two-digit year", {26, 11, 21, 10, 5, 30}, {2026, 11, 21, 9, 5, 30}, 1, 0, 0},
        DifferenceRow{"two-digit years of two centuries",
                      {30, 1, 1, 1, 1, 1},
                      {1930, 1, 1, 1, 1, 2},
                      0,
                      0,
                      -1},
        DifferenceRow{"before the day that is 0",
                      {1899, 12, 29, 18, 1, 1},
                      {1899, 12, 29, 6, 1, 1},
                      12,
                      0,
                      0},
        DifferenceRow{
            "longest", {2026, 11, 21, 10, 30, 30}, {2023, 2, 25, 2, 30, 31}, 32767, 59, 59},
        DifferenceRow{"longest negative",
                      {2026, 11, 21, 10, 30, 30},
                      {2030, 8, 17, 19, 30, 29},
                      -32768,
                      -59,
                      -59}));

constexpr Moment kStart = {2026, 11, 21, 10, 5, 30};
constexpr Moment kSecond = {2026, 11, 21, 9, 58, 10};

TEST(AjustaDuracionPorRestaFechas, DoesNothingWhileAnyPartIsZero) {
  const FakeClock clock;
  for (std::size_t part = 0; part < 12; ++part) {
    Moment start = kStart;
    Moment second = kSecond;
    (part < 6 ? start[part] : second[part - 6]) = 0;
    clsLlamadaTRD call = CallBetween(clock, start, second);
    const CallValues before = ValuesOf(call);
    ASSERT_EQ(part < 6 ? before.start[part] : before.duration[part - 6], 0);
    call.AjustaDuracionPorRestaFechas();
    EXPECT_EQ(ValuesOf(call), before) << "part " << part;
  }
}

// A part is negative only after another difference: setters store none.
TEST(AjustaDuracionPorRestaFechas, DoesNothingWhileAnyPartIsNegative) {
  const FakeClock clock;
  for (const std::size_t negative : {3u, 4u, 5u}) {
    clsLlamadaTRD call = CallBetween(clock, {2026, 11, 21, 8, 1, 1}, {2026, 11, 21, 10, 5, 30});
    call.AjustaDuracionPorRestaFechas();  // -2:-4:-29
    for (std::size_t part = 0; part < 6; ++part) {
      if (part != negative) SetPart(call, emParamDuracion, part, kSecond[part]);
    }
    const CallValues before = ValuesOf(call);
    ASSERT_LT(before.duration[negative], 0);
    call.AjustaDuracionPorRestaFechas();
    EXPECT_EQ(ValuesOf(call), before) << "part " << negative;
  }
}

TEST(AjustaDuracionPorRestaFechas, SecondTimeDoesNothing) {
  const FakeClock clock;
  clsLlamadaTRD call = CallBetween(clock, kStart, kSecond);
  call.AjustaDuracionPorRestaFechas();
  const CallValues once = ValuesOf(call);
  call.AjustaDuracionPorRestaFechas();
  EXPECT_EQ(ValuesOf(call), once);
}

TEST(AjustaDuracionPorRestaFechas, HoursBeyond16BitsOverflowWhenTheDateIsGone) {
  const FakeClock clock;
  const Moment start = {2026, 11, 21, 10, 30, 30};
  for (const Moment& second : {Moment{2023, 2, 25, 2, 30, 30},     // 32768 hours
                               Moment{2030, 8, 17, 19, 30, 30},    // -32769 hours
                               Moment{1958, 11, 3, 7, 16, 23}}) {  // 2^31 - 1 seconds
    clsLlamadaTRD call = CallBetween(clock, start, second);
    CallValues expected = ValuesOf(call);
    expected.duration[0] = expected.duration[1] = expected.duration[2] = 0;
    EXPECT_THROW(call.AjustaDuracionPorRestaFechas(), OverflowError) << expected;
    EXPECT_EQ(ValuesOf(call), expected);
  }
}

TEST(AjustaDuracionPorRestaFechas, SecondsBeyond32BitsOverflowBeforeAnyChange) {
  const FakeClock clock;
  const Moment start = {2026, 11, 21, 10, 30, 30};
  for (const Moment& second :
       {Moment{1958, 11, 3, 7, 16, 22}, Moment{2094, 12, 9, 13, 44, 39}, Moment{100, 1, 1, 1, 1, 1},
        Moment{9999, 12, 31, 23, 59, 59}, Moment{9999, 12, 31, 32767, 59, 59}}) {
    clsLlamadaTRD call = CallBetween(clock, start, second);
    const CallValues before = ValuesOf(call);
    EXPECT_THROW(call.AjustaDuracionPorRestaFechas(), OverflowError) << before;
    EXPECT_EQ(ValuesOf(call), before);
  }
}

TEST(AjustaDuracionPorRestaFechas, YearBeyondTheCalendarRaisesBeforeAnyChange) {
  const FakeClock clock;
  const Moment beyond = {10000, 1, 1, 1, 1, 1};
  for (clsLlamadaTRD call :
       {CallBetween(clock, beyond, kSecond), CallBetween(clock, kStart, beyond),
        CallBetween(clock, {9999, 12, 31, 23, 59, 59}, {32767, 1, 1, 1, 1, 1})}) {
    const CallValues before = ValuesOf(call);
    EXPECT_THROW(call.AjustaDuracionPorRestaFechas(), InvalidArgumentError);
    EXPECT_EQ(ValuesOf(call), before);
  }
}

}  // namespace
}  // namespace conmuta
