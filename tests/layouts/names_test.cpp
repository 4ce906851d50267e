#include "layouts/names.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>

#include "platform/unicode.h"
#include "support/source_files.h"

namespace conmuta::layouts {
namespace {

// The enumerators that begin with a prefix, as the header has them, without it.
std::map<Text, int> Enumerators(const std::string& prefix) {
  const std::string header = test::ReadWhole(CONMUTA_SOURCES "/src/config/enums.h");
  const std::regex row("\n  " + prefix + "(\\w+) = (\\d+),");
  std::map<Text, int> found;
  for (auto i = std::sregex_iterator(header.begin(), header.end(), row);
       i != std::sregex_iterator(); ++i) {
    found[FromUtf8((*i)[1].str())] = std::stoi((*i)[2].str());
  }
  return found;
}

template <class Code>
std::map<Text, int> Words(std::span<const TextView> names, std::optional<Code> find(TextView)) {
  std::map<Text, int> words;
  for (const TextView name : names) {
    words[Text(name)] = find(name).value();
    EXPECT_EQ(NameOf(*find(name)), name);
  }
  return words;
}

TEST(LayoutNames, ItemsAreAllTheEnumerators) {
  const auto items = Enumerators("emParam");
  EXPECT_EQ(items.size(), 52u);
  EXPECT_EQ(Words(ItemNames(), FindItem), items);
}

TEST(LayoutNames, ConstantsAreAllTheEnumerators) {
  const auto constants = Enumerators("emDatoCte");
  EXPECT_EQ(constants.size(), 22u);
  EXPECT_EQ(Words(ConstantNames(), FindConstant), constants);
}

TEST(LayoutNames, CasesAreAllTheEnumerators) {
  EXPECT_EQ(Words(CaseNames(), FindCase), Enumerators("emCaso"));
}

TEST(LayoutNames, TypesAndPairsHaveTheirCodes) {
  EXPECT_EQ(Words(TypeNames(), FindType), (std::map<Text, int>{{u"numerico", emValorNumerico},
                                                               {u"constante", emValorConstante},
                                                               {u"cadena", emValorCadena}}));
  EXPECT_EQ(Words(PairNames(), FindPair),
            (std::map<Text, int>{{u"DB9-DB9", emPuertoSerialDB9DB9},
                                 {u"DB9-DB25", emPuertoSerialDB9DB25},
                                 {u"DB25-DB9", emPuertoSerialDB25DB9},
                                 {u"DB25-DB25", emPuertoSerialDB25DB25}}));
}

// A drawing names both kinds in one place.
TEST(LayoutNames, NoNameIsBothAnItemAndAConstant) {
  for (const TextView name : ItemNames())
    EXPECT_FALSE(FindConstant(name)) << testing::PrintToString(Text(name));
}

TEST(LayoutNames, CodesWithoutAWordHaveNone) {
  for (const int code : {-1, 0, 1, 54, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(NameOf(static_cast<emParamDato>(code)), u"") << code;
  }
  for (const int code : {-1, 0, 1, 24, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(NameOf(static_cast<emParamDatoConstante>(code)), u"") << code;
  }
  for (const int code : {-1, 0, 6, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(NameOf(static_cast<emCasos>(code)), u"") << code;
    EXPECT_EQ(NameOf(static_cast<emTipoDato>(code)), u"") << code;
    EXPECT_EQ(NameOf(static_cast<emPuertoSerial>(code)), u"") << code;
  }
}

TEST(LayoutNames, LetterCaseCounts) {
  EXPECT_FALSE(FindItem(u"fechames"));
  EXPECT_FALSE(FindItem(u""));
}

}  // namespace
}  // namespace conmuta::layouts
