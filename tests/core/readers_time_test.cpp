// Reading hours, minutes and seconds.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/config_builder.h"
#include "translate/readers.h"

namespace conmuta {
namespace {

using basConmuta::LeeHoras;
using basConmuta::LeeMinutos;
using basConmuta::LeeSegundos;
using test::Ascii;
using test::ConfigBuilder;

constexpr emParamDato kKind = emParamRingHoras;

std::unique_ptr<clsCfgConmut> WholeLine(emTipoDato type) {
  return ConfigBuilder().Item(kKind, 1, 60, type).Build();
}

struct ReadTime {
  emTipoDato type;
  Text text;
  int hours;
};

void PrintTo(const ReadTime& row, std::ostream* out) {
  *out << '[' << Ascii(row.text) << "] type " << row.type;
}

class TimeReaders : public testing::TestWithParam<ReadTime> {};

TEST_P(TimeReaders, ReadWhatIsANumberAndCutMinutesAndSecondsTo59) {
  const ReadTime& row = GetParam();
  const auto config = WholeLine(row.type);
  EXPECT_EQ(LeeHoras(*config, kKind, row.text), row.hours);
  EXPECT_EQ(LeeMinutos(*config, kKind, row.text), std::min(row.hours, 59));
  EXPECT_EQ(LeeSegundos(*config, kKind, row.text), std::min(row.hours, 59));
}

INSTANTIATE_TEST_SUITE_P(
    InTexts, TimeReaders,
    testing::Values(ReadTime{emValorCadena, u"7", 7}, ReadTime{emValorCadena, u" 07 ", 7},
                    ReadTime{emValorCadena, u"59", 59}, ReadTime{emValorCadena, u"60", 60},
                    ReadTime{emValorCadena, u"75", 75}, ReadTime{emValorCadena, u"+3", 3},
                    ReadTime{emValorCadena, u"-3", 0}, ReadTime{emValorCadena, u"-0.4", 0},
                    ReadTime{emValorCadena, u"1.", 1}, ReadTime{emValorCadena, u".5", 0},
                    ReadTime{emValorCadena, u"0.5", 0}, ReadTime{emValorCadena, u".51", 1},
                    ReadTime{emValorCadena, u"1.5", 2}, ReadTime{emValorCadena, u"2.5", 2},
                    ReadTime{emValorCadena, u"59.5", 60},
                    ReadTime{emValorCadena, u"2147483647", 2147483647},
                    ReadTime{emValorCadena, u"2147483647.4", 2147483647},
                    ReadTime{emValorCadena, u"-2147483648", 0},
                    ReadTime{emValorCadena, u"000000000000000000000000000009", 9},
                    ReadTime{emValorConstante, u" 1.5 ", 2},
                    ReadTime{static_cast<emTipoDato>(9), u"-3", 0}));

INSTANTIATE_TEST_SUITE_P(
    NotNumbers, TimeReaders,
    testing::Values(ReadTime{emValorCadena, u"", 0}, ReadTime{emValorCadena, u"  ", 0},
                    ReadTime{emValorCadena, u"ab", 0}, ReadTime{emValorCadena, u"5x", 0},
                    ReadTime{emValorCadena, u"12:05", 0}, ReadTime{emValorCadena, u"1,5", 0},
                    ReadTime{emValorCadena, u"1e3", 0}, ReadTime{emValorCadena, u"&H10", 0},
                    ReadTime{emValorCadena, u"$5", 0}, ReadTime{emValorCadena, u"3-", 0},
                    ReadTime{emValorCadena, u"- 3", 0}, ReadTime{emValorCadena, u".", 0},
                    ReadTime{emValorCadena, u"1 2", 0}, ReadTime{emValorCadena, u"\t5", 0},
                    ReadTime{emValorCadena, u"٣", 0}, ReadTime{emValorCadena, Text(u"5\0", 2), 0}));

INSTANTIATE_TEST_SUITE_P(
    InDigits, TimeReaders,
    testing::Values(ReadTime{emValorNumerico, u"75", 75}, ReadTime{emValorNumerico, u"12:05", 1205},
                    ReadTime{emValorNumerico, u"-3", 3}, ReadTime{emValorNumerico, u"1.5", 15},
                    ReadTime{emValorNumerico, u"5m", 5}, ReadTime{emValorNumerico, u"ab", 0},
                    ReadTime{emValorNumerico, u"", 0},
                    ReadTime{emValorNumerico, u"2147483647", 2147483647}));

TEST(TimeReadersBeyond32Bits, OverflowBeforeAnyCut) {
  const auto text = WholeLine(emValorCadena);
  const auto digits = WholeLine(emValorNumerico);
  for (const auto read : {LeeHoras, LeeMinutos, LeeSegundos}) {
    for (const Text& beyond : {Text(u"2147483648"), Text(u"2147483647.5"), Text(u"-2147483649"),
                               Text(60, u'9'), Text(u"-") + Text(59, u'9')}) {
      EXPECT_THROW(read(*text, kKind, beyond), OverflowError) << Ascii(beyond);
    }
    EXPECT_THROW(read(*digits, kKind, u"21474:83648"), OverflowError);
  }
}

TEST(TimeReadersWithoutSlot, GiveZero) {
  const auto config = WholeLine(emNoDefinido);
  for (const auto read : {LeeHoras, LeeMinutos, LeeSegundos}) {
    EXPECT_EQ(read(*config, kKind, u"12"), 0);
    EXPECT_EQ(read(*config, emParamFechaHoras, u"12"), 0);
    EXPECT_EQ(config->DATOActivo(), emParamFechaHoras);
    EXPECT_EQ(read(*config, emUltimoParamDato, u"12"), 0);
  }
}

TEST(TimeReadersAtBadPlaces, OverflowOrReadNothing) {
  const auto overflowing = ConfigBuilder().TextItem(kKind, 250, 6).Build();
  const auto beyond_line = ConfigBuilder().Item(kKind, 250, 5).Build();
  for (const auto read : {LeeHoras, LeeMinutos, LeeSegundos}) {
    EXPECT_THROW(read(*overflowing, kKind, u"12"), OverflowError);
    EXPECT_EQ(read(*beyond_line, kKind, u"12"), 0);
  }
}

}  // namespace
}  // namespace conmuta
