// The report of a translation, to the character.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/errors.h"
#include "support/fake_month_names.h"
#include "support/report_lines.h"
#include "support/translation.h"
#include "translate/report.h"

namespace conmuta {
namespace {

using test::ConfigBuilder;
using test::LinesOf;
using test::Shown;
using test::ShownAll;
using testing::ElementsAreArray;

class TranslationReportText : public testing::Test {
 protected:
  void SetDate(int year, int month, int day) {
    desk.call().Anio(emParamFecha, static_cast<std::int16_t>(year));
    desk.call().Mes(emParamFecha, static_cast<std::int16_t>(month));
    desk.call().Dia(emParamFecha, static_cast<std::int16_t>(day));
  }
  void SetTime(int hours, int minutes, int seconds) {
    desk.call().Horas(emParamFecha, static_cast<std::int16_t>(hours));
    desk.call().Minutos(emParamFecha, static_cast<std::int16_t>(minutes));
    desk.call().Segundos(emParamFecha, static_cast<std::int16_t>(seconds));
  }
  std::vector<std::string> Lines() { return LinesOf(TranslationReport(desk.translator, months)); }

  enum Line : std::size_t {
    kRaw = 5,
    kDate = 8,
    kTime = 9,
    kType = 17,
    kAttribute = 18,
    kValid = 20
  };

  test::FakeMonthNames months;
  test::Translation desk{ConfigBuilder().Build()};
};

TEST_F(TranslationReportText, OfACall) {
  desk.config->Caso(emCasoSamsungNX_820);
  desk.Translate(u"\r\n  21/11/26 10:05  x  ");
  SetDate(2026, 11, 21);
  SetTime(10, 5, 3);
  desk.call().Minutos(emParamDuracion, 7);
  desk.call().Segundos(emParamDuracion, 20);
  desk.call().Ring(12);
  desk.call().Telefono(u"5551234567");
  desk.call().CodigoCuenta(u"0042");
  desk.call().Emisor(u"T001");
  desk.call().Receptor(u"205");
  desk.call().TipoLlamada(emLlamadaEntrante);
  desk.call().Atributos(emAtributoFinTransferida);
  EXPECT_THAT(Lines(), ElementsAreArray(ShownAll({
                           u"",
                           u"    Conmutador :ACME, X1",
                           u"    Version    :3.0",
                           u"    Caso       :Caso de Samsung Nx-820",
                           u"",
                           u"  Llamada original : {/  21/11/26 10:05  x  /}",
                           u"",
                           u"",
                           u"  Fecha .............: 21/M11/2026",
                           u"  Hora ..............: 10:05:03",
                           u"  Duración ..........: 440",
                           u"  Ring ..............: 12",
                           u"  Teléfono ..........: 5551234567",
                           u"  Cuenta de usuario .: 0042",
                           u"  Emisor ............: T001",
                           u"  Receptor ..........: 205",
                           u"",
                           u"  Tipo de llamada....: Entrante",
                           u"  Atributos .........: Fin de transferida",
                           u"",
                           u"  Llamada válida ....: SI",
                           u"",
                       })));
}

TEST_F(TranslationReportText, OfAnUntranslatedLine) {
  EXPECT_THAT(Lines(), ElementsAreArray(ShownAll({
                           u"",
                           u"    Conmutador :ACME, X1",
                           u"    Version    :3.0",
                           u"    Caso       :Estandar",
                           u"",
                           u"  Llamada original : {//}",
                           u"",
                           u"",
                           u"  Fecha .............: 01/M01/0100",
                           u"  Hora ..............: 00:00:00",
                           u"  Duración ..........: 0",
                           u"  Ring ..............: 0",
                           u"  Teléfono ..........: ",
                           u"  Cuenta de usuario .: ",
                           u"  Emisor ............: ",
                           u"  Receptor ..........: ",
                           u"",
                           u"  Tipo de llamada....: No definido",
                           u"  Atributos .........: Sin atributo",
                           u"",
                           u"  Llamada válida ....: NO",
                           u"",
                       })));
}

TEST_F(TranslationReportText, FramesTheRawLineAsItCame) {
  for (const TextView line : {TextView(u" a "), TextView(u"a/}  "), TextView(u"\ta"),
                              TextView(u"a\r\nb\r\n"), TextView(u"ñ\0€", 3)}) {
    desk.Translate(line);
    const Text report = TranslationReport(desk.translator, months);
    const Text framed = Text(u"\r\n  Llamada original : {/").append(line).append(u"/}\r\n\r\n\r\n");
    EXPECT_NE(report.find(framed), Text::npos) << Shown(report);
  }
}

TEST_F(TranslationReportText, Dates) {
  const struct {
    int year, month, day;
    TextView shown;
  } dates[] = {
      {2026, 1, 1, u"01/M01/2026"},   {2026, 12, 31, u"31/M12/2026"},
      {2024, 2, 29, u"29/M02/2024"},  {2026, 2, 31, u"03/M03/2026"},
      {2024, 2, 31, u"02/M03/2024"},  {2026, 4, 31, u"01/M05/2026"},
      {2023, 2, 29, u"01/M03/2023"},  {29, 5, 6, u"06/M05/2029"},
      {30, 5, 6, u"06/M05/1930"},     {99, 5, 6, u"06/M05/1999"},
      {100, 5, 6, u"06/M05/0100"},    {1899, 12, 30, u"30/M12/1899"},
      {1899, 12, 29, u"29/M12/1899"}, {9999, 12, 31, u"31/M12/9999"},
  };
  for (const auto& date : dates) {
    SetDate(date.year, date.month, date.day);
    EXPECT_EQ(Lines()[kDate], "  Fecha .............: " + Shown(date.shown));
  }
}

TEST_F(TranslationReportText, OfACallAfterTheLastYearIsRefused) {
  SetDate(10000, 1, 1);
  EXPECT_THROW(TranslationReport(desk.translator, months), InvalidArgumentError);
}

TEST_F(TranslationReportText, Times) {
  const struct {
    int hours, minutes, seconds;
    TextView shown;
  } times[] = {
      {1, 0, 0, u"01:00:00"},   {9, 8, 7, u"09:08:07"},    {23, 59, 59, u"23:59:59"},
      {0, 30, 15, u"00:00:00"}, {24, 0, 0, u"00:00:00"},   {25, 2, 3, u"01:02:03"},
      {12, 59, 0, u"12:59:00"}, {47, 59, 59, u"23:59:59"}, {49, 0, 1, u"01:00:01"},
  };
  for (const auto& time : times) {
    SetTime(time.hours, time.minutes, time.seconds);
    EXPECT_EQ(Lines()[kTime], "  Hora ..............: " + Shown(time.shown));
  }
}

TEST_F(TranslationReportText, EverySecondOfTheDayIsShownAsItself) {
  for (int second = 3600; second < 24 * 3600; second += 7) {
    SetTime(second / 3600, second / 60 % 60, second % 60);
    char expected[64];
    std::snprintf(expected, sizeof expected, "  Hora ..............: %02d:%02d:%02d", second / 3600,
                  second / 60 % 60, second % 60);
    ASSERT_EQ(Lines()[kTime], expected);
  }
}

TEST_F(TranslationReportText, NamesTheType) {
  const struct {
    emTiposLlamadas type;
    TextView name;
  } types[] = {
      {emLlamadaNoAnalizada, u"No definido"},
      {emLlamadaIndefinida, u"No definido"},
      {emLlamadaEntrante, u"Entrante"},
      {emLlamadaSaliente, u"Saliente"},
      {emLlamadaInterExtension, u"Inter-extension"},
      {emLlamadaInterTroncal, u"Inter-troncal"},
      {emLlamadaCodigoCuenta, u"No definido"},
  };
  for (const auto& row : types) {
    desk.call().TipoLlamada(row.type);
    EXPECT_EQ(Lines()[kType], "  Tipo de llamada....: " + Shown(row.name)) << row.type;
  }
}

TEST_F(TranslationReportText, NamesTheAttribute) {
  const struct {
    emAtributosLlamadas attribute;
    TextView name;
  } attributes[] = {
      {emSinAtributo, u"Sin atributo"},
      {emAtributoIniTransferida, u"Inicio de transferida"},
      {emAtributoEnTransferencia, u"Sin atributo"},
      {emAtributoFinTransferida, u"Fin de transferida"},
  };
  for (const auto& row : attributes) {
    desk.call().Atributos(row.attribute);
    EXPECT_EQ(Lines()[kAttribute], "  Atributos .........: " + Shown(row.name)) << row.attribute;
  }
}

TEST_F(TranslationReportText, ValidOnlyWithEverythingThatBillingNeeds) {
  SetDate(2026, 11, 21);
  desk.call().TipoLlamada(emLlamadaSaliente);
  desk.call().Emisor(u"205");
  EXPECT_EQ(Lines()[kValid], Shown(u"  Llamada válida ....: NO"));
  desk.call().Receptor(u"T1");
  EXPECT_EQ(Lines()[kValid], Shown(u"  Llamada válida ....: SI"));
}

TEST_F(TranslationReportText, ShowsNegativeDurations) {
  desk.call().Anio(emParamDuracion, 2026);
  desk.call().Mes(emParamDuracion, 11);
  desk.call().Dia(emParamDuracion, 21);
  SetDate(2026, 11, 21);
  SetTime(10, 5, 30);
  desk.call().Horas(emParamDuracion, 10);
  desk.call().Minutos(emParamDuracion, 6);
  desk.call().Segundos(emParamDuracion, 31);
  desk.call().AjustaDuracionPorRestaFechas();
  EXPECT_EQ(Lines()[10],
            Shown(u"  Duración ..........: ") + std::to_string(desk.call().Duracion()));
}

TEST_F(TranslationReportText, NeedsAConfiguration) {
  desk.translator.Conmutador(nullptr);
  EXPECT_THROW(TranslationReport(desk.translator, months), ObjectNotSetError);
}

TEST_F(TranslationReportText, ChangesNothing) {
  desk.Translate(u"line");
  desk.call().Emisor(u"205");
  const auto before = test::ValuesOf(desk.call());
  const Text first = TranslationReport(desk.translator, months);
  EXPECT_EQ(test::ValuesOf(desk.call()), before);
  EXPECT_EQ(TranslationReport(desk.translator, months), first);
}

TEST_F(TranslationReportText, TakesTheSystemsMonths) {
  SetDate(2026, 11, 21);
  const Text november = SystemMonthNames().Abbreviation(11);
  EXPECT_FALSE(november.empty());
  const auto lines = LinesOf(TranslationReport(desk.translator, SystemMonthNames()));
  EXPECT_EQ(lines[kDate], "  Fecha .............: 21/" + Shown(november) + "/2026");
}

}  // namespace
}  // namespace conmuta
