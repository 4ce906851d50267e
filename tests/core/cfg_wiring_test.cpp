// The serial cable of a configuration.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <tuple>

#include "cable/wiring.h"
#include "support/config_bench.h"
#include "support/config_snapshot.h"
#include "support/connector_pair.h"

namespace conmuta {
namespace {

using test::ConfigBench;
using test::Pair;
using test::Snapshot;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int16_t kLowestPin = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t kHighestPin = std::numeric_limits<std::int16_t>::max();

class ConfigWiring : public testing::Test, protected ConfigBench {
 protected:
  // Reaches every pin that PinesConectados knows, also those that PinDER refuses.
  void Address(int pair, int left, int right) {
    config.PuertoActivo(emPuertoSerialDB25DB25);
    config.PinIZQ(static_cast<std::int16_t>(left));
    config.PinDER(static_cast<std::int16_t>(right));
    config.PuertoActivo(Pair(pair));
  }
};

TEST_F(ConfigWiring, WithoutAConnectorPairNothingIsWired) {
  config.PinIZQ(1);
  config.PinDER(1);
  config.PinesConectados(true);
  EXPECT_EQ(config.PinIZQ(), 0);
  EXPECT_EQ(config.PinDER(), 0);
  EXPECT_FALSE(config.PinesConectados());
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigWiring, PinsKeptFromAnotherPairDoNotWireWithoutOne) {
  Address(emNoPuerto, 1, 1);
  config.PinesConectados(true);
  EXPECT_FALSE(config.PinesConectados());
  EXPECT_FALSE(config.Modificado());
  config.PinIZQ(2);
  EXPECT_EQ(config.PinIZQ(), 1);
}

TEST_F(ConfigWiring, WiringRaisesOnce) {
  config.PuertoActivo(emPuertoSerialDB9DB9);
  config.PinIZQ(3);
  config.PinDER(2);
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_FALSE(config.Modificado());
  config.PinesConectados(true);
  EXPECT_TRUE(config.PinesConectados());
  EXPECT_TRUE(config.Modificado());
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  config.PinesConectados(true);
  EXPECT_THAT(TakeEvents(), IsEmpty());
  config.PinesConectados(false);
  EXPECT_FALSE(config.PinesConectados());
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  config.PinesConectados(false);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigWiring, CuttingAMissingWireChangesNothing) {
  Address(emPuertoSerialDB9DB9, 3, 2);
  config.PinesConectados(false);
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigWiring, RightPinIsCheckedLikeTheLeftOne) {
  config.PuertoActivo(emPuertoSerialDB9DB25);
  config.PinIZQ(1);
  config.PinDER(9);
  config.PinDER(15);
  EXPECT_EQ(config.PinDER(), 9);

  config.PuertoActivo(emPuertoSerialDB25DB9);
  config.PinDER(15);
  EXPECT_EQ(config.PinDER(), 15);
  EXPECT_FALSE(config.PinesConectados());
  config.PinesConectados(true);
  EXPECT_FALSE(config.PinesConectados());
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigWiring, PairTwoWiresBeyondPinNineWhenThePinComesFromAnotherPair) {
  Address(emPuertoSerialDB9DB25, 9, 25);
  config.PinesConectados(true);
  EXPECT_TRUE(config.PinesConectados());
  config.PinDER(9);
  EXPECT_FALSE(config.PinesConectados());
}

TEST_F(ConfigWiring, PinsAreStoredExactlyWithinTheLeftConnector) {
  for (const int pair : {-2147483647 - 1, -1, 0, 1, 2, 3, 4, 5, 7, 2147483647}) {
    for (const std::int16_t pin :
         {kLowestPin, std::int16_t{-1}, std::int16_t{0}, std::int16_t{1}, std::int16_t{9},
          std::int16_t{10}, std::int16_t{25}, std::int16_t{26}, kHighestPin}) {
      SCOPED_TRACE(testing::Message() << "pair " << pair << ", pin " << pin);
      ConfigBench bench;
      bench.config.PuertoActivo(Pair(pair));
      bench.config.PinIZQ(pin);
      bench.config.PinDER(pin);
      const bool small = pair == 1 || pair == 2;
      const bool stored = pair != 0 && pin >= 1 && pin <= (small ? 9 : 25);
      EXPECT_EQ(bench.config.PinIZQ(), stored ? pin : 0);
      EXPECT_EQ(bench.config.PinDER(), stored ? pin : 0);
      EXPECT_EQ(bench.config.PuertoActivo(), pair);
      EXPECT_FALSE(bench.config.Modificado());
      EXPECT_THAT(bench.TakeEvents(), IsEmpty());
    }
  }
}

TEST_F(ConfigWiring, RefusedPinKeepsTheOneBefore) {
  config.PuertoActivo(emPuertoSerialDB9DB9);
  config.PinIZQ(4);
  config.PinDER(5);
  for (const std::int16_t pin : {kLowestPin, std::int16_t{0}, std::int16_t{10}, kHighestPin}) {
    config.PinIZQ(pin);
    config.PinDER(pin);
  }
  EXPECT_EQ(config.PinIZQ(), 4);
  EXPECT_EQ(config.PinDER(), 5);
}

TEST_F(ConfigWiring, EveryWireIsItsOwn) {
  std::set<std::tuple<int, int, int>> wired;
  const auto check = [&] {
    for (int pair = 1; pair <= 4; ++pair) {
      for (int left = 1; left <= 25; ++left) {
        for (int right = 1; right <= 25; ++right) {
          Address(pair, left, right);
          ASSERT_EQ(config.PinesConectados(), wired.count({pair, left, right}) != 0)
              << pair << ": " << left << "-" << right;
        }
      }
    }
  };
  const auto write = [&](bool value) {
    for (int pair = 1; pair <= 4; ++pair) {
      for (int left = 1; left <= 25; ++left) {
        for (int right = 1; right <= 25; ++right) {
          if ((left * 7 + right * 3 + pair) % 5 > (value ? 2 : 1)) continue;
          Address(pair, left, right);
          config.PinesConectados(value);
          const bool exists =
              left <= (pair <= 2 ? 9 : 25) && right <= (pair == 1 || pair == 3 ? 9 : 25);
          if (exists && value) wired.insert({pair, left, right});
          if (!value) wired.erase({pair, left, right});
        }
      }
    }
  };
  check();
  write(true);
  check();
  write(false);
  ASSERT_FALSE(wired.empty());
  check();
}

TEST_F(ConfigWiring, PairsKeepTheirWiringSideBySide) {
  config.PuertoActivo(emPuertoSerialDB9DB9);
  config.PinIZQ(2);
  config.PinDER(3);
  config.PinesConectados(true);
  config.PuertoActivo(emPuertoSerialDB25DB25);
  EXPECT_FALSE(config.PinesConectados());
  config.PinIZQ(20);
  config.PinesConectados(true);
  config.PuertoActivo(emPuertoSerialDB9DB9);
  config.PinIZQ(2);
  EXPECT_TRUE(config.PinesConectados());
  config.PuertoActivo(emPuertoSerialDB25DB25);
  config.PinIZQ(20);
  EXPECT_TRUE(config.PinesConectados());
}

TEST_F(ConfigWiring, OnePinMayBeWiredToSeveralOthers) {
  for (int pin = 1; pin <= 25; ++pin) {
    Address(emPuertoSerialDB25DB25, 1, pin);
    config.PinesConectados(true);
    Address(emPuertoSerialDB25DB25, pin, 25);
    config.PinesConectados(true);
  }
  for (int pin = 1; pin <= 25; ++pin) {
    Address(emPuertoSerialDB25DB25, 1, pin);
    EXPECT_TRUE(config.PinesConectados());
    Address(emPuertoSerialDB25DB25, pin, 25);
    EXPECT_TRUE(config.PinesConectados());
  }
}

TEST_F(ConfigWiring, PairBeyondTheFourOnlyMarksAChange) {
  for (const int pair : {7, 5, -1, 2147483647}) {
    config.Iniciar();
    config.PuertoActivo(Pair(pair));
    config.PinIZQ(1);
    config.PinDER(1);
    TakeEvents();
    const Snapshot before = Snapshot::OfContent(config);
    EXPECT_FALSE(config.PinesConectados());
    config.PinesConectados(true);
    EXPECT_FALSE(config.PinesConectados());
    EXPECT_TRUE(config.Modificado());
    config.PinesConectados(true);
    config.PinesConectados(false);
    EXPECT_THAT(TakeEvents(), ElementsAre("Cambios", "Cambios", "Cambios"));
    EXPECT_EQ(Snapshot::OfContent(config), before);
  }
}

TEST_F(ConfigWiring, PairBeyondTheFourNeedsPinsToo) {
  config.PuertoActivo(Pair(7));
  config.PinesConectados(true);
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigWiring, IniciarClearsAllFourPairs) {
  const Snapshot empty = Snapshot::OfContent(config);
  for (int pair = 1; pair <= 4; ++pair) {
    for (int pin = 1; pin <= 25; ++pin) {
      Address(pair, pin, 1);
      config.PinesConectados(true);
    }
  }
  Address(emPuertoSerialDB25DB25, 25, 25);
  config.PinesConectados(true);
  EXPECT_NE(Snapshot::OfContent(config), empty);
  config.Iniciar();
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
  EXPECT_EQ(config.PinIZQ(), 0);
  EXPECT_EQ(config.PinDER(), 0);
  EXPECT_FALSE(config.PinesConectados());
  EXPECT_EQ(Snapshot::OfContent(config), empty);
}

TEST(Wiring, TablesHaveAnEntryForEachLeftPinAndOneForNone) {
  Wiring wiring;
  const Wiring& reading = wiring;
  EXPECT_EQ(wiring.Table(emPuertoSerialDB9DB9).size(), 10u);
  EXPECT_EQ(wiring.Table(emPuertoSerialDB9DB25).size(), 10u);
  EXPECT_EQ(reading.Table(emPuertoSerialDB25DB9).size(), 26u);
  EXPECT_EQ(reading.Table(emPuertoSerialDB25DB25).size(), 26u);
}

TEST(Wiring, BitsStandForTheRightPins) {
  Wiring wiring;
  const auto table = wiring.Table(emPuertoSerialDB9DB25);
  EXPECT_TRUE(SetWired(table, 3, 2, true));
  EXPECT_EQ(table[3], 2);
  EXPECT_TRUE(SetWired(table, 3, 25, true));
  EXPECT_EQ(table[3], 0x1000002);
  EXPECT_FALSE(SetWired(table, 3, 25, true));
  EXPECT_TRUE(IsWired(table, 3, 25));
  EXPECT_FALSE(IsWired(table, 3, 24));
  EXPECT_TRUE(SetWired(table, 3, 2, false));
  EXPECT_FALSE(SetWired(table, 3, 2, false));
  EXPECT_EQ(table[3], 0x1000000);
}

TEST(Wiring, ChangesLeaveForeignBitsAlone) {
  Wiring wiring;
  const auto table = wiring.Table(emPuertoSerialDB9DB9);
  table[1] = std::numeric_limits<WiringMask>::min();
  SetWired(table, 1, 1, true);
  EXPECT_EQ(table[1], std::numeric_limits<WiringMask>::min() + 1);
  table[1] = -1;
  SetWired(table, 1, 1, false);
  EXPECT_EQ(table[1], -2);
}

TEST(Wiring, ClearingSparesEntryZero) {
  Wiring wiring;
  for (int pair = 1; pair <= 4; ++pair) {
    for (auto& mask : wiring.Table(Pair(pair))) mask = pair;
  }
  wiring.Clear();
  for (int pair = 1; pair <= 4; ++pair) {
    const auto table = wiring.Table(Pair(pair));
    EXPECT_EQ(table[0], pair);
    for (std::size_t pin = 1; pin < table.size(); ++pin) EXPECT_EQ(table[pin], 0);
  }
}

}  // namespace
}  // namespace conmuta
