// The translator through its virtual table: its objects and its list. What a line becomes is
// tested where the translations are; here a line of each shows that hosts get it.
#include "host_test.h"
#include "today.h"

namespace conmuta::test {
namespace {

void DefineItem(const ComPtr<Cfg>& config, emParamDato kind, unsigned char pos, unsigned char size,
                emTipoDato type = emValorNumerico) {
  Do(config, &Cfg::put_DATOActivo, kind);
  Do(config, &Cfg::put_DATOPos, pos);
  Do(config, &Cfg::put_DATOTam, size);
  Do(config, &Cfg::put_TipoDatoDATO, type);
}

void DefineConstant(const ComPtr<Cfg>& config, emParamDatoConstante kind, unsigned char pos,
                    TextView text) {
  Do(config, &Cfg::put_CTEActivo, kind);
  Do(config, &Cfg::put_Constante, text);
  Do(config, &Cfg::put_CTEPos, pos);
}

// hh:mm:ss eeee tttt number: extension, trunk and number of an outgoing call.
ComPtr<Cfg> SimpleConfig() {
  const auto config = NewConfig();
  Do(config, &Cfg::put_Marca, u"ACME");
  Do(config, &Cfg::put_Modelo, u"X1");
  DefineItem(config, emParamFechaHoras, 1, 2);
  DefineItem(config, emParamFechaMinutos, 4, 2);
  DefineItem(config, emParamFechaSegundos, 7, 2);
  DefineItem(config, emParamExtensionSaliente, 10, 4, emValorCadena);
  DefineItem(config, emParamTroncalSaliente, 15, 4, emValorCadena);
  DefineItem(config, emParamTelefonoSaliente, 20, 10);
  return config;
}

constexpr TextView kLine = u"03:15:20 0205 T001 5551234567";

class TradEstTest : public HostTest {
 protected:
  void TearDown() override {
    call = {};
    translator = {};
    HostTest::TearDown();
  }

  bool IsValid() { return Read(call, &Trd::get_EsValido) == VARIANT_TRUE; }

  ComPtr<Trad> translator = NewTranslator();
  ComPtr<Trd> call = Read(translator, &Trad::get_InfoLlamada);
};

TEST_F(TradEstTest, NewOneHasNothingToTranslate) {
  EXPECT_EQ(Read(translator, &Trad::get_Llamada), u"");
  EXPECT_FALSE(Read(translator, &Trad::get_Conmutador));
  EXPECT_FALSE(IsValid());
  Do(translator, &Trad::put_Llamada, kLine);
  EXPECT_FALSE(IsValid());
}

TEST_F(TradEstTest, LineIsTranslatedWhenItIsSet) {
  Do(translator, &Trad::putref_Conmutador, SimpleConfig().get());
  EXPECT_FALSE(IsValid());
  Do(translator, &Trad::put_Llamada, kLine);
  EXPECT_TRUE(IsValid());
  EXPECT_EQ(Read(call, &Trd::get_TipoLlamada), emLlamadaSaliente);
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamFecha), 3);
  EXPECT_EQ(Read(call, &Trd::get_Minutos, emParamFecha), 15);
  EXPECT_EQ(Read(call, &Trd::get_Segundos, emParamFecha), 20);
  EXPECT_EQ(Read(call, &Trd::get_Emisor), u"0205");
  EXPECT_EQ(Read(call, &Trd::get_Receptor), u"T001");
  EXPECT_EQ(Read(call, &Trd::get_Telefono), u"5551234567");
}

TEST_F(TradEstTest, LineWithoutADateIsTodays) {
  Do(translator, &Trad::putref_Conmutador, SimpleConfig().get());
  WithToday([&](const SYSTEMTIME& today) {
    Do(translator, &Trad::put_Llamada, kLine);
    EXPECT_EQ(Read(call, &Trd::get_Anio, emParamFecha), today.wYear);
    EXPECT_EQ(Read(call, &Trd::get_Mes, emParamFecha), today.wMonth);
    EXPECT_EQ(Read(call, &Trd::get_Dia, emParamFecha), today.wDay);
  });
}

TEST_F(TradEstTest, LineIsTranslatedWhenAConfigurationIsSet) {
  Do(translator, &Trad::put_Llamada, kLine);
  Do(translator, &Trad::putref_Conmutador, SimpleConfig().get());
  EXPECT_TRUE(IsValid());
  const auto empty = NewConfig();
  Do(translator, &Trad::putref_Conmutador, empty.get());
  EXPECT_FALSE(IsValid());
}

TEST_F(TradEstTest, ConfigurationMayBeAssignedEitherWay) {
  const auto config = SimpleConfig();
  Do(translator, &Trad::put_Llamada, kLine);
  Do(translator, &Trad::put_Conmutador, config.get());
  EXPECT_TRUE(IsValid());
  EXPECT_TRUE(IsSame(Read(translator, &Trad::get_Conmutador).get(), config.get()));
  Do(translator, &Trad::put_Conmutador, nullptr);
  EXPECT_FALSE(Read(translator, &Trad::get_Conmutador));
}

TEST_F(TradEstTest, TheSameConfigurationComesBack) {
  const auto config = SimpleConfig();
  Do(translator, &Trad::putref_Conmutador, config.get());
  EXPECT_EQ(Read(translator, &Trad::get_Conmutador).get(), config.get());
  EXPECT_TRUE(IsSame(Read(translator, &Trad::get_Conmutador).get(), config.get()));
}

TEST_F(TradEstTest, NothingIsAConfigurationToo) {
  Do(translator, &Trad::put_Llamada, kLine);
  Do(translator, &Trad::putref_Conmutador, SimpleConfig().get());
  Do(translator, &Trad::putref_Conmutador, nullptr);
  EXPECT_FALSE(IsValid());
  auto* config = reinterpret_cast<Cfg*>(0x1234);
  EXPECT_EQ(translator->get_Conmutador(&config), S_OK);
  EXPECT_EQ(config, nullptr);
}

TEST_F(TradEstTest, HoldsItsConfigurationAndLetsItGo) {
  auto config = SimpleConfig();
  const auto references = [&] {
    config->AddRef();
    return config->Release();
  };
  EXPECT_EQ(references(), 1u);
  Do(translator, &Trad::putref_Conmutador, config.get());
  EXPECT_EQ(references(), 2u);
  Do(translator, &Trad::putref_Conmutador, config.get());
  EXPECT_EQ(references(), 2u);
  Do(translator, &Trad::putref_Conmutador, nullptr);
  EXPECT_EQ(references(), 1u);
  Do(translator, &Trad::putref_Conmutador, config.get());
  translator = {};
  call = {};
  EXPECT_EQ(references(), 1u);
}

TEST_F(TradEstTest, SeesWhatBecomesOfItsConfiguration) {
  const auto config = SimpleConfig();
  Do(translator, &Trad::putref_Conmutador, config.get());
  auto none = emNoCaso;
  Do(config, &Cfg::put_Caso, &none);
  Do(translator, &Trad::put_Llamada, kLine);
  EXPECT_FALSE(IsValid());
}

TEST_F(TradEstTest, CallRecordIsTheSameObjectForEver) {
  EXPECT_EQ(Read(translator, &Trad::get_InfoLlamada).get(), call.get());
  Do(translator, &Trad::putref_Conmutador, SimpleConfig().get());
  Do(translator, &Trad::put_Llamada, kLine);
  EXPECT_EQ(Read(translator, &Trad::get_InfoLlamada).get(), call.get());
  EXPECT_TRUE(IsSame(Read(translator, &Trad::get_InfoLlamada).get(), call.get()));
}

TEST_F(TradEstTest, CallRecordOutlivesItsTranslator) {
  Do(translator, &Trad::putref_Conmutador, SimpleConfig().get());
  Do(translator, &Trad::put_Llamada, kLine);
  translator = {};
  EXPECT_EQ(Read(call, &Trd::get_Emisor), u"0205");
  Do(call, &Trd::put_Emisor, u"0206");
  EXPECT_EQ(Read(call, &Trd::get_Emisor), u"0206");
  EXPECT_TRUE(IsValid());
}

TEST_F(TradEstTest, LeadingLineEndsAreDropped) {
  Do(translator, &Trad::put_Llamada, u"\r\n\n\rAB\r\n");
  EXPECT_EQ(Read(translator, &Trad::get_Llamada), u"AB\r\n");
  Do(translator, &Trad::put_Llamada, u"\r\n\r\n");
  EXPECT_EQ(Read(translator, &Trad::get_Llamada), u"");
}

TEST_F(TradEstTest, LineKeepsItsNuls) {
  Do(translator, &Trad::put_Llamada, TextView(u"A\0B\0", 4));
  EXPECT_EQ(Read(translator, &Trad::get_Llamada), Text(u"A\0B\0", 4));
}

TEST_F(TradEstTest, LineOfLineEndsOrNullClearsTheRecord) {
  Do(translator, &Trad::putref_Conmutador, SimpleConfig().get());
  Do(translator, &Trad::put_Llamada, kLine);
  Do(translator, &Trad::put_Llamada, u"\r\n");
  EXPECT_FALSE(IsValid());
  EXPECT_EQ(Read(call, &Trd::get_Emisor), u"");
  Do(translator, &Trad::put_Llamada, kLine);
  EXPECT_TRUE(IsValid());
  EXPECT_EQ(translator->put_Llamada(nullptr), S_OK);
  EXPECT_FALSE(IsValid());
}

TEST_F(TradEstTest, AfternoonIsALineWithoutTheMorningMarker) {
  const auto config = SimpleConfig();
  DefineConstant(config, emDatoCteIdentificadorHorarioMatutinoFecha, 31, u"AM");
  Do(translator, &Trad::putref_Conmutador, config.get());
  Do(translator, &Trad::put_Llamada, Text(kLine) + u"  PM");
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamFecha), 15);
  Do(translator, &Trad::put_Llamada, Text(kLine) + u" AM");
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamFecha), 3);
  Do(translator, &Trad::put_Llamada, u"12:15:00 0205 T001 5551234567  PM");
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamFecha), 12);
}

TEST_F(TradEstTest, OverflowReachesTheHostOfTheSetter) {
  const auto config = SimpleConfig();
  DefineItem(config, emParamTelefonoSaliente, 250, 6);
  Do(translator, &Trad::putref_Conmutador, config.get());
  EXPECT_EQ(Try(translator, &Trad::put_Llamada, kLine), kOverflowFailure);
  EXPECT_EQ(Read(translator, &Trad::get_Llamada), kLine);
  // What was read before stays read.
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamFecha), 3);
  EXPECT_EQ(Try(translator, &Trad::putref_Conmutador, config.get()), kOverflowFailure);
  EXPECT_EQ(Read(translator, &Trad::get_Conmutador).get(), config.get());
}

TEST_F(TradEstTest, TranslationsNeedAConfiguration) {
  EXPECT_EQ(Try(translator, &Trad::TraduceEstandar), kObjectNotSetFailure);
  EXPECT_EQ(Try(translator, &Trad::TraduceMeridian01), kObjectNotSetFailure);
  EXPECT_EQ(Try(translator, &Trad::TraduceNortelNorstar0x32SMDR6), kObjectNotSetFailure);
}

TEST_F(TradEstTest, StandardTranslationCanBeCalledByItself) {
  const auto config = SimpleConfig();
  auto none = emNoCaso;
  Do(config, &Cfg::put_Caso, &none);
  Do(translator, &Trad::putref_Conmutador, config.get());
  Do(translator, &Trad::put_Llamada, kLine);
  EXPECT_FALSE(IsValid());
  Do(translator, &Trad::TraduceEstandar);
  EXPECT_TRUE(IsValid());
}

TEST_F(TradEstTest, MeridianCaseCutsTheRecordOnItsLetter) {
  const auto config = SimpleConfig();
  auto meridian = emCasoNortelMeridian01;
  Do(config, &Cfg::put_Caso, &meridian);
  DefineConstant(config, emDatoCteIdentSaliente, 15, u"T");
  Do(translator, &Trad::putref_Conmutador, config.get());
  Do(translator, &Trad::put_Llamada, u"n3:15:20 0205 T001 5551234567");
  EXPECT_TRUE(IsValid());
  Do(translator, &Trad::put_Llamada, u"Z3:15:20 0205 T001 5551234567");
  EXPECT_FALSE(IsValid());
}

TEST_F(TradEstTest, ShortLineInAnOpenNorstarBlockIsAnInvalidArgument) {
  const auto config = SimpleConfig();
  auto norstar = emCasoNortelNorstar0x32SMDR6;
  Do(config, &Cfg::put_Caso, &norstar);
  Do(translator, &Trad::putref_Conmutador, config.get());
  Do(translator, &Trad::put_Llamada, u"corta 1");
  Do(translator, &Trad::put_Llamada, u"-------- 0205 T001");
  EXPECT_EQ(Try(translator, &Trad::put_Llamada, u"corta 1"), kInvalidArgumentFailure);
  Do(translator, &Trad::put_Llamada, u"00:07:20   CALL RELEASED");
  EXPECT_TRUE(IsValid());
  EXPECT_EQ(Read(call, &Trd::get_Receptor), u"T001");
}

TEST_F(TradEstTest, CallsArePutAsideAndFoundByTheirTrunk) {
  auto type = emLlamadaEntrante;
  Do(call, &Trd::put_TipoLlamada, &type);
  Do(call, &Trd::put_Emisor, u"t0123");
  Do(translator, &Trad::AltaLlamadaLista);
  const Bstr key(u"  T0123 ");
  EXPECT_EQ(Read(translator, &Trad::BuscaLlamadaTroncalLista, key.get()), 1);
  EXPECT_EQ(Read(translator, &Trad::BuscaLlamadaTroncalLista, nullptr), 0);
  for (const short place : std::initializer_list<short>{0, 101, -1, -32768, 32767, 2}) {
    Do(translator, &Trad::QuitaLlamadaLista, place);
    EXPECT_EQ(Read(translator, &Trad::BuscaLlamadaTroncalLista, key.get()), 1);
  }
  Do(translator, &Trad::QuitaLlamadaLista, short{1});
  EXPECT_EQ(Read(translator, &Trad::BuscaLlamadaTroncalLista, key.get()), 0);
  Do(translator, &Trad::QuitaLlamadaLista, short{1});
}

TEST_F(TradEstTest, ListHoldsAHundredCalls) {
  auto type = emLlamadaEntrante;
  Do(call, &Trd::put_TipoLlamada, &type);
  for (int i = 1; i <= 101; ++i) {
    Do(call, &Trd::put_Emisor, FromWide(std::to_wstring(i)));
    Do(translator, &Trad::AltaLlamadaLista);
  }
  EXPECT_EQ(Read(translator, &Trad::BuscaLlamadaTroncalLista, Bstr(u"100").get()), 100);
  EXPECT_EQ(Read(translator, &Trad::BuscaLlamadaTroncalLista, Bstr(u"101").get()), 0);
}

}  // namespace
}  // namespace conmuta::test
