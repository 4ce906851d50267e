// Cutting an item's text out of a line.
#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/config_builder.h"
#include "translate/readers.h"

namespace conmuta {
namespace {

using basConmuta::FieldBuffer;
using basConmuta::LeeDatoTexto;
using test::Ascii;
using test::ConfigBuilder;

constexpr emParamDato kItem = emParamCodigoCuenta;

Text Read(clsCfgConmut& config, TextView line, emParamDato kind = kItem) {
  FieldBuffer buffer;
  return Text(LeeDatoTexto(kind, config, line, buffer));
}

Text Read(int pos, int size, emTipoDato type, TextView line) {
  const auto config = ConfigBuilder().Item(kItem, pos, size, type).Build();
  return Read(*config, line);
}

struct CutField {
  int pos, size;
  emTipoDato type;
  Text line;
  Text text;
};

void PrintTo(const CutField& row, std::ostream* out) {
  *out << row.pos << ',' << row.size << " type " << row.type << " of [" << Ascii(row.line) << "]";
}

class LeeDatoTextoField : public testing::TestWithParam<CutField> {};

TEST_P(LeeDatoTextoField, IsCutAtItsPlace) {
  const CutField& row = GetParam();
  const Text text = Read(row.pos, row.size, row.type, row.line);
  EXPECT_EQ(text, row.text) << "[" << Ascii(text) << "] instead of [" << Ascii(row.text) << "]";
}

INSTANTIATE_TEST_SUITE_P(Text, LeeDatoTextoField,
                         testing::Values(CutField{1, 3, emValorCadena, u"abcdef", u"abc"},
                                         CutField{4, 3, emValorCadena, u"abcdef", u"def"},
                                         CutField{6, 1, emValorCadena, u"abcdef", u"f"},
                                         CutField{1, 6, emValorCadena, u"abcdef", u"abcdef"},
                                         // Past the end of the line.
                                         CutField{4, 4, emValorCadena, u"abcdef", u"def"},
                                         CutField{6, 9, emValorCadena, u"abcdef", u"f"},
                                         CutField{7, 1, emValorCadena, u"abcdef", u""},
                                         CutField{8, 1, emValorCadena, u"abcdef", u""},
                                         CutField{200, 55, emValorCadena, u"abcdef", u""},
                                         CutField{1, 254, emValorCadena, u"abcdef", u"abcdef"},
                                         CutField{1, 5, emValorCadena, u"", u""},
                                         CutField{10, 4, emValorNumerico, u"xxxxxxxxx12:", u"12"},
                                         // Blanks and controls belong to a text.
                                         CutField{2, 5, emValorCadena, u"x  a  x", u"  a  "},
                                         CutField{1, 4, emValorCadena, Text(u"a\0\r\n", 4),
                                                  Text(u"a\0\r\n", 4)},
                                         CutField{1, 3, emValorCadena, Text{0xDC00, 0xD800, u'1'},
                                                  Text{0xDC00, 0xD800, u'1'}}));

INSTANTIATE_TEST_SUITE_P(Digits, LeeDatoTextoField,
                         testing::Values(CutField{1, 5, emValorNumerico, u"12:05", u"1205"},
                                         CutField{1, 8, emValorNumerico, u" -1.5e3 ", u"153"},
                                         CutField{1, 8, emValorNumerico, u"+00 42", u"0042"},
                                         CutField{1, 4, emValorNumerico, u"abcd", u""},
                                         CutField{1, 4, emValorNumerico, u"    ", u""},
                                         CutField{3, 4, emValorNumerico, u"99a1b2c3", u"12"},
                                         CutField{1, 5, emValorNumerico, u"1٣２²5", u"15"},
                                         CutField{1, 4, emValorNumerico, Text(u"1\0002\0", 4),
                                                  u"12"}));

// Only the numeric type drops anything, whatever the other codes are.
INSTANTIATE_TEST_SUITE_P(
    OtherTypes, LeeDatoTextoField,
    testing::Values(CutField{1, 5, emValorConstante, u"12:05", u"12:05"},
                    CutField{1, 5, static_cast<emTipoDato>(4), u"12:05", u"12:05"},
                    CutField{1, 5, static_cast<emTipoDato>(-1), u"12:05", u"12:05"}));

TEST(LeeDatoTexto, WithoutSlotIsEmpty) {
  const auto config = ConfigBuilder().TextItem(kItem, 1, 5).Build();
  for (const int kind : {-1, 0, 1, 16, 18, 54, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(Read(*config, u"12345", static_cast<emParamDato>(kind)), u"") << kind;
    EXPECT_EQ(config->DATOActivo(), kind);
  }
}

TEST(LeeDatoTexto, OfAReleasedSlotIsEmptyWhateverItHolds) {
  const auto config = ConfigBuilder().Item(kItem, 1, 5, emNoDefinido).Build();
  EXPECT_EQ(Read(*config, u"12345"), u"");
  test::DefineItem(*config, kItem, 255, 255, emNoDefinido);
  EXPECT_EQ(Read(*config, u"12345"), u"");
  test::DefineItem(*config, kItem, 1, 5);
  EXPECT_EQ(Read(*config, u"12345"), u"12345");
  config->DATOTam(0);
  EXPECT_EQ(Read(*config, u"12345"), u"");
  config->DATOTam(5);
  config->DATOPos(0);
  EXPECT_EQ(Read(*config, u"12345"), u"");
}

TEST(LeeDatoTexto, PositionPlusSizeBeyond255Overflows) {
  for (const auto& [pos, size] :
       {std::pair(1, 255), std::pair(255, 1), std::pair(200, 56), std::pair(255, 255)}) {
    for (const emTipoDato type : {emValorNumerico, emValorCadena}) {
      for (const Text& line : {Text(), Text(u"123"), Text(600, u'7')}) {
        EXPECT_THROW(Read(pos, size, type, line), OverflowError) << pos << ',' << size;
      }
    }
  }
}

TEST(LeeDatoTexto, PositionPlusSizeOf255IsRead) {
  Text line(300, u'x');
  line[253] = u'7';
  EXPECT_EQ(Read(254, 1, emValorCadena, line), u"7");
  EXPECT_EQ(Read(1, 254, emValorCadena, line), line.substr(0, 254));
  EXPECT_EQ(Read(200, 55, emValorNumerico, line), u"7");
  EXPECT_EQ(Read(1, 254, emValorNumerico, Text(300, u'8')), Text(254, u'8'));
}

TEST(LeeDatoTexto, AddressesItsKindAndChangesNothingElse) {
  struct Events final : ConfigListener {
    void Cambios() override { ++count; }
    int count = 0;
  } events;
  const auto config = ConfigBuilder().TextItem(kItem, 2, 3).Build();
  config->Listen(&events);
  config->CTEActivo(emDatoCteIdentEntrante);
  config->DATOActivo(emNoParamDato);
  Read(*config, u"12345");
  EXPECT_EQ(config->DATOActivo(), kItem);
  EXPECT_EQ(config->CTEActivo(), emDatoCteIdentEntrante);
  EXPECT_EQ(config->DATOPos(), 2);
  EXPECT_EQ(config->DATOTam(), 3);
  EXPECT_EQ(config->TipoDatoDATO(), emValorCadena);
  EXPECT_EQ(events.count, 0);
}

TEST(DigitsOf, KeepsAsManyAsTheBufferHolds) {
  FieldBuffer buffer;
  EXPECT_EQ(TextView(buffer = DigitsOf{Text(255, u'1') + u"2"}), Text(255, u'1'));
  EXPECT_EQ(TextView(buffer = DigitsOf{Text(1000, u'x') + u"2"}), u"2");
  EXPECT_EQ(TextView(buffer = DigitsOf{u""}), u"");
}

}  // namespace
}  // namespace conmuta
