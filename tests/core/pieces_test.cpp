#include "platform/pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace conmuta {
namespace {

using testing::ElementsAre;

std::vector<Text> AllPieces(TextView text) {
  std::vector<Text> all;
  for (Pieces pieces(text); const auto piece = pieces.Next();) all.emplace_back(*piece);
  return all;
}

TEST(Pieces, StandBetweenTheCommas) {
  EXPECT_THAT(AllPieces(u"1"), ElementsAre(u"1"));
  EXPECT_THAT(AllPieces(u"1,22,333"), ElementsAre(u"1", u"22", u"333"));
  EXPECT_THAT(AllPieces(u" 1 , 2"), ElementsAre(u" 1 ", u" 2"));
}

TEST(Pieces, MayBeEmpty) {
  EXPECT_THAT(AllPieces(u""), ElementsAre(u""));
  EXPECT_THAT(AllPieces(u","), ElementsAre(u"", u""));
  EXPECT_THAT(AllPieces(u"1,,2,"), ElementsAre(u"1", u"", u"2", u""));
}

TEST(Pieces, EndForGood) {
  Pieces pieces(u"1");
  EXPECT_EQ(pieces.Next(), u"1");
  EXPECT_EQ(pieces.Next(), std::nullopt);
  EXPECT_EQ(pieces.Next(), std::nullopt);
}

}  // namespace
}  // namespace conmuta
