// A hundred calls waiting for the end of their transfer.
#include "require.h"
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

constexpr int kParked = 100;
constexpr int kRepeated = 10'000;
constexpr double kMostNanosecondsALookUp = 100;
constexpr double kMostTimesWithoutParked = 1.1;  // 1, and what measuring is off

constexpr TextView kIncoming =
    u"201           701  01/02 09:02:11 00:01:40 I                                  5557890";

Text TransferBegins(int trunk) {
  Text line(
      u"201                01/02 09:10:13 00:00:28 IT                    4411         5554264100");
  return line.replace(14, 4, ToText(trunk));
}

double NanosecondsALookUp(const Translator& translator, TextView trunk, int slot) {
  int found = 0;
  const auto spent = BestOfTurns({[&] {
    for (int i = 0; i < kRepeated; ++i) found = translator.ParkedOn(trunk);
  }});
  Require(found == slot, "the look-up finds the slot");
  return spent[0] / kRepeated;
}

}  // namespace

void MeasureParkedCalls() {
  Translator full("samsung-dcs");
  for (int i = 1; i <= kParked; ++i) full.Translate(TransferBegins(1000 + i));
  PrintRow("look-up, the last of 100", NanosecondsALookUp(full, u"1100", kParked), "ns",
           kMostNanosecondsALookUp);
  PrintRow("look-up, none of 100", NanosecondsALookUp(full, u"1101", 0), "ns",
           kMostNanosecondsALookUp);

  Translator empty("samsung-dcs");
  const auto spent = BestOfTurns({
      [&] {
        for (int i = 0; i < kRepeated; ++i) full.Translate(kIncoming);
      },
      [&] {
        for (int i = 0; i < kRepeated; ++i) empty.Translate(kIncoming);
      },
  });
  PrintRow("line with 100 parked calls to line without", spent[0] / spent[1], "times",
           kMostTimesWithoutParked);
}

}  // namespace conmuta::bench
