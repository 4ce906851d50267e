#include "config/exchange_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/fake_code_pages.h"

namespace conmuta::basConmuta {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

using test::kLatin1;
constexpr WiringMask kMost = std::numeric_limits<WiringMask>::max();
constexpr WiringMask kLeast = std::numeric_limits<WiringMask>::min();

TEST(ListaPinesACadena, WritesTheEntriesFromPinOne) {
  const std::array<WiringMask, 4> table = {99, 0, 4, 3};
  EXPECT_EQ(ListaPinesACadena(table, 3), u"0,4,3,");
  EXPECT_EQ(ListaPinesACadena(table, 2), u"0,4,");
}

TEST(ListaPinesACadena, WritesAnyMask) {
  const std::array<WiringMask, 5> table = {0, 1 << 24, kMost, -1, kLeast};
  EXPECT_EQ(ListaPinesACadena(table, 4), u"16777216,2147483647,-1,-2147483648,");
}

struct PinListCase {
  const char* name;
  Text text;
  std::array<WiringMask, 4> pins;
};

void PrintTo(const PinListCase& row, std::ostream* out) {
  *out << test::Ascii(row.text);
}

class PinList : public testing::TestWithParam<PinListCase> {};

TEST_P(PinList, FillsTheEntriesFromPinOne) {
  std::array<WiringMask, 6> table = {70, 71, 72, 73, 74, 75};
  CadenaAListaPines(GetParam().text, table, 4);
  const auto& pins = GetParam().pins;
  EXPECT_THAT(table, ElementsAre(70, pins[0], pins[1], pins[2], pins[3], 75));
}

INSTANTIATE_TEST_SUITE_P(
    , PinList,
    testing::Values(
        PinListCase{"AsWritten", u"1,2,4,8,", {1, 2, 4, 8}},
        PinListCase{"WithoutACommaAtTheEnd", u"1,2,4,8", {1, 2, 4, 8}},
        PinListCase{"Nothing", u"", {0, 0, 0, 0}}, PinListCase{"TooFew", u"1,2", {1, 2, 0, 0}},
        PinListCase{"TooMany", u"1,2,4,8,16,32,", {1, 2, 4, 8}},
        PinListCase{"EvenOverflowingOnesTooMany", u"1,2,4,8,9999999999,", {1, 2, 4, 8}},
        PinListCase{"EmptyPieces", u",2,,8", {0, 2, 0, 8}},
        PinListCase{"NoNumbers", u"x,1e1,&H1,8", {0, 0, 0, 8}},
        PinListCase{
            "TenCharacters", u"2147483647,0000000005,       7.5,+000000006", {kMost, 5, 8, 6}},
        PinListCase{"ElevenCharactersCountAsNothing",
                    u"02147483647,00000000005,1.000000000,8",
                    {0, 0, 0, 8}},
        PinListCase{"LeastMaskIsTooLong", u"-2147483648,1,2,3", {0, 1, 2, 3}},
        PinListCase{"HundredsOfDigitsCountAsNothing", Text(400, u'9') + u",2,4,8", {0, 2, 4, 8}},
        PinListCase{"Negative", u"-1,-999999999,4,8", {-1, -999999999, 4, 8}},
        PinListCase{"BeyondThePinsOfTheConnector", u"1073741824,2,4,8", {1 << 30, 2, 4, 8}},
        PinListCase{"Fractions", u"1.5,2.5,.4,-.6", {2, 2, 0, -1}},
        PinListCase{"Blanks", u" 1 ,  2,4  , ", {1, 2, 4, 0}}),
    [](const auto& info) { return info.param.name; });

TEST(CadenaAListaPines, RaisesBeyond32BitsWithThePinsBeforeFilled) {
  for (const TextView number : {u"2147483648", u"9999999999"}) {
    std::array<WiringMask, 5> table = {70, 71, 72, 73, 74};
    EXPECT_THROW(CadenaAListaPines(Text(u"1,2,").append(number).append(u",8,"), table, 4),
                 OverflowError);
    EXPECT_THAT(table, ElementsAre(70, 1, 2, 73, 74));
  }
}

TEST(DATOACadena, WritesTheFourNumbers) {
  EXPECT_EQ(DATOACadena({emParamFechaDia, emValorCadena, 5, 2}), u"2,3,5,2,");
  EXPECT_EQ(DATOACadena({static_cast<emParamDato>(-7), static_cast<emTipoDato>(kMost), 0, 255}),
            u"-7,2147483647,0,255,");
}

CTE MakeConstant(TextView text) {
  CTE slot{emDatoCteIdentEntranteAND, emValorConstante, 1, 3, {}};
  slot.Constante.Assign(text);
  return slot;
}

TEST(CTEACadena, WritesTheNumbersAndTwentyCodes) {
  EXPECT_EQ(CTEACadena(kLatin1, MakeConstant(u"ABC                 ")),
            u"5,2,1,3,$(65,66,67,32,32,32,32,32,32,32,32,32,32,32,32,32,32,32,32,32,)");
  EXPECT_EQ(CTEACadena(kLatin1, MakeConstant(u"A\0\u00FF\u4E2D"s)),
            u"5,2,1,3,$(65,0,255,63,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,)");
}

struct DatoLineCase {
  const char* name;
  Text line;
  std::array<int, 4> numbers;  // as the slot has them
};

void PrintTo(const DatoLineCase& row, std::ostream* out) {
  *out << test::Ascii(row.line);
}

class ValidDatoLine : public testing::TestWithParam<DatoLineCase> {};

TEST_P(ValidDatoLine, IsRead) {
  const auto slot = CadenaADATO(GetParam().line);
  ASSERT_TRUE(slot);
  EXPECT_THAT(GetParam().numbers, ElementsAre(slot->Param, slot->TipoDato, slot->Pos, slot->Tam));
}

INSTANTIATE_TEST_SUITE_P(
    , ValidDatoLine,
    testing::Values(DatoLineCase{"LowerBounds", u"2,1,1,1,", {2, 1, 1, 1}},
                    DatoLineCase{"UpperBounds", u"53,3,255,255,", {53, 3, 255, 255}},
                    DatoLineCase{"WithoutACommaAtTheEnd", u"2,1,1,9", {2, 1, 1, 9}},
                    DatoLineCase{"MoreBehindIt", u"2,1,1,9,x,$(", {2, 1, 1, 9}},
                    DatoLineCase{"BlanksAndSigns", u" 2 ,+1, 01,  9", {2, 1, 1, 9}},
                    DatoLineCase{"LeadingNoughts", Text(400, u'0') + u"2,1,1,9", {2, 1, 1, 9}},
                    DatoLineCase{"FractionsRoundToEven", u"1.5,2.5,254.5,.6", {2, 2, 254, 1}}),
    [](const auto& info) { return info.param.name; });

const Text kInvalidLines[] = {
    u"",
    u",,,",
    u"2",
    u"2,1",
    u"2,1,1",
    u"2,1,1,",
    u"x",  // missing
    u"1,1,1,1,",
    u"54,1,1,1,",
    u"0,1,1,1,",
    u"-2,1,1,1,",
    u"53.5,1,1,1,",
    u",1,1,1,",  // kind
    u"2,0,1,1,",
    u"2,4,1,1,",
    u"2,-1,1,1,",
    u"2,,1,1,",
    u"2,3.6,1,1,",  // type
    u"2,1,0,1,",
    u"2,1,256,1,",
    u"2,1,-1,1,",
    u"2,1,,1,",
    u"2,1,255.6,1,",  // position
    u"2,1,1,0,",
    u"2,1,1,256,",
    u"2,1,1,-1,",
    u"2,1,1,x,",
    u"2,1,1,.5,",  // size
    u"2;1;1;1",
    u"2 1 1 1",
    u"1e1,1,1,1,",
    u"&H10,1,1,1,",
    u"2,1,1,1e2,",
    u"2,1,1,&H10",  // form
    u"4294967298,1,1,1,",
    u"2,4294967297,1,1,",
    u"2,1,257,1,",
    u"2,1,1,257,",  // width
    u"18446744073709551618,1,1,1,",
    Text(400, u'9') + u",1,1,1,",
    u"2,1,1," + Text(400, u'9'),
    u"-" + Text(400, u'9') + u",1,1,1,",
};

TEST(CadenaADATO, RefusesWhatIsOutOfBounds) {
  for (const Text& line : kInvalidLines) EXPECT_FALSE(CadenaADATO(line)) << test::Ascii(line);
}

TEST(CadenaACTE, RefusesTheSameNumbers) {
  for (const Text& line : kInvalidLines) {
    EXPECT_FALSE(CadenaACTE(kLatin1, line + u",$(65,66,)")) << test::Ascii(line);
  }
}

struct CteLineCase {
  const char* name;
  Text line;
  Text text;
};

void PrintTo(const CteLineCase& row, std::ostream* out) {
  *out << test::Ascii(row.line);
}

class ValidCteLine : public testing::TestWithParam<CteLineCase> {};

TEST_P(ValidCteLine, IsRead) {
  const auto slot = CadenaACTE(kLatin1, GetParam().line);
  ASSERT_TRUE(slot);
  FixedText<20> expected;
  expected.Assign(GetParam().text);
  EXPECT_EQ(Text(slot->Constante.Raw()), Text(expected.Raw()));
}

INSTANTIATE_TEST_SUITE_P(
    , ValidCteLine,
    testing::Values(CteLineCase{"Short", u"5,2,1,3,$(65,66,67,)", u"ABC"},
                    CteLineCase{"TwoCharactersOfList", u"5,2,1,3,$(65)", u"A"},
                    CteLineCase{"NothingButCommas", u"5,2,1,3,$(,,)", u""},
                    CteLineCase{"MoreThanTwenty",
                                u"5,2,1,3,$(" +
                                    [] {
                                      Text codes;
                                      for (int i = 0; i < 25; ++i) codes += ToText(65 + i) + u",";
                                      return codes;
                                    }() +
                                    u")",
                                u"ABCDEFGHIJKLMNOPQRST"},
                    CteLineCase{"NulsAreKept", u"5,2,1,3,$(65,0,66,)", u"A\0B"s},
                    CteLineCase{"Code255IsLeftOut", u"5,2,1,3,$(65,255,66,)", u"AB"},
                    CteLineCase{"NestedList", u"5,2,1,3,$($(65,66,)", u"B"},
                    CteLineCase{"SecondListIsPassedOver", u"5,2,1,3,$(65,66,)$(67,68,)", u"AB"},
                    CteLineCase{"MoreBehindIt", u"5,2,1,3,$(65,66,)x", u"AB"},
                    CteLineCase{"TextBeforeTheList", u"5,2,1,3,9,x$(65,66,)", u"AB"},
                    CteLineCase{"DollarSignsBeforeTheList", u"5,2,1,3,$$(65,66,)", u"AB"}),
    [](const auto& info) { return info.param.name; });

TEST(CadenaACTE, ReadsTheNumbers) {
  const auto slot = CadenaACTE(kLatin1, u"53,3,255,254,$(65,66,)");
  ASSERT_TRUE(slot);
  EXPECT_EQ(slot->Param, 53);  // beyond the kinds of constants
  EXPECT_EQ(slot->TipoDato, 3);
  EXPECT_EQ(slot->Pos, 255);
  EXPECT_EQ(slot->Tam, 254);
}

TEST(CadenaACTE, RefusesALineWithoutItsList) {
  for (const TextView line :
       {u"5,2,1,3,", u"5,2,1,3,65,66,", u"5,2,1,3,$(65,66,", u"5,2,1,3,65,66,)",
        u"5,2,1,3,(65,66,)", u"5,2,1,3,$ (65,66,)", u"5,2,1,3,$()", u"5,2,1,3,$(6)",
        u"5,2,1,3$(65,66,)", u"5,2,1,3,)$(65,66,)", u"5,2,1,3),$(65,66,)", u"5,2,1,3,)$(",
        u"5,2,1,3,$)(65,66,"}) {
    EXPECT_FALSE(CadenaACTE(kLatin1, line)) << test::Ascii(line);
  }
}

}  // namespace
}  // namespace conmuta::basConmuta
