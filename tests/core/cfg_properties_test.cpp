// What a configuration holds beside its slots and its cable.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "config/character_codes.h"
#include "support/config_bench.h"
#include "support/config_snapshot.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::ConfigBench;
using test::Snapshot;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kLowestId = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighestId = std::numeric_limits<std::int32_t>::max();

TEST(FreshConfiguration, IsEmptyAndOfTheStandardCase) {
  ConfigBench bench;
  const clsCfgConmut& config = bench.config;
  EXPECT_FALSE(config.HayConfig());
  EXPECT_FALSE(config.Modificado());
  EXPECT_EQ(config.NombreConmutador(), u"Desconocido");
  EXPECT_EQ(config.Version(), emVersion3_0);
  EXPECT_EQ(config.NombreVersion(), u"3.0");
  EXPECT_EQ(config.Caso(), emCasoEstandar);
  EXPECT_EQ(config.NombreCaso(), u"Estandar");
  EXPECT_EQ(config.ListaSeparador(), u"0,0,0,0,0,0,0,0,0,0,");
  EXPECT_EQ(config.IDCfg(), 0);
  EXPECT_EQ(config.Marca(), u"");
  EXPECT_EQ(config.Modelo(), u"");
  EXPECT_EQ(config.Comentarios(), u"");
  EXPECT_EQ(config.Separador(), u"");
  EXPECT_EQ(config.DATOActivo(), emNoParamDato);
  EXPECT_EQ(config.CTEActivo(), emNoParamDatoConstante);
  EXPECT_EQ(config.PuertoActivo(), emNoPuerto);
  EXPECT_EQ(config.PinIZQ(), 0);
  EXPECT_EQ(config.PinDER(), 0);
  EXPECT_THAT(bench.TakeEvents(), IsEmpty());
}

TEST(FreshConfiguration, IniciarOnlyRaisesInicializado) {
  ConfigBench bench;
  const Snapshot before = Snapshot::OfState(bench.config);
  bench.config.Iniciar();
  EXPECT_EQ(Snapshot::OfState(bench.config), before);
  EXPECT_THAT(bench.TakeEvents(), ElementsAre("Inicializado"));
}

TEST(ConfigLimits, AreThoseOfTheStoredTexts) {
  EXPECT_EQ(clsCfgConmut::kTamMaxSeparador, 10);
  EXPECT_EQ(clsCfgConmut::kTamMaxComentarios, 250);
}

// A text property, however it is called.
struct TextProperty {
  const char* name;
  std::size_t width;
  Text (clsCfgConmut::*read)() const;
  void (clsCfgConmut::*write)(TextView);
  std::vector<std::string> events;
};

void PrintTo(const TextProperty& property, std::ostream* out) {
  *out << property.name;
}

class ConfigText : public testing::TestWithParam<TextProperty> {
 protected:
  Text Read() const { return (bench_.config.*GetParam().read)(); }
  void Write(TextView value) { (bench_.config.*GetParam().write)(value); }

  ConfigBench bench_;
};

TEST_P(ConfigText, RaisesItsEventsOnlyForAnotherValue) {
  Write(u"ACME");
  EXPECT_EQ(Read(), u"ACME");
  EXPECT_EQ(bench_.TakeEvents(), GetParam().events);
  EXPECT_TRUE(bench_.config.Modificado());
  Write(u"ACME");
  Write(u"ACME\0\0"s);
  EXPECT_THAT(bench_.TakeEvents(), IsEmpty());
  Write(u"acme");  // letter case counts
  EXPECT_EQ(bench_.TakeEvents(), GetParam().events);
}

TEST_P(ConfigText, WritingTheSameAgainLeavesTheChangeFlag) {
  Write(u"");
  EXPECT_FALSE(bench_.config.Modificado());
  EXPECT_THAT(bench_.TakeEvents(), IsEmpty());
}

TEST_P(ConfigText, IsCutToItsWidth) {
  const Text full(GetParam().width, u'x');
  Write(full + u"yz");
  EXPECT_EQ(Read(), full);
  bench_.TakeEvents();
  Write(full);
  Write(full + u"other");
  EXPECT_THAT(bench_.TakeEvents(), IsEmpty());
  Write(full.substr(1));
  EXPECT_EQ(Read(), full.substr(1));
  EXPECT_EQ(bench_.TakeEvents(), GetParam().events);
}

TEST_P(ConfigText, DropsNulsOnReadingOnly) {
  Write(u"\0a\0b"s);
  EXPECT_EQ(Read(), u"ab");
  bench_.TakeEvents();
  Write(u"ab");  // stored differently
  EXPECT_EQ(bench_.TakeEvents(), GetParam().events);
  Write(Text(GetParam().width, kNul) + u"x");  // the x is cut off
  EXPECT_EQ(Read(), u"");
}

TEST_P(ConfigText, KeepsBlanksControlsAndForeignLetters) {
  const Text text = u" \t\r\n\u00F1\u4E2D ";
  Write(text);
  EXPECT_EQ(Read(), text);
}

TEST_P(ConfigText, IsClearedByIniciar) {
  Write(u"ACME");
  bench_.TakeEvents();
  bench_.config.Iniciar();
  EXPECT_EQ(Read(), u"");
  EXPECT_FALSE(bench_.config.Modificado());
  auto expected = GetParam().events;
  expected.emplace_back("Inicializado");
  EXPECT_EQ(bench_.TakeEvents(), expected);
}

INSTANTIATE_TEST_SUITE_P(All, ConfigText,
                         testing::Values(TextProperty{"Marca",
                                                      50,
                                                      &clsCfgConmut::Marca,
                                                      &clsCfgConmut::Marca,
                                                      {"CambioNombreConmutador", "Cambios"}},
                                         TextProperty{"Modelo",
                                                      50,
                                                      &clsCfgConmut::Modelo,
                                                      &clsCfgConmut::Modelo,
                                                      {"CambioNombreConmutador", "Cambios"}},
                                         TextProperty{"Comentarios",
                                                      250,
                                                      &clsCfgConmut::Comentarios,
                                                      &clsCfgConmut::Comentarios,
                                                      {"Cambios"}},
                                         TextProperty{"Separador",
                                                      10,
                                                      &clsCfgConmut::Separador,
                                                      &clsCfgConmut::Separador,
                                                      {"Cambios"}}),
                         [](const auto& test) { return test.param.name; });

TEST(NombreConmutador, JoinsBrandAndModel) {
  ConfigBench bench;
  bench.config.Marca(u"ACME");
  EXPECT_EQ(bench.config.NombreConmutador(), u"Desconocido");
  bench.config.Modelo(u"X1");
  EXPECT_EQ(bench.config.NombreConmutador(), u"ACME, X1");
  bench.config.Marca(u"\0"s);
  EXPECT_EQ(bench.config.NombreConmutador(), u"Desconocido");
  bench.config.Marca(u" ");  // a blank is a name
  EXPECT_EQ(bench.config.NombreConmutador(), u" , X1");
}

TEST(HayConfig, NeedsCaseBrandAndModel) {
  ConfigBench bench;
  bench.config.Marca(u"ACME");
  EXPECT_FALSE(bench.config.HayConfig());
  bench.config.Modelo(u"X1");
  EXPECT_TRUE(bench.config.HayConfig());
  bench.config.Caso(emNoCaso);
  EXPECT_FALSE(bench.config.HayConfig());
  bench.config.Caso(static_cast<emCasos>(-1));  // any case but 0
  EXPECT_TRUE(bench.config.HayConfig());
  bench.config.Marca(u"");
  EXPECT_FALSE(bench.config.HayConfig());
}

TEST(ConfigCase, TakesAnyCode) {
  ConfigBench bench;
  for (const std::int32_t code : {kLowestId, -1, 0, 5, 6, 9, kHighestId}) {
    const auto value = static_cast<emCasos>(code);
    bench.config.Caso(value);
    EXPECT_EQ(bench.config.Caso(), code);
    EXPECT_THAT(bench.TakeEvents(), ElementsAre("Cambios"));
    bench.config.Caso(value);
    EXPECT_THAT(bench.TakeEvents(), IsEmpty());
  }
  EXPECT_TRUE(bench.config.Modificado());
}

TEST(ConfigCase, NameIsThatOfTheStoredCase) {
  ConfigBench bench;
  bench.config.Caso(emNoCaso);
  EXPECT_EQ(bench.config.NombreCaso(), u"No definido");
  bench.config.Caso(static_cast<emCasos>(77));
  EXPECT_EQ(bench.config.NombreCaso(), u"");
  bench.config.Caso(static_cast<emCasos>(-1));
  EXPECT_EQ(bench.config.NombreCaso(), u"");
  bench.config.Caso(emCasoRestaFechasDuracion);
  EXPECT_EQ(bench.config.NombreCaso(), u"Resta de fechas para calcular la duraci\u00F3n");
}

TEST(ConfigCase, WritingTheDefaultChangesNothing) {
  ConfigBench bench;
  bench.config.Caso(emCasoEstandar);
  EXPECT_FALSE(bench.config.Modificado());
  EXPECT_THAT(bench.TakeEvents(), IsEmpty());
}

TEST(IDCfg, IsAPlainValueThatOutlivesIniciar) {
  ConfigBench bench;
  for (const std::int32_t id : {kLowestId, -1, 7, kHighestId}) {
    bench.config.IDCfg(id);
    bench.config.Iniciar();
    EXPECT_EQ(bench.config.IDCfg(), id);
    EXPECT_FALSE(bench.config.Modificado());
    EXPECT_THAT(bench.TakeEvents(), ElementsAre("Inicializado"));
  }
}

TEST(ListaSeparador, AlwaysHasTenCodesAndEndsWithAComma) {
  struct Row {
    Text separator;
    Text codes;
  };
  const Row rows[] = {
      {u"\r\n", u"13,10,0,0,0,0,0,0,0,0,"},
      {u"\r\0\n"s, u"13,10,0,0,0,0,0,0,0,0,"},  // as read
      {u"\u00F1", u"241,0,0,0,0,0,0,0,0,0,"},
      {u"\u4E2D*", u"63,42,0,0,0,0,0,0,0,0,"},  // what the code page lacks is "?"
      {u"0123456789abc", u"48,49,50,51,52,53,54,55,56,57,"},
      {u" ", u"32,0,0,0,0,0,0,0,0,0,"},
  };
  for (const Row& row : rows) {
    ConfigBench bench;
    bench.config.Separador(row.separator);
    EXPECT_EQ(bench.config.ListaSeparador(), row.codes);
  }
}

TEST(CharacterCodes, AreAsManyAsAsked) {
  const test::Latin1 code_page;
  EXPECT_EQ(basConmuta::CadenaACodigos(code_page, u"ab", 3), u"97,98,0,");
  EXPECT_EQ(basConmuta::CadenaACodigos(code_page, u"ab", 1), u"97,");
  EXPECT_EQ(basConmuta::CadenaACodigos(code_page, u"ab", 0), u"");
  EXPECT_EQ(basConmuta::CadenaACodigos(code_page, u"a\0b"s, 3), u"97,0,98,");
  EXPECT_EQ(basConmuta::CadenaACodigos(test::SeveralBytes(), u"\u00F1", 1), u"63,");
}

TEST(Iniciar, ResetsEverythingButIdAndConnectorPair) {
  ConfigBench bench;
  clsCfgConmut& config = bench.config;
  bench.Name();
  config.Comentarios(u"text");
  config.Caso(emCasoSamsungNX_820);
  config.IDCfg(7);
  config.PuertoActivo(emPuertoSerialDB25DB25);
  config.PinIZQ(20);
  config.PinDER(21);
  config.PinesConectados(true);
  test::DefineItem(config, emParamFechaDia, 5, 2);
  test::DefineConstant(config, emDatoCteIdentEntrante, 1, u"IN");
  ASSERT_TRUE(config.Modificado());

  config.Iniciar();
  EXPECT_FALSE(config.Modificado());
  EXPECT_FALSE(config.HayConfig());
  EXPECT_EQ(config.Comentarios(), u"");
  EXPECT_EQ(config.Separador(), u"");
  EXPECT_EQ(config.Caso(), emCasoEstandar);
  EXPECT_EQ(config.Version(), emVersion3_0);
  EXPECT_EQ(config.DATOActivo(), emNoParamDato);
  EXPECT_EQ(config.CTEActivo(), emNoParamDatoConstante);
  EXPECT_EQ(config.PinIZQ(), 0);
  EXPECT_EQ(config.PinDER(), 0);
  EXPECT_EQ(config.IDCfg(), 7);
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
}

TEST(Iniciar, RunsWithoutAListener) {
  ConfigBench bench;
  bench.config.Listen(nullptr);
  bench.Name();
  bench.config.Comentarios(u"text");
  bench.config.Iniciar();
  EXPECT_EQ(bench.config.NombreConmutador(), u"Desconocido");
  EXPECT_THAT(bench.TakeEvents(), IsEmpty());
}

}  // namespace
}  // namespace conmuta
