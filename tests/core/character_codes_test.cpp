#include "config/character_codes.h"

#include <gtest/gtest.h>

#include "support/call_values.h"
#include "support/fake_code_pages.h"

namespace conmuta::basConmuta {
namespace {

using namespace std::string_literals;

using test::kLatin1;

TEST(CadenaACodigos, WritesAsManyCodesAsAskedFor) {
  EXPECT_EQ(CadenaACodigos(kLatin1, u"\r\n", 10), u"13,10,0,0,0,0,0,0,0,0,");
  EXPECT_EQ(CadenaACodigos(kLatin1, u"", 3), u"0,0,0,");
  EXPECT_EQ(CadenaACodigos(kLatin1, u"ABC", 3), u"65,66,67,");
  EXPECT_EQ(CadenaACodigos(kLatin1, u"ABC", 2), u"65,66,");
  EXPECT_EQ(CadenaACodigos(kLatin1, u"ABC", 0), u"");
}

TEST(CadenaACodigos, WritesNulsAndEveryCode) {
  EXPECT_EQ(CadenaACodigos(kLatin1, u"A\0B"s, 4), u"65,0,66,0,");
  EXPECT_EQ(CadenaACodigos(kLatin1, u"\u00F1\u00FF", 2), u"241,255,");
  EXPECT_EQ(CadenaACodigos(kLatin1, u"\u4E2D", 1), u"63,");
}

struct ListCase {
  const char* name;
  Text list;
  Text text;
};

void PrintTo(const ListCase& row, std::ostream* out) {
  *out << test::Ascii(row.list);
}

class CodigosACadenaReads : public testing::TestWithParam<ListCase> {};

TEST_P(CodigosACadenaReads, Text) {
  EXPECT_EQ(CodigosACadena(kLatin1, GetParam().list), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , CodigosACadenaReads,
    testing::Values(ListCase{"Nothing", u"", u""}, ListCase{"OnlyCommas", u",,,", u""},
                    ListCase{"LineBreak", u"13,10,", u"\r\n"},
                    ListCase{"WithoutACommaAtTheEnd", u"13,10", u"\r\n"},
                    ListCase{"NulsAreKept", u"13,0,10,0,", u"\r\0\n\0"s},
                    ListCase{"LastCode", u"254,", u"\u00FE"},
                    ListCase{"Code255IsLeftOut", u"65,255,66,", u"AB"},
                    ListCase{"BeyondAByteIsLeftOut", u"65,256,999,66,", u"AB"},
                    ListCase{"FourCharactersAreLeftOut", u"65,0066,67,1000,", u"AC"},
                    ListCase{"ThreeCharactersAreNot", u"065,066,", u"AB"},
                    ListCase{"BlanksCountAmongTheThree", u" 65, 066,6 ,", u"A\6"},
                    ListCase{"NegativeIsLeftOut", u"-1,-65,65,", u"A"},
                    ListCase{"NegativeNothingIsNothing", u"-0,-.1,", u"\0\0"s},
                    ListCase{"PlusSign", u"+65,", u"A"},
                    ListCase{"FractionsRoundToEven", u"1.5,2.5,.5,.6,9.,", u"\2\2\0\1\t"s},
                    ListCase{"NoNumbersAreLeftOut", u"x,1e1,&H1,6 5,.,-,+,65,", u"A"},
                    ListCase{"EmptyPiecesAreLeftOut", u",65,,66,", u"AB"},
                    ListCase{"OtherSeparatorsAreNone", u"65;66,67", u"C"}),
    [](const auto& info) { return info.param.name; });

TEST(CodigosACadena, ReadsAnyNumberOfCodes) {
  Text list;
  for (int i = 0; i < 100'000; ++i) list += u"65,";
  EXPECT_EQ(CodigosACadena(kLatin1, list), Text(100'000, u'A'));
  EXPECT_EQ(CodigosACadena(kLatin1, Text(100'000, u'6')), u"");
}

TEST(CodigosACadena, ReadsBackWhatWasWrittenBut255) {
  for (int code = 0; code <= 255; ++code) {
    const Text text(1, static_cast<char16_t>(code));
    EXPECT_EQ(CodigosACadena(kLatin1, CadenaACodigos(kLatin1, text, 1)),
              code == 255 ? Text() : text)
        << code;
  }
}

}  // namespace
}  // namespace conmuta::basConmuta
