// Once warm, a translated line costs no heap allocation.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <vector>

#include "support/layouts.h"
#include "support/memory.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::FixedColumns;
using test::FixedLine;
using test::MeridianColumns;
using test::NorstarColumns;
using test::Translation;

struct Stream {
  const char* name;
  emCasos code;
  test::ConfigBuilder (*layout)();
  std::vector<Text> lines;
  int delivered;  // valid calls among them
};

void PrintTo(const Stream& row, std::ostream* out) {
  *out << row.name;
}

std::vector<Text> FixedLines(const std::vector<Text>& kinds) {
  std::vector<Text> lines;
  for (const Text& kind : kinds) lines.push_back(Text(u"\r\n") + FixedLine{.kind = kind}.text());
  return lines;
}

// Transfers begun on more trunks than the list holds, and then all ended.
std::vector<Text> ManyTransfers() {
  std::vector<Text> lines;
  for (const Text kind : {u"IS", u"IE"}) {
    for (int i = 0; i < 120; ++i) {
      lines.push_back(FixedLine{.kind = kind, .from = Text(u"L") + ToText(100 + i)}.text());
    }
  }
  return lines;
}

class Allocation : public testing::TestWithParam<Stream> {
 protected:
  // Gives how many calls were valid.
  static int TranslateAll(Translation& desk) {
    int valid = 0;
    for (const Text& line : GetParam().lines) {
      if (desk.Translate(line).EsValido()) ++valid;
    }
    return valid;
  }
};

TEST_P(Allocation, IsNotNeededForALineOnceWarm) {
  Translation desk(GetParam().layout().Case(GetParam().code).Build());
  EXPECT_EQ(TranslateAll(desk), GetParam().delivered);
  const std::size_t before = test::memory::Allocations();
  for (int i = 0; i < 20; ++i) TranslateAll(desk);
  EXPECT_EQ(test::memory::Allocations() - before, 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Allocation,
    testing::Values(
        Stream{"standard", emCasoEstandar, FixedColumns,
               FixedLines({u"I ", u"O ", u"X ", u"T ", u"IS", u"IE", u"? "}), 7},
        Stream{"date difference", emCasoRestaFechasDuracion, FixedColumns,
               FixedLines({u"I ", u"O ", u"X "}), 3},
        Stream{"Samsung", emCasoSamsungNX_820, FixedColumns,
               FixedLines({u"I ", u"IS", u"IE", u"OS", u"OE", u"TS", u"XE"}), 7},
        Stream{"Samsung with a full list", emCasoSamsungNX_820, FixedColumns, ManyTransfers(), 240},
        Stream{"Meridian",
               emCasoNortelMeridian01,
               MeridianColumns,
               {u"A 029 00 DN7447  T038000 04/04 15:02 00:00:00 4321",
                u"S 029 00 DN7447  T038000 04/04 15:02 00:00:10 8761344",
                u"X 030 00 T038000 DN2221  04/04 15:03 00:00:10",
                u"E 031 00 T038000 DN2221  04/04 15:07 00:00:10",
                u"N 027 00 DN7425  T052000 04/04 14:03 00:01:32 5551212",
                u"Z 027 00 DN7425  T052000 04/04 14:03 00:01:32 5551212"},
               4},
        Stream{"Norstar",
               emCasoNortelNorstar0x32SMDR6,
               NorstarColumns,
               {u"-------- 04/11/27 09:41:11 LINE = 0003 STN = 7344",
                u"00:00:00   INCOMING CALL    RINGING 0:06", u"00:00:45   TRANSFERRED",
                u"-------- 04/11/27 09:41:56 LINE = 0003 STN = 7440", u"00:00:00   FROM TRANSFER",
                u"           RESTRICTION PASSWORD 4321", u"00:02:18   CALL RELEASED",
                u"-------- 04/11/27 11:39:43 LINE = 0003 STN = 7425",
                u"           DIGITS DIALED    5551212", u"00:12:59   CALL RELEASED"},
               3}));

TEST(AllocationCounter, SeesAllocations) {
  const std::size_t before = test::memory::Allocations();
  const auto text = std::make_unique<Text>(1000, u'x');
  EXPECT_EQ(test::memory::Allocations() - before, 2u);
}

// Shorter lines fit where a longer one was; only the longest so far may need room.
TEST(Allocation, IsNotNeededForLinesNoLongerThanBefore) {
  Translation desk(FixedColumns().Build());
  const Text line(5000, u'7');
  desk.Translate(line);
  const Text good = FixedLine().text();
  desk.Translate(good);
  const std::size_t before = test::memory::Allocations();
  for (std::size_t length = 1; length < good.size(); ++length) {
    desk.Translate(TextView(good).substr(length));
  }
  EXPECT_EQ(test::memory::Allocations() - before, 0u);
}

// What came through a broken separator once must not be kept for the translator's life.
TEST(Allocation, OfAGiantLineIsGivenBackWithTheNextOne) {
  Translation desk(FixedColumns().Build());
  const Text good = FixedLine().text();
  desk.Translate(good);
  const std::int64_t before = test::memory::BytesInUse();
  desk.Translate(Text(16'000'000, u'7'));
  EXPECT_GE(test::memory::BytesInUse() - before, 30'000'000);
  EXPECT_EQ(desk.translator.Llamada().size(), 16'000'000u);
  desk.Translate(good);
  EXPECT_LT(test::memory::BytesInUse() - before, 100'000);
  EXPECT_TRUE(desk.call().EsValido());
}

}  // namespace
}  // namespace conmuta
