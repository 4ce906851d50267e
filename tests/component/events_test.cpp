// Which events a configuration raises, and in which order.
#include "host_test.h"
#include "scratch_files.h"
#include "sink.h"

namespace conmuta::test {
namespace {

class EventsTest : public HostTest {
 protected:
  void TearDown() override {
    connection.Close();
    config = {};
    HostTest::TearDown();
  }

  void Fill() {
    Do(config, &Cfg::put_Marca, u"ACME");
    Do(config, &Cfg::put_Modelo, u"X1");
    Do(config, &Cfg::put_Separador, u";");
    Do(config, &Cfg::put_Comentarios, u"algo");
    sink.Take();
  }

  ComPtr<Cfg> config = NewConfig();
  Sink sink;
  Connection connection{config.get(), &sink};
};

const Events kNone;
const Events kName = {kNameChanged, kChanged};
const Events kOne = {kChanged};

TEST_F(EventsTest, BrandAndModelTellTheNameThenTheChange) {
  for (const auto put : {&Cfg::put_Marca, &Cfg::put_Modelo}) {
    Do(config, put, u"ACME");
    EXPECT_EQ(sink.Take(), kName);
    Do(config, put, u"ACME");
    EXPECT_EQ(sink.Take(), kNone);
    Do(config, put, Text(60, u'a'));
    EXPECT_EQ(sink.Take(), kName);
    Do(config, put, Text(55, u'a'));
    EXPECT_EQ(sink.Take(), kNone);
  }
}

TEST_F(EventsTest, OtherTextsTellTheChange) {
  for (const auto put : {&Cfg::put_Comentarios, &Cfg::put_Separador}) {
    Do(config, put, u"x");
    EXPECT_EQ(sink.Take(), kOne);
    Do(config, put, u"x");
    EXPECT_EQ(sink.Take(), kNone);
    // NULs at the end are what the text is filled with anyway.
    Do(config, put, TextView(u"x\0\0", 3));
    EXPECT_EQ(sink.Take(), kNone);
    Do(config, put, TextView(u"\0x", 2));
    EXPECT_EQ(sink.Take(), kOne);
  }
}

TEST_F(EventsTest, CaseTellsAChangeOnly) {
  auto value = emCasoEstandar;
  Do(config, &Cfg::put_Caso, &value);
  EXPECT_EQ(sink.Take(), kNone);
  value = emCasoSamsungNX_820;
  Do(config, &Cfg::put_Caso, &value);
  EXPECT_EQ(sink.Take(), kOne);
  Read(config, &Cfg::ObtNombreCaso, emCasoNortelMeridian01);
}

TEST_F(EventsTest, WhatOnlyAddressesTellsNothing) {
  Do(config, &Cfg::put_IDCfg, 4L);
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  Do(config, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
  Do(config, &Cfg::put_PuertoActivo, emPuertoSerialDB9DB9);
  Do(config, &Cfg::put_PinIZQ, short{1});
  Do(config, &Cfg::put_PinDER, short{1});
}

TEST_F(EventsTest, ItemTellsEachByteThatChanges) {
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  Do(config, &Cfg::put_DATOPos, 5);
  EXPECT_EQ(sink.Take(), kOne);
  Do(config, &Cfg::put_DATOPos, 5);
  EXPECT_EQ(sink.Take(), kNone);
  Do(config, &Cfg::put_DATOTam, 2);
  EXPECT_EQ(sink.Take(), kOne);
  Do(config, &Cfg::put_TipoDatoDATO, emValorNumerico);
  EXPECT_EQ(sink.Take(), kNone);
  Do(config, &Cfg::put_TipoDatoDATO, emNoDefinido);
  EXPECT_EQ(sink.Take(), kOne);
  // Not valid before and not valid after, yet a change.
  Do(config, &Cfg::put_DATOTam, 0);
  EXPECT_EQ(sink.Take(), kOne);
  Do(config, &Cfg::put_TipoDatoDATO, emValorCadena);
  EXPECT_EQ(sink.Take(), kOne);
}

TEST_F(EventsTest, TypeNumericOfANewItemTellsNothing) {
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  Do(config, &Cfg::put_TipoDatoDATO, emValorNumerico);
  EXPECT_EQ(sink.Take(), kNone);
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

TEST_F(EventsTest, CodeThatIsNoKindTellsAChange) {
  Do(config, &Cfg::put_DATOActivo, emUltimoParamDato);
  Do(config, &Cfg::put_DATOPos, 5);
  EXPECT_EQ(sink.Take(), kOne);
}

TEST_F(EventsTest, ConstantTellsEachPartThatChanges) {
  Do(config, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
  Do(config, &Cfg::put_Constante, u"IN");
  EXPECT_EQ(sink.Take(), kOne);
  Do(config, &Cfg::put_Constante, u"IN");
  EXPECT_EQ(sink.Take(), kNone);
  Do(config, &Cfg::put_CTEPos, 3);
  EXPECT_EQ(sink.Take(), kOne);
  Do(config, &Cfg::put_CTETam, 2);
  EXPECT_EQ(sink.Take(), kNone);
  Do(config, &Cfg::put_CTETam, 9);
  EXPECT_EQ(sink.Take(), kOne);
}

TEST_F(EventsTest, WireTellsAChangeOnce) {
  Do(config, &Cfg::put_PuertoActivo, emPuertoSerialDB9DB9);
  Do(config, &Cfg::put_PinIZQ, short{3});
  Do(config, &Cfg::put_PinDER, short{2});
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  EXPECT_EQ(sink.Take(), kOne);
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  EXPECT_EQ(sink.Take(), kNone);
  Do(config, &Cfg::put_PinesConectados, VARIANT_FALSE);
  EXPECT_EQ(sink.Take(), kOne);
  Do(config, &Cfg::put_PuertoActivo, static_cast<emPuertoSerial>(7));
  Do(config, &Cfg::put_PinesConectados, VARIANT_FALSE);
  EXPECT_EQ(sink.Take(), kOne);
}

TEST_F(EventsTest, IniciarTellsEachTextThatItEmpties) {
  Do(config, &Cfg::Iniciar);
  EXPECT_EQ(sink.Take(), Events{kReset});
  Fill();
  Do(config, &Cfg::Iniciar);
  // Comments, brand, model, separator.
  EXPECT_EQ(sink.Take(),
            (Events{kChanged, kNameChanged, kChanged, kNameChanged, kChanged, kChanged, kReset}));
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

TEST_F(EventsTest, IniciarTellsNothingOfPinsCaseAndSlots) {
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  Do(config, &Cfg::put_DATOPos, 5);
  Do(config, &Cfg::put_DATOTam, 2);
  auto value = emCasoSamsungNX_820;
  Do(config, &Cfg::put_Caso, &value);
  sink.Take();
  Do(config, &Cfg::Iniciar);
  EXPECT_EQ(sink.Take(), Events{kReset});
}

TEST_F(EventsTest, SavingTellsNothing) {
  const ScratchFolder folder;
  Fill();
  Do(config, &Cfg::GuardarComo, folder.Path(u"a.cfg"));
  EXPECT_EQ(sink.Take(), kNone);
  EXPECT_EQ(Try(config, &Cfg::GuardarComo, u"").result, static_cast<HRESULT>(0x800405DD));
}

TEST_F(EventsTest, OpeningTellsTheResetTheSlotsAndTheLoad) {
  const ScratchFolder folder;
  Fill();
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  Do(config, &Cfg::put_DATOPos, 5);
  Do(config, &Cfg::put_DATOTam, 2);
  Do(config, &Cfg::put_TipoDatoDATO, emValorCadena);
  Do(config, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
  Do(config, &Cfg::put_Constante, u"IN");
  Do(config, &Cfg::put_CTEPos, 1);
  const Text path = folder.Path(u"a.cfg");
  Do(config, &Cfg::GuardarComo, path);
  sink.Take();

  // The same slots again: only the type changes anything, and the texts that were emptied.
  Do(config, &Cfg::Abrir, path);
  EXPECT_EQ(sink.Take(), (Events{kChanged, kNameChanged, kChanged, kNameChanged, kChanged, kChanged,
                                 kChanged, kLoaded}));
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);

  // Into a new one: nothing to empty; position, size, type; position, text.
  connection.Close();
  const auto fresh = NewConfig();
  const Connection other(fresh.get(), &sink);
  Do(fresh, &Cfg::Abrir, path);
  EXPECT_EQ(sink.Take(), (Events{kChanged, kChanged, kChanged, kChanged, kChanged, kLoaded}));
}

TEST_F(EventsTest, OpeningThatFailsTellsNothing) {
  Fill();
  EXPECT_TRUE(FAILED(Try(config, &Cfg::Abrir, u"Z:\\no\\hay.cfg").result));
  EXPECT_EQ(sink.Take(), kNone);
}

TEST_F(EventsTest, EventsComeBeforeTheWriteReturnsAndShowTheNewValue) {
  std::vector<Text> seen;
  sink.handler = [&](int) { seen.push_back(Read(config, &Cfg::get_Marca)); };
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(seen, (std::vector<Text>{u"ACME", u"ACME"}));
  EXPECT_EQ(sink.Take(), kName);
}

}  // namespace
}  // namespace conmuta::test
