// A wiring in words.
#include "cable/wiring_text.h"

#include <gtest/gtest.h>

#include "support/config_snapshot.h"
#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::Shown;

class WiringText : public testing::Test {
 protected:
  WiringText() {
    for (const auto& [left, right] : {std::pair(1, 4), {6, 4}, {4, 1}, {4, 6}, {2, 3}}) {
      SetWired(table, left, right, true);
    }
  }
  Wiring wiring;
  std::span<WiringMask> table = wiring.Table(emPuertoSerialDB9DB9);
};

TEST_F(WiringText, ListHasALineForEachWiredPinOfTheComputer) {
  EXPECT_EQ(Shown(WiringList(emPuertoSerialDB9DB9, table)),
            Shown(u"1 - 4\r\n2 - 3\r\n4 - 1, 6\r\n6 - 4\r\n"));
  EXPECT_EQ(WiringList(emPuertoSerialDB25DB25, wiring.Table(emPuertoSerialDB25DB25)), u"");
}

TEST_F(WiringText, PinsAreDescribedFromBothSides) {
  const auto described = [&](Side side, int pin) {
    return Shown(DescribePin(emPuertoSerialDB9DB9, table, {side, pin}));
  };
  EXPECT_EQ(described(Side::kLeft, 4), "Computadora 4 (DTR): 1, 6");
  EXPECT_EQ(described(Side::kRight, 4), "Conmutador 4: 1, 6");
  EXPECT_EQ(described(Side::kLeft, 9), "Computadora 9 (RI): sin cables");
}

TEST_F(WiringText, FarEndsOfWhatIsNoPinAreNone) {
  for (const int pin : {-1, 0, 10, 26, 1000}) {
    for (const Side side : {Side::kLeft, Side::kRight}) {
      EXPECT_EQ(FarEnds(emPuertoSerialDB9DB9, table, {side, pin}), 0) << pin;
    }
  }
  // Files may carry bits beyond the pins.
  table[5] = -1;
  EXPECT_EQ(PinList(FarEnds(emPuertoSerialDB9DB9, table, {Side::kLeft, 5})),
            u"1, 2, 3, 4, 5, 6, 7, 8, 9");
}

TEST_F(WiringText, SignalsAreThoseOfTheComputersConnector) {
  const auto names = [](emPuertoSerial pair) {
    Text all;
    for (int pin = 0; pin <= 26; ++pin) {
      const TextView name = SignalName(pair, {Side::kLeft, pin});
      if (!name.empty()) all.append(ToText(pin)).append(u" ").append(name).append(u" ");
    }
    return Shown(all);
  };
  const char* const db9 = "1 DCD 2 RXD 3 TXD 4 DTR 5 GND 6 DSR 7 RTS 8 CTS 9 RI ";
  const char* const db25 = "2 TXD 3 RXD 4 RTS 5 CTS 6 DSR 7 GND 8 DCD 20 DTR 22 RI ";
  EXPECT_EQ(names(emPuertoSerialDB9DB9), db9);
  EXPECT_EQ(names(emPuertoSerialDB9DB25), db9);
  EXPECT_EQ(names(emPuertoSerialDB25DB9), db25);
  EXPECT_EQ(names(emPuertoSerialDB25DB25), db25);
  for (int pin = 1; pin <= 25; ++pin) {
    EXPECT_EQ(SignalName(emPuertoSerialDB25DB25, {Side::kRight, pin}), u"")
        << "whether the switch is a modem or a terminal is not known";
  }
}

}  // namespace
}  // namespace conmuta
