// How bytes become lines.
#include "capture/line_cutter.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace conmuta::capture {
namespace {

using Cut = std::vector<std::pair<std::string, Wholeness>>;

Cut CutInPieces(std::string_view bytes, std::size_t piece, LineCutter cutter) {
  Cut lines;
  for (std::size_t i = 0; i < bytes.size(); i += piece) {
    cutter.Take(bytes.substr(i, piece), [&](std::string line, Wholeness wholeness, std::size_t) {
      lines.emplace_back(std::move(line), wholeness);
    });
  }
  if (std::string rest = cutter.TakeRest(); !rest.empty()) {
    lines.emplace_back(std::move(rest), Wholeness::kTorn);
  }
  return lines;
}

TEST(LineCutter, LineEndIsTheLastControlCharacterOfTheSeparator) {
  EXPECT_EQ(LineEnd(u"\r\n"), '\n');
  EXPECT_EQ(LineEnd(u"\r"), '\r');
  EXPECT_EQ(LineEnd(TextView(u"\n\0\0", 3)), '\n');
  EXPECT_EQ(LineEnd(u"\x03"), '\x03');
  EXPECT_EQ(LineEnd(u"\r\n--------"), '\n');
}

TEST(LineCutter, BlocksOpenWithTheirSeparatorAndTheirLinesEndWithLineFeed) {
  EXPECT_EQ(LineEnd(u"--------"), '\n');
  EXPECT_EQ(LineEnd(u""), '\n');
}

TEST(LineCutter, LinesAreTheSameHoweverTheirBytesCome) {
  const std::string bytes(
      "uno\r\n\0\x11"
      "dos\n\n\x80tres\r\ncua",
      22);
  const Cut expected = {{"uno\r", Wholeness::kWhole},
                        {std::string("\0\x11"
                                     "dos",
                                     5),
                         Wholeness::kWhole},
                        {"", Wholeness::kWhole},
                        {"\x80tres\r", Wholeness::kWhole},
                        {"cua", Wholeness::kTorn}};
  for (std::size_t piece = 1; piece <= bytes.size(); ++piece) {
    EXPECT_EQ(CutInPieces(bytes, piece, LineCutter('\n')), expected) << "pieces of " << piece;
  }
}

TEST(LineCutter, MegabyteWithoutLineEndIsKeptInPiecesWhichSaySo) {
  std::string bytes(1 << 20, 'x');
  bytes += "fin\nsana\n";
  for (const std::size_t piece : {std::size_t{1000}, std::size_t{65536}, bytes.size()}) {
    const Cut lines = CutInPieces(bytes, piece, LineCutter('\n', 65536));
    ASSERT_EQ(lines.size(), 18u);
    std::string whole;
    for (std::size_t i = 0; i < 17; ++i) {
      EXPECT_EQ(lines[i].second, Wholeness::kCut);
      EXPECT_LE(lines[i].first.size(), 65536u);
      whole += lines[i].first;
    }
    EXPECT_EQ(whole, std::string(1 << 20, 'x') + "fin");
    EXPECT_EQ(lines[17], std::pair(std::string("sana"), Wholeness::kWhole));
  }
}

TEST(LineCutter, LineOfJustTheLimitIsWhole) {
  EXPECT_EQ(CutInPieces("12345\n1\n", 3, LineCutter('\n', 5)),
            (Cut{{"12345", Wholeness::kWhole}, {"1", Wholeness::kWhole}}));
}

TEST(LineCutter, SaysHowManyBytesALineUsed) {
  LineCutter cutter('\n');
  std::vector<std::size_t> used;
  cutter.Take("a\nbc\nd", [&](const std::string&, Wholeness, std::size_t u) { used.push_back(u); });
  EXPECT_EQ(used, (std::vector<std::size_t>{2, 5}));
}

}  // namespace
}  // namespace conmuta::capture
