// The cable of a configuration, pin by pin.
#include "host_test.h"

namespace conmuta::test {
namespace {

class CfgConmutCableTest : public HostTest {
 protected:
  void TearDown() override {
    config = {};
    HostTest::TearDown();
  }

  void Select(int pair, short left, short right) {
    Do(config, &Cfg::put_PuertoActivo, static_cast<emPuertoSerial>(pair));
    Do(config, &Cfg::put_PinIZQ, left);
    Do(config, &Cfg::put_PinDER, right);
  }
  bool IsWired() { return Read(config, &Cfg::get_PinesConectados) == VARIANT_TRUE; }

  ComPtr<Cfg> config = NewConfig();
};

TEST_F(CfgConmutCableTest, NothingHappensWithoutAPair) {
  Select(0, 3, 2);
  EXPECT_EQ(Read(config, &Cfg::get_PinIZQ), 0);
  EXPECT_EQ(Read(config, &Cfg::get_PinDER), 0);
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  EXPECT_FALSE(IsWired());
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

TEST_F(CfgConmutCableTest, WireIsMadeAndCut) {
  Select(1, 3, 2);
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  EXPECT_TRUE(IsWired());
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
  Select(1, 3, 3);
  EXPECT_FALSE(IsWired());
  Select(1, 3, 2);
  Do(config, &Cfg::put_PinesConectados, VARIANT_FALSE);
  EXPECT_FALSE(IsWired());
}

// Other languages' "true" is 1.
TEST_F(CfgConmutCableTest, AnyValueButZeroIsTrue) {
  Select(4, 25, 25);
  Do(config, &Cfg::put_PinesConectados, VARIANT_BOOL{1});
  EXPECT_TRUE(IsWired());
}

TEST_F(CfgConmutCableTest, PinsBeyondTheLeftConnectorAreIgnored) {
  Select(2, 9, 9);
  for (const short pin : std::initializer_list<short>{0, -1, 10, 15, 25, 26, 32767, -32768}) {
    Do(config, &Cfg::put_PinIZQ, pin);
    Do(config, &Cfg::put_PinDER, pin);
    EXPECT_EQ(Read(config, &Cfg::get_PinIZQ), 9);
    EXPECT_EQ(Read(config, &Cfg::get_PinDER), 9);
  }
  Select(3, 25, 15);
  EXPECT_EQ(Read(config, &Cfg::get_PinIZQ), 25);
  EXPECT_EQ(Read(config, &Cfg::get_PinDER), 15);
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  EXPECT_FALSE(IsWired());
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

TEST_F(CfgConmutCableTest, PairsKeepTheirWiresApart) {
  Select(1, 2, 3);
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  Select(4, 2, 3);
  EXPECT_FALSE(IsWired());
  Select(4, 7, 20);
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  Select(1, 2, 3);
  EXPECT_TRUE(IsWired());
  Select(4, 7, 20);
  EXPECT_TRUE(IsWired());
}

TEST_F(CfgConmutCableTest, PairBeyondTheFourMarksAChangeAndKeepsNothing) {
  Select(7, 1, 1);
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  EXPECT_FALSE(IsWired());
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
}

TEST_F(CfgConmutCableTest, IniciarCutsEveryWireAndKeepsThePair) {
  for (int pair = 1; pair <= 4; ++pair) {
    Select(pair, 9, 9);
    Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  }
  Do(config, &Cfg::Iniciar);
  EXPECT_EQ(Read(config, &Cfg::get_PuertoActivo), emPuertoSerialDB25DB25);
  EXPECT_EQ(Read(config, &Cfg::get_PinIZQ), 0);
  EXPECT_EQ(Read(config, &Cfg::get_PinDER), 0);
  for (int pair = 1; pair <= 4; ++pair) {
    Select(pair, 9, 9);
    EXPECT_FALSE(IsWired()) << pair;
  }
}

}  // namespace
}  // namespace conmuta::test
