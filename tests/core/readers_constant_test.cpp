// Whether a constant stands at its place in a line.
#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <utility>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/config_builder.h"
#include "translate/readers.h"

namespace conmuta {
namespace {

using basConmuta::VerificaConstante;
using test::Ascii;
using test::ConfigBuilder;

constexpr emParamDatoConstante kConstant = emDatoCteIdentEntrante;

struct ConstantInLine {
  int pos;
  Text constant;
  Text line;
  bool stands;
};

void PrintTo(const ConstantInLine& row, std::ostream* out) {
  *out << '[' << Ascii(row.constant) << "] at " << row.pos << " of [" << Ascii(row.line) << ']';
}

class VerificaConstanteText : public testing::TestWithParam<ConstantInLine> {};

TEST_P(VerificaConstanteText, IsComparedCharacterByCharacter) {
  const ConstantInLine& row = GetParam();
  const auto config = ConfigBuilder().Constant(kConstant, row.pos, row.constant).Build();
  EXPECT_EQ(VerificaConstante(kConstant, *config, row.line), row.stands);
}

INSTANTIATE_TEST_SUITE_P(Places, VerificaConstanteText,
                         testing::Values(ConstantInLine{1, u"IN", u"IN 205", true},
                                         ConstantInLine{4, u"205", u"IN 205", true},
                                         ConstantInLine{5, u"205", u"IN 205", false},
                                         ConstantInLine{4, u"2054", u"IN 205", false},
                                         ConstantInLine{6, u"5", u"IN 205", true},
                                         ConstantInLine{7, u"5", u"IN 205", false},
                                         ConstantInLine{200, u"5", u"IN 205", false},
                                         ConstantInLine{1, u"I", u"", false},
                                         ConstantInLine{1, u"IN", u"I", false}));

INSTANTIATE_TEST_SUITE_P(Texts, VerificaConstanteText,
                         testing::Values(ConstantInLine{1, u"IN", u"in 205", false},
                                         ConstantInLine{1, u"in", u"IN 205", false},
                                         ConstantInLine{1, u"Ñ", u"ñ", false},
                                         ConstantInLine{1, u"ñ", u"ñ", true},
                                         // Blanks count, on both sides.
                                         ConstantInLine{1, u" ", u" ", true},
                                         ConstantInLine{1, u"IN ", u"IN", false},
                                         ConstantInLine{1, u"IN ", u"INX", false},
                                         ConstantInLine{1, u" IN", u"IN ", false},
                                         ConstantInLine{1, Text{0xD800}, Text{0xD800}, true},
                                         ConstantInLine{1, Text{0xD800}, Text{0xD801}, false}));

INSTANTIATE_TEST_SUITE_P(
    Widths, VerificaConstanteText,
    testing::Values(ConstantInLine{1, u"abcdefghijklmnopqrst", u"abcdefghijklmnopqrst", true},
                    // What exceeds 20 characters is not looked at.
                    ConstantInLine{1, u"abcdefghijklmnopqrstUVWXY", u"abcdefghijklmnopqrst", true},
                    ConstantInLine{1, u"abcdefghijklmnopqrstUVWXY", u"abcdefghijklmnopqrstuvwxy",
                                   true},
                    // NULs of a constant are no characters of it; those of a line are.
                    ConstantInLine{1, Text(u"A\0B", 3), u"AB", true},
                    ConstantInLine{1, Text(u"\0\0AB", 4), u"AB", true},
                    ConstantInLine{1, Text(u"A\0B", 3), Text(u"A\0B", 3), false},
                    ConstantInLine{1, u"AB", Text(u"A\0B", 3), false}));

TEST(VerificaConstante, WithoutSlotIsFalse) {
  const auto config = ConfigBuilder().Constant(kConstant, 1, u"A").Build();
  for (const int kind : {-1, 0, 1, 3, 5, 24, std::numeric_limits<int>::max()}) {
    EXPECT_FALSE(VerificaConstante(static_cast<emParamDatoConstante>(kind), *config, u"A")) << kind;
    EXPECT_EQ(config->CTEActivo(), kind);
  }
}

TEST(VerificaConstante, OfAReleasedSlotIsFalse) {
  const auto config = ConfigBuilder().Constant(kConstant, 1, u"A").Build();
  ASSERT_TRUE(VerificaConstante(kConstant, *config, u"A"));
  config->Constante(u"");
  EXPECT_FALSE(VerificaConstante(kConstant, *config, u"A"));
  EXPECT_FALSE(VerificaConstante(kConstant, *config, u""));
  config->Constante(u"A");
  config->CTEPos(0);
  EXPECT_FALSE(VerificaConstante(kConstant, *config, u"A"));
}

// Hosts can write a size that is not the constant's: then as many characters are compared.
TEST(VerificaConstante, OfAnotherSizeThanItsTextIsFalse) {
  const auto config = ConfigBuilder().Constant(kConstant, 1, u"AB").Build();
  for (const int size : {0, 1, 3, 20}) {
    config->CTETam(static_cast<std::uint8_t>(size));
    ASSERT_TRUE(config->HayCTE());
    EXPECT_FALSE(VerificaConstante(kConstant, *config, u"AB")) << size;
    EXPECT_FALSE(VerificaConstante(kConstant, *config, u"ABCDEFGHIJKLMNOPQRSTUVWXYZ")) << size;
    EXPECT_FALSE(VerificaConstante(kConstant, *config, u"")) << size;
  }
  config->CTETam(2);
  EXPECT_TRUE(VerificaConstante(kConstant, *config, u"AB"));
}

TEST(VerificaConstante, PositionPlusSizeBeyond255Overflows) {
  const auto config = ConfigBuilder().Constant(kConstant, 1, u"A").Build();
  for (const auto& [pos, size] : {std::pair(255, 1), std::pair(1, 255), std::pair(235, 21)}) {
    config->CTEPos(static_cast<std::uint8_t>(pos));
    config->CTETam(static_cast<std::uint8_t>(size));
    for (const Text& line : {Text(), Text(u"A"), Text(600, u'A')}) {
      EXPECT_THROW(VerificaConstante(kConstant, *config, line), OverflowError)
          << pos << ',' << size;
    }
  }
}

TEST(VerificaConstante, PositionPlusSizeOf255IsCompared) {
  const auto config = ConfigBuilder().Constant(kConstant, 254, u"A").Build();
  EXPECT_TRUE(VerificaConstante(kConstant, *config, Text(254, u'A')));
  EXPECT_FALSE(VerificaConstante(kConstant, *config, Text(253, u'A')));
  config->CTEPos(255);
  config->CTETam(0);
  EXPECT_FALSE(VerificaConstante(kConstant, *config, Text(300, u'A')));
}

TEST(VerificaConstante, AddressesItsKindAndChangesNothingElse) {
  const auto config = ConfigBuilder().Constant(kConstant, 3, u"AB").Build();
  config->DATOActivo(emParamFechaMes);
  config->CTEActivo(emNoParamDatoConstante);
  EXPECT_TRUE(VerificaConstante(kConstant, *config, u"  AB"));
  EXPECT_EQ(config->CTEActivo(), kConstant);
  EXPECT_EQ(config->DATOActivo(), emParamFechaMes);
  EXPECT_EQ(config->CTEPos(), 3);
  EXPECT_EQ(config->CTETam(), 2);
  EXPECT_EQ(config->Constante(), u"AB");
}

}  // namespace
}  // namespace conmuta
