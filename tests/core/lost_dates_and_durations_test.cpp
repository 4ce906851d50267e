// What a host cannot learn from a call record, and what it does about that: the rows of
// docs/what-the-rules-lose.md on dates and durations.
#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <vector>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::ConfigBuilder;
using test::FixedColumns;
using test::FixedLine;
using test::Translation;

// --- Dates -----------------------------------------------------------------------------------

TEST(DateLoss, YearInThePastBecomesThePresentOne) {
  Translation desk(FixedColumns().Build());
  for (const TextView date : {u"2019/03/14", u"1985/03/14", u"0019/03/14"}) {
    EXPECT_EQ(desk.Translate(FixedLine{.date = Text(date)}.text()).Anio(emParamFecha), 2026);
  }
}

TEST(DateLoss, LineOfDecemberThatIsReadInJanuaryLiesInTheFuture) {
  Translation desk(FixedColumns().Build());
  desk.clock.today = {2027, 1, 2};
  const auto& call = desk.Translate(FixedLine{.date = u"2026/12/31"}.text());
  EXPECT_EQ(call.Anio(emParamFecha), 2027);
  EXPECT_EQ(call.Mes(emParamFecha), 12);
  // More than a day ahead of the clock: a host takes the year before.
  const auto ahead = call.Mes(emParamFecha) > desk.clock.today.month;
  EXPECT_EQ(call.Anio(emParamFecha) - (ahead ? 1 : 0), 2026);
}

TEST(DateLoss, DayAndMonthThatCannotBeReadAreTodays) {
  Translation desk(FixedColumns().Build());
  const auto& call = desk.Translate(FixedLine{.date = u"2026/**/**"}.text());
  EXPECT_EQ(call.Mes(emParamFecha), 11);
  EXPECT_EQ(call.Dia(emParamFecha), 21);
  EXPECT_TRUE(call.EsValido());
}

TEST(DateLoss, HourAfterMidnightIsNotInHora) {
  Translation desk(FixedColumns().Build());
  const auto& call = desk.Translate(FixedLine{.time = u"00:45:10"}.text());
  EXPECT_EQ(call.Hora(), 0.0);
  EXPECT_EQ(call.Minutos(emParamFecha), 45);  // but in its parts
}

TEST(DateLoss, QuarterPastMidnightInTwelveHoursIsNoon) {
  auto layout = FixedColumns();
  layout.Constant(emDatoCteIdentificadorHorarioMatutinoFecha, 20, u"AM");
  Translation desk(layout.Build());
  Text line = FixedLine{.time = u"12:15:00"}.text();
  line.replace(19, 2, u"AM");
  const auto& call = desk.Translate(line);
  EXPECT_EQ(call.Horas(emParamFecha), 12);
}

// The moment that a switch prints at the end of a call is the record's start. A host takes the
// duration from it.
TEST(DateLoss, EndOfACallStandsAsItsStart) {
  Translation desk(FixedColumns().Build());
  const auto& call = desk.Translate(FixedLine{.time = u"10:05:30", .duration = u"00:07:20"}.text());
  const int end = call.Horas(emParamFecha) * 3600 + call.Minutos(emParamFecha) * 60 +
                  call.Segundos(emParamFecha);
  EXPECT_EQ(end, 10 * 3600 + 5 * 60 + 30);
  EXPECT_EQ(end - call.Duracion(), 9 * 3600 + 58 * 60 + 10);
}

// --- Case 5 ----------------------------------------------------------------------------------

// E 14/03/2026 09:14:05 14/03/2026 09:21:40 205 0702
Translation TwoDates() {
  ConfigBuilder layout;
  layout.Case(emCasoRestaFechasDuracion);
  layout.Item(emParamFechaDia, 23, 2).Item(emParamFechaMes, 26, 2).Item(emParamFechaAnio, 29, 4);
  layout.Item(emParamFechaHoras, 34, 2).Item(emParamFechaMinutos, 37, 2);
  layout.Item(emParamFechaSegundos, 40, 2);
  layout.Item(emParamDuracionDia, 3, 2).Item(emParamDuracionMes, 6, 2);
  layout.Item(emParamDuracionAnio, 9, 4).Item(emParamDuracionHoras, 14, 2);
  layout.Item(emParamDuracionMinutos, 17, 2).Item(emParamDuracionSegundos, 20, 2);
  layout.Item(emParamExtensionSaliente, 43, 3).Item(emParamTroncalSaliente, 47, 4);
  return Translation(layout.Build());
}

// What a host asks before it believes a duration.
bool IsKnown(const clsLlamadaTRD& call) {
  return call.Anio(emParamDuracion) == 0 && call.Mes(emParamDuracion) == 0 &&
         call.Dia(emParamDuracion) == 0 && call.Duracion() >= 0;
}

struct TwoDatesRow {
  TextView line;
  int duration;
  bool known;
};

TEST(DifferenceLoss, OfWhatCannotBeSubtracted) {
  auto desk = TwoDates();
  for (const TwoDatesRow& row : {
           TwoDatesRow{u"E 14/03/2026 09:14:05 14/03/2026 09:21:40 205 0702", 455, true},
           // Without the year, on a whole minute, in the hour after midnight: the beginning's time.
           TwoDatesRow{u"E 14/03/**** 09:14:05 14/03/2026 09:21:40 205 0702", 33245, false},
           TwoDatesRow{u"E 14/03/2026 09:14:05 14/03/2026 09:21:00 205 0702", 33245, false},
           TwoDatesRow{u"E 14/03/2026 09:14:05 15/03/2026 00:21:40 205 0702", 33245, false},
           // A clock that was set back.
           TwoDatesRow{u"E 14/03/2026 09:14:05 14/03/2026 09:10:10 205 0702", -235, false},
           // From one year to the next: both become the present one.
           TwoDatesRow{u"E 31/12/2025 23:58:05 01/01/2026 01:01:10 205 0702", -31532215, false},
       }) {
    const auto& call = desk.Translate(row.line);
    EXPECT_TRUE(call.EsValido());
    EXPECT_EQ(call.Duracion(), row.duration) << test::Ascii(row.line);
    EXPECT_EQ(IsKnown(call), row.known) << test::Ascii(row.line);
  }
}

// Without slots for its date the second moment leaves nothing that tells it from a duration.
TEST(DifferenceLoss, WithoutTheSlotsOfADateLooksKnown) {
  auto desk = TwoDates();
  for (const emParamDato kind : {emParamDuracionDia, emParamDuracionMes, emParamDuracionAnio}) {
    desk.config->DATOActivo(kind);
    desk.config->TipoDatoDATO(emNoDefinido);
  }
  const auto& call = desk.Translate(u"E 14/03/2026 09:14:05 14/03/2026 09:21:40 205 0702");
  EXPECT_EQ(call.Duracion(), 33245);
  EXPECT_TRUE(IsKnown(call));
}

// A day or month that cannot be read is today's: the duration is computed, and wrong. Only the line
// itself shows it.
TEST(DifferenceLoss, OfADayThatCannotBeReadLooksKnown) {
  auto desk = TwoDates();
  desk.clock.today = {2026, 3, 13};
  const TextView line = u"E **/03/2026 09:14:05 14/03/2026 09:21:40 205 0702";
  const auto& call = desk.Translate(line);
  EXPECT_EQ(call.Duracion(), 86400 + 455);
  EXPECT_TRUE(IsKnown(call));
  EXPECT_NE(line.find(u'*'), TextView::npos);
}

// --- Durations -------------------------------------------------------------------------------

// Durations in forms that hours, minutes and seconds do not fit.
struct DurationRow {
  const char* form;
  TextView line;                          // 205 T1 and the duration from column 8
  std::vector<std::array<int, 3>> slots;  // kind, position, size, as one would write them
  int read;                               // what Duracion says
  std::vector<std::array<int, 3>> raw;    // slots that keep the figures whole
  int hours_worth;                        // what one of Horas(2) is in tenths of a second
  int minutes_worth;                      // and one of Minutos(2)
  int real;                               // seconds that the call took
};

void PrintTo(const DurationRow& row, std::ostream* out) {
  *out << row.form;
}

class DurationLoss : public testing::TestWithParam<DurationRow> {};

Translation With(const std::vector<std::array<int, 3>>& slots) {
  ConfigBuilder layout;
  layout.Item(emParamExtensionSaliente, 1, 3).Item(emParamTroncalSaliente, 5, 2);
  for (const auto& [kind, pos, size] : slots) {
    layout.Item(static_cast<emParamDato>(kind), pos, size);
  }
  return Translation(layout.Build());
}

constexpr int kHours = emParamDuracionHoras;
constexpr int kMinutes = emParamDuracionMinutos;
constexpr int kSeconds = emParamDuracionSegundos;

TEST_P(DurationLoss, IsShortButHoursHoldWhatMinutesAndSecondsCannot) {
  auto desk = With(GetParam().slots);
  EXPECT_EQ(desk.Translate(GetParam().line).Duracion(), GetParam().read);

  auto whole = With(GetParam().raw);
  const auto& call = whole.Translate(GetParam().line);
  const int tenths = call.Horas(emParamDuracion) * GetParam().hours_worth +
                     call.Minutos(emParamDuracion) * GetParam().minutes_worth;
  EXPECT_EQ(tenths / 10, GetParam().real);
}

INSTANTIATE_TEST_SUITE_P(
    , DurationLoss,
    testing::Values(
        // Seconds in all, five digits: seconds end at 59. As hours they are whole.
        DurationRow{
            "sec-dur", u"205 T1 00125", {{kSeconds, 8, 5}}, 59, {{kHours, 8, 5}}, 10, 0, 125},
        // The same behind a mark.
        DurationRow{
            "S=", u"205 T1 S=000125", {{kSeconds, 10, 6}}, 59, {{kHours, 10, 6}}, 10, 0, 125},
        // Minutes and tenths of one.
        DurationRow{"nnnn.n",
                    u"205 T1    2.5",
                    {{kMinutes, 8, 4}},
                    120,
                    {{kHours, 8, 4}, {kMinutes, 13, 1}},
                    600,
                    60,
                    150},
        // More than an hour in minutes.
        DurationRow{"mm:ss",
                    u"205 T1 75:10",
                    {{kMinutes, 8, 2}, {kSeconds, 11, 2}},
                    3550,
                    {{kHours, 8, 2}, {kMinutes, 11, 2}},
                    600,
                    10,
                    4510},
        // Hours, minutes and tenths of one, without a separator: minutes go into the hours' place.
        DurationRow{"hmmt",
                    u"205 T1 0029",
                    {{kHours, 8, 1}, {kMinutes, 9, 2}, {kSeconds, 11, 1}},
                    129,
                    {{kHours, 9, 2}, {kMinutes, 11, 1}},
                    600,
                    60,
                    174}),
    [](const auto& info) { return "Row" + std::to_string(info.index); });

TEST(DurationLimit, OfAFigureThatHoursCannotHoldIsAnError) {
  auto desk = With({{kHours, 8, 5}});
  EXPECT_EQ(desk.Translate(u"205 T1 32767").Horas(emParamDuracion), 32767);
  EXPECT_THROW(desk.Translate(u"205 T1 32768"), OverflowError);
}

}  // namespace
}  // namespace conmuta
