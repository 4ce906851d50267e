// What a line that ends in an error costs beside one that does not.
#include "require.h"
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

constexpr int kRepeated = 1000;
constexpr double kMostTimesNormal = 3;

void Compare(const char* row, const char* name, TextView opening, TextView normal,
             TextView failing) {
  Translator calm(name);
  Translator failing_one(name);
  calm.Translate(opening);
  failing_one.Translate(opening);
  Require(calm.Translate(normal) && !failing_one.Translate(failing), "only one line fails");
  const auto spent = BestOfTurns({
      [&] {
        for (int i = 0; i < kRepeated; ++i) calm.Translate(normal);
      },
      [&] {
        for (int i = 0; i < kRepeated; ++i) failing_one.Translate(failing);
      },
  });
  PrintRow(row, spent[1] / spent[0], "times", kMostTimesNormal);
}

}  // namespace

void MeasureErrors() {
  Compare("overflow to normal line", "generico-inicio-y-fin", u"",
          u"E 14/03/2019 10:10:45 14/03/2019 10:12:03 206  0703 00:01:12 5550199",
          u"E 14/03/2019 10:10:45 14/03/2019 10:12:03 206  0703 99:99:99 5550199");
  Compare("short line in a block to normal line", "nortel-norstar",
          u"-------- 04/11/97 08:39:43 LINE = 0003 STN = 7425", u"00:00:00   OUTGOING CALL",
          u"00:00:00");
}

}  // namespace conmuta::bench
