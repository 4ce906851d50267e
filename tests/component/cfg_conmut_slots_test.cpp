// Data items and constants of a configuration: written one property at a time, as hosts do.
#include "host_test.h"

namespace conmuta::test {
namespace {

class CfgConmutSlotsTest : public HostTest {
 protected:
  void TearDown() override {
    config = {};
    HostTest::TearDown();
  }

  void Define(emParamDato kind, unsigned char pos, unsigned char size) {
    Do(config, &Cfg::put_DATOActivo, kind);
    Do(config, &Cfg::put_DATOPos, pos);
    Do(config, &Cfg::put_DATOTam, size);
  }

  ComPtr<Cfg> config = NewConfig();
};

TEST_F(CfgConmutSlotsTest, ItemIsThereOnceItHasPositionAndSize) {
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  Do(config, &Cfg::put_DATOPos, 5);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoDATO), emNoDefinido);
  EXPECT_EQ(Read(config, &Cfg::get_DATOPos), 5);
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
  Do(config, &Cfg::put_DATOTam, 2);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_TRUE);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoDATO), emValorNumerico);
  EXPECT_EQ(Read(config, &Cfg::get_DATOTam), 2);
}

TEST_F(CfgConmutSlotsTest, WritingThePositionMakesTheTypeNumericAgain) {
  Define(emParamFechaDia, 5, 2);
  Do(config, &Cfg::put_TipoDatoDATO, emValorCadena);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoDATO), emValorCadena);
  Do(config, &Cfg::put_DATOPos, 6);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoDATO), emValorNumerico);
  Do(config, &Cfg::put_TipoDatoDATO, emValorCadena);
  Do(config, &Cfg::put_DATOTam, 2);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoDATO), emValorNumerico);
}

TEST_F(CfgConmutSlotsTest, TypeZeroReleasesTheItem) {
  Define(emParamFechaDia, 5, 2);
  Do(config, &Cfg::put_TipoDatoDATO, emNoDefinido);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_DATOPos), 5);
  EXPECT_EQ(Read(config, &Cfg::get_DATOTam), 2);
}

TEST_F(CfgConmutSlotsTest, PositionOrSizeZeroReleasesTheItem) {
  Define(emParamFechaDia, 5, 2);
  Do(config, &Cfg::put_DATOPos, 0);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_FALSE);
  Do(config, &Cfg::put_DATOPos, 255);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_TRUE);
  Do(config, &Cfg::put_DATOTam, 0);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_FALSE);
}

TEST_F(CfgConmutSlotsTest, TypeTakesAnyCodeOfAValidItem) {
  Define(emParamFechaDia, 5, 2);
  for (const int code : {2, 7, -1}) {
    Do(config, &Cfg::put_TipoDatoDATO, static_cast<emTipoDato>(code));
    EXPECT_EQ(Read(config, &Cfg::get_TipoDatoDATO), code);
    EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_TRUE);
  }
}

TEST_F(CfgConmutSlotsTest, CodeThatIsNoKindKeepsNothingYetMarksTheChange) {
  for (const int code : {0, 1, 54, -1}) {
    const auto fresh = NewConfig();
    Do(fresh, &Cfg::put_DATOActivo, static_cast<emParamDato>(code));
    Do(fresh, &Cfg::put_DATOPos, 5);
    EXPECT_EQ(Read(fresh, &Cfg::get_DATOPos), 0) << code;
    EXPECT_EQ(Read(fresh, &Cfg::get_HayDATO), VARIANT_FALSE) << code;
    EXPECT_EQ(Read(fresh, &Cfg::get_Modificado), VARIANT_TRUE) << code;
  }
  for (const int code : {0, 1, 24, -1}) {
    const auto fresh = NewConfig();
    Do(fresh, &Cfg::put_CTEActivo, static_cast<emParamDatoConstante>(code));
    Do(fresh, &Cfg::put_Constante, u"IN");
    EXPECT_EQ(Read(fresh, &Cfg::get_Constante), u"") << code;
    EXPECT_EQ(Read(fresh, &Cfg::get_HayCTE), VARIANT_FALSE) << code;
    EXPECT_EQ(Read(fresh, &Cfg::get_Modificado), VARIANT_TRUE) << code;
  }
}

TEST_F(CfgConmutSlotsTest, ReleasedPlaceHandsItsPositionAndSizeOn) {
  Define(emParamFechaDia, 5, 2);
  Do(config, &Cfg::put_TipoDatoDATO, emNoDefinido);
  Do(config, &Cfg::put_DATOActivo, emParamFechaMes);
  Do(config, &Cfg::put_DATOPos, 9);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_TRUE);
  EXPECT_EQ(Read(config, &Cfg::get_DATOTam), 2);
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  EXPECT_EQ(Read(config, &Cfg::get_DATOPos), 0);
}

TEST_F(CfgConmutSlotsTest, IniciarReleasesItemsButKeepsTheirPlaces) {
  Define(emParamFechaDia, 5, 2);
  Do(config, &Cfg::Iniciar);
  EXPECT_EQ(Read(config, &Cfg::get_DATOActivo), emNoParamDato);
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_DATOPos), 5);
  EXPECT_EQ(Read(config, &Cfg::get_DATOTam), 2);
  Do(config, &Cfg::put_DATOPos, 5);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_TRUE);
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

TEST_F(CfgConmutSlotsTest, ConstantIsThereOnceItHasTextAndPosition) {
  Do(config, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
  Do(config, &Cfg::put_Constante, u"IN");
  EXPECT_EQ(Read(config, &Cfg::get_HayCTE), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoCTE), emNoDefinido);
  Do(config, &Cfg::put_CTEPos, 1);
  EXPECT_EQ(Read(config, &Cfg::get_HayCTE), VARIANT_TRUE);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoCTE), emValorConstante);
  EXPECT_EQ(Read(config, &Cfg::get_CTETam), 2);
  Do(config, &Cfg::put_Constante, u"");
  EXPECT_EQ(Read(config, &Cfg::get_HayCTE), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_CTETam), 0);
}

TEST_F(CfgConmutSlotsTest, ConstantIsCutAndCountedWithoutNuls) {
  Do(config, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
  Do(config, &Cfg::put_Constante, Text(25, u'x'));
  EXPECT_EQ(Read(config, &Cfg::get_Constante), Text(20, u'x'));
  EXPECT_EQ(Read(config, &Cfg::get_CTETam), 20);
  Do(config, &Cfg::put_Constante, TextView(u"A\0ñ", 3));
  EXPECT_EQ(Read(config, &Cfg::get_Constante), u"Añ");
  EXPECT_EQ(Read(config, &Cfg::get_CTETam), 2);
  EXPECT_EQ(config->put_Constante(nullptr), S_OK);
  EXPECT_EQ(Read(config, &Cfg::get_Constante), u"");
}

TEST_F(CfgConmutSlotsTest, SizeOfAConstantIsFreeAndDoesNotDecide) {
  Do(config, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
  Do(config, &Cfg::put_Constante, u"IN");
  Do(config, &Cfg::put_CTEPos, 1);
  for (const unsigned char size : std::initializer_list<unsigned char>{0, 255}) {
    Do(config, &Cfg::put_CTETam, size);
    EXPECT_EQ(Read(config, &Cfg::get_CTETam), size);
    EXPECT_EQ(Read(config, &Cfg::get_HayCTE), VARIANT_TRUE);
  }
}

}  // namespace
}  // namespace conmuta::test
