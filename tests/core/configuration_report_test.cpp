// The report of a configuration, to the character.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/descriptions.h"
#include "config/report.h"
#include "support/config_bench.h"
#include "support/full_config.h"
#include "support/report_lines.h"

namespace conmuta {
namespace {

using test::ConfigBench;
using test::DefineConstant;
using test::DefineItem;
using test::LinesOf;
using test::Shown;
using test::ShownAll;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::size_t kFirstItem = 9;  // lines before the first row

const Text kItemHeading = u"     VARIABLES (DATOS)" + Text(43, u' ') + u" POS  TAM  T-DATO";
const Text kConstantHeading =
    u"     VARIABLES (CONSTANTES)" + Text(38, u' ') + u" POS  TAM  CONSTANTE";

class ConfigurationReportText : public testing::Test, protected ConfigBench {
 protected:
  std::vector<std::string> Lines() { return LinesOf(ConfigurationReport(config)); }

  // The rows of a section that begins at that line.
  std::vector<std::string> RowsFrom(std::size_t line) {
    const auto lines = Lines();
    std::vector<std::string> rows;
    for (std::size_t i = line; i < lines.size() && !lines[i].empty(); ++i) rows.push_back(lines[i]);
    return rows;
  }
  std::vector<std::string> ItemRows() { return RowsFrom(kFirstItem); }
  std::vector<std::string> ConstantRows() { return RowsFrom(kFirstItem + ItemRows().size() + 4); }
};

TEST_F(ConfigurationReportText, OfAnEmptyConfiguration) {
  EXPECT_THAT(Lines(), ElementsAreArray(ShownAll({
                           u"",
                           u"   Conmutador  : Desconocido",
                           u"   Versión     : 3.0",
                           u"   Caso        : Estandar",
                           u"   Separadores : 0,0,0,0,0,0,0,0,0,0,",
                           u"",
                           u"",
                           kItemHeading,
                           Text(84, u'-'),
                           u"No hay datos.",
                           u"",
                           u"",
                           kConstantHeading,
                           Text(85, u'-'),
                           u"No hay datos.",
                           u"",
                       })));
}

TEST_F(ConfigurationReportText, OfAConfigurationInUse) {
  Name();
  config.Separador(u"\r\n;");
  config.Caso(emCasoRestaFechasDuracion);
  DefineItem(config, emParamTroncal2InterTroncalFinTransferida, 255, 255, emValorConstante);
  DefineItem(config, emParamFechaDia, 1, 2);
  DefineItem(config, emParamTelefonoSaliente, 40, 18, emValorCadena);
  DefineConstant(config, emDatoCteIdentSaliente, 100, u" OUT ");
  DefineConstant(config, emDatoCteIdentEntranteAND, 7, u"<I>");
  EXPECT_THAT(
      Lines(),
      ElementsAreArray(ShownAll({
          u"",
          u"   Conmutador  : ACME, X1",
          u"   Versión     : 3.0",
          u"   Caso        : Resta de fechas para calcular la duración",
          u"   Separadores : 13,10,59,0,0,0,0,0,0,0,",
          u"",
          u"",
          kItemHeading,
          Text(84, u'-'),
          u"01.- Día de la fecha ............................................   1    2  Numérico",
          u"02.- Numero telefónico saliente..................................  40   18  Cadena",
          u"03.- Troncal No. 2 de fin de transferida inter - troncal......... 255  255  Constante",
          u"",
          u"",
          kConstantHeading,
          Text(85, u'-'),
          u"01.- Identificador de entrante (AND).............................   7    3  $(<I>)",
          u"02.- Identificador de saliente................................... 100    5  $( OUT )",
          u"",
      })));
}

TEST_F(ConfigurationReportText, ItsTwoRulesAreOfDifferentLength) {
  const auto lines = Lines();
  EXPECT_EQ(lines[8].size(), lines[7].size() + 2);
  EXPECT_EQ(lines[13].size(), lines[12].size());
}

TEST_F(ConfigurationReportText, SaysSoWhereThereIsNothing) {
  DefineConstant(config, emDatoCteIdentEntrante, 1, u"I");
  EXPECT_EQ(Lines()[9], "No hay datos.");
  EXPECT_EQ(Lines()[14].substr(0, 5), "01.- ");
  config.Iniciar();
  DefineItem(config, emParamFechaSegundos, 1, 12, emValorCadena);
  EXPECT_EQ(Lines()[9], Shown(u"01.- Segundo de la fecha" + Text(41, u'.') + u"   1   12  Cadena"));
  EXPECT_EQ(Lines()[14], "No hay datos.");
}

TEST_F(ConfigurationReportText, NamesTheTypeOfAnItem) {
  const struct {
    int type;
    TextView name;
  } types[] = {{1, u"Numérico"},    {2, u"Constante"},    {3, u"Cadena"},
               {4, u"No definido"}, {-1, u"No definido"}, {255, u"No definido"}};
  for (const auto& row : types) {
    DefineItem(config, emParamFechaSegundos, 3, 4, static_cast<emTipoDato>(row.type));
    ASSERT_EQ(ItemRows().size(), 1u) << row.type;
    EXPECT_EQ(ItemRows()[0], Shown(u"01.- Segundo de la fecha" + Text(41, u'.') + u"   3    4  " +
                                   Text(row.name)));
  }
}

TEST_F(ConfigurationReportText, ListsEveryKindByItsCode) {
  Fill(config, test::FullFile());
  const auto items = ItemRows();
  ASSERT_EQ(items.size(), 52u);
  for (std::size_t i = 0; i < items.size(); ++i) {
    const int code = static_cast<int>(i) + 2;
    const std::string number = (i < 9 ? "0" : "") + std::to_string(i + 1);
    const Text description(basConmuta::DescDATO(static_cast<emParamDato>(code)));
    EXPECT_EQ(items[i].find(number + ".- " + Shown(description) + "."), 0u) << items[i];
  }
  const auto constants = ConstantRows();
  ASSERT_EQ(constants.size(), 22u);
  for (std::size_t i = 0; i < constants.size(); ++i) {
    const int code = static_cast<int>(i) + 2;
    const std::string number = (i < 9 ? "0" : "") + std::to_string(i + 1);
    const Text description(basConmuta::DescCTE(static_cast<emParamDatoConstante>(code)));
    EXPECT_EQ(constants[i].find(number + ".- " + Shown(description) + "."), 0u) << constants[i];
  }
}

TEST_F(ConfigurationReportText, EveryRowHasItsColumnsBelowTheHeading) {
  Fill(config, test::FullFile());
  const Text report = ConfigurationReport(config);
  std::size_t rows = 0;
  for (std::size_t at = 0; (at = report.find(u"\r\n", at)) != Text::npos; ++at) {
    const TextView line = TextView(report).substr(at + 2, report.find(u"\r\n", at + 2) - at - 2);
    if (line.size() < 5 || line.substr(2, 3) != u".- ") continue;
    ++rows;
    EXPECT_EQ(line.substr(69, 2), u"  ") << Shown(line);
    EXPECT_EQ(line.substr(74, 2), u"  ") << Shown(line);
    EXPECT_TRUE(IsDigit(line[68]) && IsDigit(line[73])) << Shown(line);
  }
  EXPECT_EQ(rows, 52u + 22u);
  EXPECT_EQ(kItemHeading.find(u" POS"), 65u);
  EXPECT_EQ(kConstantHeading.find(u" POS"), 65u);
}

TEST_F(ConfigurationReportText, LeavesOutReleasedSlots) {
  DefineItem(config, emParamFechaDia, 1, 2);
  DefineItem(config, emParamFechaMes, 4, 2);
  DefineConstant(config, emDatoCteIdentEntrante, 1, u"I");
  DefineConstant(config, emDatoCteIdentSaliente, 1, u"O");
  config.DATOActivo(emParamFechaDia);
  config.TipoDatoDATO(emNoDefinido);
  config.CTEActivo(emDatoCteIdentEntrante);
  config.Constante(u"");
  EXPECT_EQ(ItemRows().size(), 1u);
  EXPECT_EQ(ItemRows()[0].substr(0, 20), "01.- Mes de la fecha");
  EXPECT_EQ(ConstantRows().size(), 1u);
  EXPECT_EQ(ConstantRows()[0].substr(0, 30), "01.- Identificador de saliente");
}

TEST_F(ConfigurationReportText, ShowsTheConstantAsItReads) {
  DefineConstant(config, emDatoCteIdentEntrante, 2, TextView(u"A\0B)", 4));
  config.CTETam(9);
  EXPECT_EQ(ConstantRows()[0],
            Shown(u"01.- Identificador de entrante" + Text(35, u'.') + u"   2    9  $(AB))"));
}

TEST_F(ConfigurationReportText, ShowsNoNameForAnUnknownCase) {
  for (const int code : {77, -1, 1000}) {
    config.Caso(static_cast<emCasos>(code));
    EXPECT_EQ(Lines()[3], "   Caso        : ");
  }
  config.Caso(emNoCaso);
  EXPECT_EQ(Lines()[3], "   Caso        : No definido");
}

TEST_F(ConfigurationReportText, LeavesTheLastKindsAddressedAndNothingElseChanged) {
  Name();
  DefineItem(config, emParamFechaDia, 1, 2);
  DefineConstant(config, emDatoCteIdentEntrante, 1, u"I");
  config.DATOActivo(emParamFechaDia);
  config.CTEActivo(emDatoCteIdentEntrante);
  const auto before = test::Snapshot::OfContent(config);
  TakeEvents();
  const Text first = ConfigurationReport(config);
  EXPECT_EQ(config.DATOActivo(), 53);
  EXPECT_EQ(config.CTEActivo(), 23);
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_EQ(test::Snapshot::OfContent(config), before);
  EXPECT_EQ(ConfigurationReport(config), first);
}

}  // namespace
}  // namespace conmuta
