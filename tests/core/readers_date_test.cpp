// Reading years, months and days.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/config_builder.h"
#include "support/fake_clock.h"
#include "translate/readers.h"

namespace conmuta {
namespace {

using basConmuta::LeeAnio;
using basConmuta::LeeDia;
using basConmuta::LeeMes;
using test::Ascii;
using test::ConfigBuilder;
using test::FakeClock;

// The whole line as a numeric item.
std::unique_ptr<clsCfgConmut> WholeLine(emParamDato kind, emTipoDato type = emValorNumerico) {
  return ConfigBuilder().Item(kind, 1, 40, type).Build();
}

struct ReadYear {
  int current;
  Text digits;
  int year;
};

void PrintTo(const ReadYear& row, std::ostream* out) {
  *out << '[' << Ascii(row.digits) << "] in " << row.current;
}

class LeeAnioDigits : public testing::TestWithParam<ReadYear> {};

TEST_P(LeeAnioDigits, AreCompletedAndNeverBeforeTheCurrentYear) {
  const ReadYear& row = GetParam();
  const FakeClock clock({row.current, 11, 21});
  for (const emParamDato kind : {emParamFechaAnio, emParamDuracionAnio}) {
    const auto config = WholeLine(kind);
    EXPECT_EQ(LeeAnio(*config, kind, row.digits, clock), row.year);
    EXPECT_EQ(config->DATOActivo(), kind);
  }
}

INSTANTIATE_TEST_SUITE_P(
    In2026, LeeAnioDigits,
    testing::Values(
        ReadYear{2026, u"0", 2026}, ReadYear{2026, u"5", 2026}, ReadYear{2026, u"6", 2026},
        ReadYear{2026, u"7", 2027}, ReadYear{2026, u"9", 2029}, ReadYear{2026, u"10", 2026},
        ReadYear{2026, u"25", 2026}, ReadYear{2026, u"26", 2026}, ReadYear{2026, u"27", 2027},
        ReadYear{2026, u"79", 2079}, ReadYear{2026, u"80", 2026}, ReadYear{2026, u"85", 2026},
        ReadYear{2026, u"99", 2026}, ReadYear{2026, u"100", 2100}, ReadYear{2026, u"999", 2999},
        ReadYear{2026, u"025", 2026}, ReadYear{2026, u"007", 2027}, ReadYear{2026, u"1000", 2026},
        ReadYear{2026, u"2025", 2026}, ReadYear{2026, u"2026", 2026}, ReadYear{2026, u"2031", 2031},
        ReadYear{2026, u"9999", 9999}, ReadYear{2026, u"10000", 10000},
        ReadYear{2026, u"32767", 32767}, ReadYear{2026, u"0000000000002031", 2031},
        // Only the digits count.
        ReadYear{2026, u"-20/31 x", 2031}, ReadYear{2026, u"2.031", 2031},
        // No digits at all.
        ReadYear{2026, u"", 0}, ReadYear{2026, u"    ", 0}, ReadYear{2026, u"**", 0}));

INSTANTIATE_TEST_SUITE_P(InOtherYears, LeeAnioDigits,
                         testing::Values(ReadYear{1985, u"80", 1985}, ReadYear{1985, u"85", 1985},
                                         ReadYear{1985, u"86", 1986}, ReadYear{1985, u"99", 1999},
                                         ReadYear{1985, u"10", 1985}, ReadYear{1985, u"79", 1985},
                                         ReadYear{1999, u"0", 1999}, ReadYear{2000, u"0", 2000},
                                         ReadYear{2009, u"1", 2009}, ReadYear{2010, u"1", 2011},
                                         ReadYear{2099, u"10", 2099}, ReadYear{2100, u"10", 2110},
                                         ReadYear{9999, u"1000", 9999},
                                         ReadYear{10000, u"1000", 11000},
                                         ReadYear{32760, u"7", 32767}));

TEST(LeeAnio, YearBeforeTheCurrentOneBecomesTheCurrentOne) {
  const FakeClock clock({2026, 11, 21});
  const auto config = WholeLine(emParamFechaAnio);
  for (int year = 1900; year < 2026; ++year) {
    EXPECT_EQ(LeeAnio(*config, emParamFechaAnio, ToText(year), clock), 2026) << year;
  }
}

TEST(LeeAnio, BeyondSixteenBitsOverflows) {
  const FakeClock clock({2026, 11, 21});
  const auto config = WholeLine(emParamFechaAnio);
  for (const Text& digits : {Text(u"32768"), Text(u"99999"), Text(40, u'9')}) {
    EXPECT_THROW(LeeAnio(*config, emParamFechaAnio, digits, clock), OverflowError) << Ascii(digits);
  }
}

TEST(LeeAnio, CompletedBeyondSixteenBitsOverflows) {
  const auto config = WholeLine(emParamFechaAnio);
  EXPECT_THROW(LeeAnio(*config, emParamFechaAnio, u"8", FakeClock({32760, 1, 1})), OverflowError);
  EXPECT_THROW(LeeAnio(*config, emParamFechaAnio, u"68", FakeClock({32760, 1, 1})), OverflowError);
  EXPECT_THROW(LeeAnio(*config, emParamFechaAnio, u"768", FakeClock({32760, 1, 1})), OverflowError);
  EXPECT_THROW(LeeAnio(*config, emParamFechaAnio, u"2768", FakeClock({32760, 1, 1})),
               OverflowError);
  EXPECT_EQ(LeeAnio(*config, emParamFechaAnio, u"99", FakeClock({32760, 1, 1})), 32760);
  EXPECT_EQ(LeeAnio(*config, emParamFechaAnio, u"32761", FakeClock({32760, 1, 1})), 32761);
}

using DateReader = std::int16_t (*)(clsCfgConmut&, emParamDato, TextView, const Clock&);
constexpr DateReader kDateReaders[] = {LeeAnio, LeeMes, LeeDia};

TEST(DateReaders, WithoutANumericSlotGiveZero) {
  const FakeClock clock;
  for (const DateReader read : kDateReaders) {
    for (const emTipoDato type :
         {emNoDefinido, emValorConstante, emValorCadena, static_cast<emTipoDato>(7)}) {
      EXPECT_EQ(read(*WholeLine(emParamFechaDia, type), emParamFechaDia, u"12", clock), 0) << type;
    }
    EXPECT_EQ(read(*WholeLine(emParamFechaDia), emParamFechaMes, u"12", clock), 0);
    EXPECT_EQ(read(*WholeLine(emParamFechaDia), emNoParamDato, u"12", clock), 0);
  }
  EXPECT_EQ(clock.readings, 0);
}

TEST(DateReaders, DoNotLookAtThePlaceOfATextSlot) {
  const FakeClock clock;
  const auto config = ConfigBuilder().TextItem(emParamFechaDia, 255, 255).Build();
  for (const DateReader read : kDateReaders) {
    EXPECT_EQ(read(*config, emParamFechaDia, u"12", clock), 0);
  }
}

TEST(DateReaders, PositionPlusSizeBeyond255Overflows) {
  const FakeClock clock;
  const auto config = ConfigBuilder().Item(emParamFechaDia, 255, 1).Build();
  for (const DateReader read : kDateReaders) {
    EXPECT_THROW(read(*config, emParamFechaDia, u"12", clock), OverflowError);
  }
}

// A month or day is expected where the slot is defined: today's stands in, not 0.
TEST(DateReaders, BeyondTheLineYearIsZeroWhileMonthAndDayAreTodays) {
  const FakeClock clock({2026, 11, 21});
  const auto config = ConfigBuilder().Item(emParamFechaDia, 20, 2).Build();
  EXPECT_EQ(LeeAnio(*config, emParamFechaDia, u"12", clock), 0);
  EXPECT_EQ(LeeMes(*config, emParamFechaDia, u"12", clock), 11);
  EXPECT_EQ(LeeDia(*config, emParamFechaDia, u"12", clock), 21);
}

TEST(DateReaders, AddressTheirKindAndNoConstant) {
  const FakeClock clock;
  const auto config = WholeLine(emParamFechaDia);
  config->CTEActivo(emDatoCteIdentSaliente);
  for (const DateReader read : kDateReaders) {
    for (const emParamDato kind : {emParamFechaDia, emParamFechaMes, emNoParamDato}) {
      read(*config, kind, u"12", clock);
      EXPECT_EQ(config->DATOActivo(), kind);
    }
  }
  EXPECT_EQ(config->CTEActivo(), emDatoCteIdentSaliente);
}

struct ReadCalendarPart {
  Text digits;
  int month;
  int day;
};

void PrintTo(const ReadCalendarPart& row, std::ostream* out) {
  *out << '[' << Ascii(row.digits) << ']';
}

class LeeMesLeeDia : public testing::TestWithParam<ReadCalendarPart> {};

TEST_P(LeeMesLeeDia, AreTodaysWhenOutOfRange) {
  const ReadCalendarPart& row = GetParam();
  const FakeClock clock({2026, 11, 21});
  EXPECT_EQ(LeeMes(*WholeLine(emParamFechaMes), emParamFechaMes, row.digits, clock), row.month);
  EXPECT_EQ(LeeDia(*WholeLine(emParamFechaDia), emParamFechaDia, row.digits, clock), row.day);
}

INSTANTIATE_TEST_SUITE_P(
    Digits, LeeMesLeeDia,
    testing::Values(ReadCalendarPart{u"1", 1, 1}, ReadCalendarPart{u"7", 7, 7},
                    ReadCalendarPart{u"07", 7, 7}, ReadCalendarPart{u"12", 12, 12},
                    ReadCalendarPart{u"13", 11, 13}, ReadCalendarPart{u"31", 11, 31},
                    ReadCalendarPart{u"32", 11, 21}, ReadCalendarPart{u"00", 11, 21},
                    ReadCalendarPart{u"0", 11, 21}, ReadCalendarPart{u"", 11, 21},
                    ReadCalendarPart{u"  ", 11, 21}, ReadCalendarPart{u"ab", 11, 21},
                    ReadCalendarPart{u"**/**", 11, 21}, ReadCalendarPart{u" 9 ", 9, 9},
                    // Signs and points do not survive in a numeric slot.
                    ReadCalendarPart{u"-3", 3, 3}, ReadCalendarPart{u"1.5", 11, 15},
                    ReadCalendarPart{u"1x2", 12, 12}, ReadCalendarPart{u"32767", 11, 21},
                    ReadCalendarPart{u"0000000000000000000000005", 5, 5}));

TEST(LeeMesLeeDia, BeyondSixteenBitsOverflow) {
  const FakeClock clock;
  for (const Text& digits : {Text(u"32768"), Text(u"65537"), Text(40, u'1')}) {
    EXPECT_THROW(LeeMes(*WholeLine(emParamFechaMes), emParamFechaMes, digits, clock),
                 OverflowError);
    EXPECT_THROW(LeeDia(*WholeLine(emParamFechaDia), emParamFechaDia, digits, clock),
                 OverflowError);
  }
}

TEST(LeeDia, DoesNotKnowTheLengthOfTheMonth) {
  const FakeClock clock({2026, 2, 1});
  EXPECT_EQ(LeeDia(*WholeLine(emParamFechaDia), emParamFechaDia, u"31", clock), 31);
}

}  // namespace
}  // namespace conmuta
