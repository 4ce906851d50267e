// What Exportar writes, and what it leaves alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/exchange_bench.h"
#include "support/failing_profiles.h"
#include "support/full_config.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::DefineConstant;
using test::DefineItem;
using test::SiteKind;
using test::Snapshot;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kNine = "0,0,0,0,0,0,0,0,0,";
const std::string kTwentyFive = "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,";

class ConfigExport : public testing::TestWithParam<SiteKind>, protected test::ExchangeBench {
 protected:
  ConfigExport() : ExchangeBench(GetParam()) { Name(); }

  void Wire(emPuertoSerial pair, std::int16_t left, std::int16_t right) {
    config.PuertoActivo(emPuertoSerialDB25DB25);  // where every pin can be chosen
    config.PinIZQ(left);
    config.PinDER(right);
    config.PuertoActivo(pair);
    config.PinesConectados(true);
  }
  // The sections, by name.
  std::vector<std::string> Sections() const {
    std::vector<std::string> sections;
    for (const std::string& line : Lines()) {
      if (line.starts_with("[")) sections.push_back(line);
    }
    return sections;
  }
};

INSTANTIATE_TEST_SUITE_P(, ConfigExport, testing::ValuesIn(test::kEverySite),
                         [](const auto& info) { return test::SiteName(info.param); });

TEST_P(ConfigExport, WritesSectionsAndKeysInTheirOrder) {
  config.Comentarios(u"Central del piso 3");
  Wire(emPuertoSerialDB9DB9, 2, 3);
  Wire(emPuertoSerialDB9DB25, 9, 25);
  Wire(emPuertoSerialDB25DB9, 25, 1);
  Wire(emPuertoSerialDB25DB9, 25, 9);
  Wire(emPuertoSerialDB25DB25, 1, 1);
  DefineItem(config, emParamExtensionSaliente, 40, 4, emValorCadena);
  DefineItem(config, emParamFechaDia, 1, 2);
  DefineConstant(config, emDatoCteIdentSaliente, 30, u"OUT");
  DefineConstant(config, emDatoCteIdentEntrante, 30, u"IN");
  Export();
  const std::string twenty_four = kTwentyFive.substr(2);
  const std::string tail = "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,";
  EXPECT_THAT(Lines(), ElementsAre("[Conmutador]",                       //
                                   "Version=3",                          //
                                   "Marca=ACME",                         //
                                   "Modelo=X1",                          //
                                   "Caso=1",                             //
                                   "Separador=13,10,0,0,0,0,0,0,0,0,",   //
                                   "Comentarios=Central del piso 3",     //
                                   "[Puertos]",                          //
                                   "DB9DB9=0,4,0,0,0,0,0,0,0,",          //
                                   "DB9DB25=0,0,0,0,0,0,0,0,16777216,",  //
                                   "DB25DB9=" + twenty_four + "257,",    //
                                   "DB25DB25=1," + twenty_four,          //
                                   "[Datos]",                            //
                                   "Dato1=33,3,40,4,",                   //
                                   "Dato2=2,1,1,2,",                     //
                                   "[Constantes]",                       //
                                   "Constante1=7,2,30,3,$(79,85,84," + tail + ")",
                                   "Constante2=4,2,30,2,$(73,78,0," + tail + ")"));
}

TEST_P(ConfigExport, WritesAnEmptyConfigurationToo) {
  config.Iniciar();
  Export();
  EXPECT_THAT(Lines(), ElementsAre("[Conmutador]", "Version=3", "Marca=", "Modelo=", "Caso=1",
                                   "Separador=0,0,0,0,0,0,0,0,0,0,", "Comentarios=", "[Puertos]",
                                   "DB9DB9=" + kNine, "DB9DB25=" + kNine, "DB25DB9=" + kTwentyFive,
                                   "DB25DB25=" + kTwentyFive));
}

TEST_P(ConfigExport, HasNoSectionForItemsOrConstantsThatThereAreNot) {
  Export();
  EXPECT_THAT(Sections(), ElementsAre("[Conmutador]", "[Puertos]"));
  DefineConstant(config, emDatoCteIdentSaliente, 30, u"OUT");
  Export();
  EXPECT_THAT(Sections(), ElementsAre("[Conmutador]", "[Puertos]", "[Constantes]"));
  config.CTEPos(0);
  DefineItem(config, emParamFechaDia, 1, 2);
  Export();
  EXPECT_THAT(Sections(), ElementsAre("[Conmutador]", "[Puertos]", "[Datos]"));
}

TEST_P(ConfigExport, WritesAllThatAConfigurationCanHold) {
  test::Fill(config, test::FullFile());
  Export();
  EXPECT_EQ(Lines().size(), 4u + 6 + 4 + 52 + 22);
  EXPECT_EQ(Line("Dato1"), "Dato1=53,3,202,53,");  // in the order they were made
  EXPECT_EQ(Line("Dato52"), "Dato52=2,3,253,2,");
  EXPECT_THAT(Line("Constante1"), StartsWith("Constante1=2,2,102,1,$(67,0,0,"));
  EXPECT_THAT(Line("Constante22"), StartsWith("Constante22=23,2,123,20,$(88,88,"));
  EXPECT_EQ(Line("Marca"), "Marca=" + std::string(49, 'b') + "\xD1");
  EXPECT_EQ(Line("Comentarios"), "Comentarios=" + std::string(249, 'c') + "\xFC");
  EXPECT_EQ(Line("Separador"), "Separador=48,49,50,51,13,10,9,32,191,59,");
}

TEST_P(ConfigExport, NumbersWhatIsInUseWithoutGaps) {
  DefineItem(config, emParamFechaDia, 1, 2);
  DefineItem(config, emParamFechaMes, 4, 2);
  DefineItem(config, emParamFechaAnio, 7, 4);
  config.DATOActivo(emParamFechaMes);
  config.TipoDatoDATO(emNoDefinido);
  DefineConstant(config, emDatoCteIdentEntrante, 9, u"IN");
  DefineConstant(config, emDatoCteIdentSaliente, 9, u"OUT");
  config.CTEActivo(emDatoCteIdentEntrante);
  config.Constante(u"");
  Export();
  EXPECT_EQ(Line("Dato1"), "Dato1=2,1,1,2,");
  EXPECT_EQ(Line("Dato2"), "Dato2=4,1,7,4,");
  EXPECT_EQ(Line("Dato3"), "");
  EXPECT_THAT(Line("Constante1"), StartsWith("Constante1=7,2,9,3,$(79,"));
  EXPECT_EQ(Line("Constante2"), "");
}

TEST_P(ConfigExport, FollowsTheOrderOfTheSlots) {
  DefineItem(config, emParamFechaDia, 1, 2);
  DefineItem(config, emParamFechaMes, 4, 2);
  config.DATOActivo(emParamFechaDia);
  config.TipoDatoDATO(emNoDefinido);
  DefineItem(config, emParamFechaAnio, 7, 4);  // takes the first slot over
  Export();
  EXPECT_EQ(Line("Dato1"), "Dato1=4,1,7,4,");
  EXPECT_EQ(Line("Dato2"), "Dato2=3,1,4,2,");
}

TEST_P(ConfigExport, WritesTypesAndSizesAsTheyAre) {
  DefineItem(config, emParamFechaDia, 255, 254, static_cast<emTipoDato>(9));
  DefineItem(config, emParamFechaMes, 1, 1, emValorConstante);
  DefineConstant(config, emDatoCteIdentEntrante, 255, u"IN");
  config.CTETam(200);
  DefineConstant(config, emDatoCteIdentSaliente, 1, u"OUT");
  config.CTETam(0);  // the size of a constant does not count
  Export();
  EXPECT_EQ(Line("Dato1"), "Dato1=2,9,255,254,");
  EXPECT_EQ(Line("Dato2"), "Dato2=3,2,1,1,");
  EXPECT_THAT(Line("Constante1"), StartsWith("Constante1=4,2,255,200,$("));
  EXPECT_THAT(Line("Constante2"), StartsWith("Constante2=7,2,1,0,$("));
}

TEST_P(ConfigExport, WritesConstantsAsStored) {
  DefineConstant(config, emDatoCteIdentEntrante, 1, u"A\0B "s);
  DefineConstant(config, emDatoCteIdentSaliente, 1, u"\u00FF\u4E2D" + Text(18, u' '));
  Export();
  EXPECT_EQ(Line("Constante1"),
            "Constante1=4,2,1,3,$(65,0,66,32,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,)");
  EXPECT_EQ(Line("Constante2"),
            "Constante2=7,2,1,20,"
            "$(255,63,32,32,32,32,32,32,32,32,32,32,32,32,32,32,32,32,32,32,)");
}

TEST_P(ConfigExport, WritesTheSeparatorAsRead) {
  config.Separador(u"\0A\0\u00FF"s);
  Export();
  EXPECT_EQ(Line("Separador"), "Separador=65,255,0,0,0,0,0,0,0,0,");
  config.Separador(u"0123456789");
  Export();
  EXPECT_EQ(Line("Separador"), "Separador=48,49,50,51,52,53,54,55,56,57,");
}

TEST_P(ConfigExport, WritesEveryCase) {
  for (const int code : {0, 2, 3, 4, 5, 99, -1}) {
    config.Caso(static_cast<emCasos>(code));
    Export();
    EXPECT_EQ(Line("Caso"), "Caso=" + std::to_string(code));
  }
}

TEST_P(ConfigExport, PutsABlankForEachLineBreakOfTheComment) {
  config.Comentarios(u"\nuno\r\ndos\rtres\ncuatro\r");
  Export();
  EXPECT_THAT(Line("Comentarios"), testing::AnyOf("Comentarios=uno  dos tres cuatro ",
                                                  "Comentarios=uno  dos tres cuatro"));
  EXPECT_EQ(config.Comentarios(), u"\nuno\r\ndos\rtres\ncuatro\r");
}

TEST_P(ConfigExport, WritesTextInTheCodePage) {
  config.Marca(u"Telefon\u00EDz \u00D1\u00FA");
  config.Modelo(u"\u4E2D\u03A9");
  Export();
  EXPECT_EQ(Line("Marca"), "Marca=Telefon\xEDz \xD1\xFA");
  EXPECT_EQ(Line("Modelo"), "Modelo=??");
}

TEST_P(ConfigExport, WritesMasksThatOnlyFilesCanBringAsTheyAre) {
  test::SwitchFile file;
  file.db9_db9 = {7, 0x80000000u, 0xFFFFFFFFu, 0x7FFFFFFFu};  // entry 0 belongs to no pin
  site->Put(u"switch.cfg", file.Bytes());
  config.Abrir(site->Path(u"switch.cfg"));
  Export();
  EXPECT_EQ(Line("DB9DB9"), "DB9DB9=-2147483648,-1,2147483647,0,0,0,0,0,0,");
}

TEST_P(ConfigExport, ReplacesAnExistingFileAltogether) {
  site->Put(kName,
            "stale\r\n[Conmutador]\r\nMarca=OLD\r\nStale=1\r\n[Stale]\r\na=1\r\n"
            "[Datos]\r\nDato1=2,1,1,1,\r\nDato2=3,1,1,1,\r\n");
  DefineItem(config, emParamFechaAnio, 7, 4);
  Export();
  EXPECT_EQ(Lines().size(), 3u + 6 + 4 + 1);
  EXPECT_EQ(Line("Marca"), "Marca=ACME");
  EXPECT_EQ(Line("Dato1"), "Dato1=4,1,7,4,");
  EXPECT_EQ(Line("Dato2"), "");
  EXPECT_EQ(Line("Stale"), "");
}

TEST_P(ConfigExport, ReplacesWhatWasExportedBefore) {
  test::Fill(config, test::FullFile());
  Export();
  config.Iniciar();
  Name();
  Export();
  EXPECT_THAT(Sections(), ElementsAre("[Conmutador]", "[Puertos]"));
  EXPECT_EQ(Line("DB9DB9"), "DB9DB9=" + kNine);
  EXPECT_EQ(Line("Comentarios"), "Comentarios=");
}

TEST_P(ConfigExport, ChangesNothingInTheConfiguration) {
  test::Fill(config, test::FullFile());
  const auto content = Snapshot::OfContent(config);
  config.IDCfg(7);
  config.PuertoActivo(emPuertoSerialDB25DB25);
  config.PinIZQ(4);
  config.PinDER(5);
  config.DATOActivo(emParamFechaMes);
  config.CTEActivo(emDatoCteIdentSaliente);
  listener.Take();
  const auto state = Snapshot::OfState(config);
  Export();
  EXPECT_EQ(Snapshot::OfState(config), state);
  EXPECT_EQ(Snapshot::OfContent(config), content);
  EXPECT_THAT(listener.Take(), IsEmpty());
}

TEST_P(ConfigExport, LeavesTheChangeFlagAsItIs) {
  EXPECT_TRUE(config.Modificado());
  Export();
  EXPECT_TRUE(config.Modificado());
  config.GuardarComo(site->Path(u"switch.cfg"));
  EXPECT_FALSE(config.Modificado());
  Export();
  EXPECT_FALSE(config.Modificado());
}

TEST_P(ConfigExport, PathOfNothingButBlanksIsNoFile) {
  for (const TextView path : {u"", u" ", u"     "}) {
    test::ExpectConfigError([&] { config.Exportar(path); }, 0x800405DD, u"clsConfigConmut.Exportar",
                            u"No es posible encontrar el archivo deseado.");
  }
  EXPECT_THAT(listener.Take(), IsEmpty());
  EXPECT_TRUE(config.Modificado());
}

TEST_P(ConfigExport, FailsWhereNoFileCanBe) {
  const auto before = Snapshot::OfState(config);
  if (GetParam() == SiteKind::kDisk) {
    ExpectExportError(Text(site->Path(u"a") + kNul + u"b"));
    ExpectExportError(site->Path(u"missing/exchange.ini"));
    ExpectExportError(site->Path(u""));
    ExpectExportError(site->Path(u"."));
  } else {
    static_cast<test::MemorySite&>(*site).files.entries[u"folder"] = {"", kAttributeDirectory};
    ExpectExportError(u"folder");
  }
  EXPECT_EQ(Snapshot::OfState(config), before);
  EXPECT_THAT(listener.Take(), IsEmpty());
}

// With writes that fail.
class FailingExport : public testing::Test {
 protected:
  FailingExport() {
    config.Marca(u"ACME");
    config.Modelo(u"X1");
    config.Separador(u"\r\n");
    DefineItem(config, emParamFechaDia, 1, 2);
    DefineItem(config, emParamFechaMes, 4, 2);
    DefineConstant(config, emDatoCteIdentEntrante, 9, u"IN");
    config.Listen(&listener);
  }

  test::MemorySite site;
  test::FailingProfiles profiles{site.platform().profiles};
  Platform platform{site.platform().files, site.platform().clock, site.platform().code_page,
                    profiles};
  test::RecordingListener listener;
  clsCfgConmut config{platform};
};

TEST_F(FailingExport, StopsAtTheFirstWriteThatFailsAndLeavesTheOnesBefore) {
  config.Exportar(u"whole.ini");
  const auto all = profiles.writes;
  ASSERT_EQ(all.size(), 6u + 4 + 2 + 1);
  for (int failing = 1; failing <= static_cast<int>(all.size()); ++failing) {
    SCOPED_TRACE(all[static_cast<std::size_t>(failing - 1)]);
    profiles.writes.clear();
    profiles.failing_write = failing;
    site.Put(u"exchange.ini", "[Stale]\r\na=1\r\n");
    const auto before = Snapshot::OfState(config);
    test::ExpectConfigError([&] { config.Exportar(u"exchange.ini"); }, 0x800405DF,
                            u"clsConfigConmut.Exportar", test::kExportFailed);
    EXPECT_EQ(profiles.writes, std::vector(all.begin(), all.begin() + failing));
    std::size_t keys = 0;
    for (const std::string& line : site.Lines(u"exchange.ini")) keys += line[0] != '[';
    EXPECT_EQ(keys, static_cast<std::size_t>(failing - 1));
    EXPECT_EQ(Snapshot::OfState(config), before);
    EXPECT_THAT(listener.Take(), IsEmpty());
  }
}

TEST_F(FailingExport, TouchesNoFileForABlankPath) {
  EXPECT_THROW(config.Exportar(u"  "), ConfigError);
  EXPECT_THAT(site.files.operations, IsEmpty());
  EXPECT_THAT(profiles.writes, IsEmpty());
}

TEST_F(FailingExport, DeletesTheFileBeforeItWrites) {
  site.Put(u"exchange.ini", "[Stale]\r\na=1\r\n");
  site.files.operations.clear();
  config.Exportar(u"exchange.ini");
  ASSERT_FALSE(site.files.operations.empty());
  EXPECT_EQ(site.files.operations.front(), "remove");
  EXPECT_EQ(site.files.removals, 1);
}

TEST_F(FailingExport, WritesIntoAFileThatCannotBeDeleted) {
  site.Put(u"exchange.ini", "[Stale]\r\na=1\r\n[conmutador]\r\nmarca=OLD\r\n");
  site.files.fail_remove = true;
  config.Exportar(u"exchange.ini");
  const auto lines = site.Lines(u"exchange.ini");
  EXPECT_THAT(lines, Contains("a=1"));
  EXPECT_THAT(lines, Contains("Marca=ACME"));
  EXPECT_THAT(lines, Not(Contains("marca=OLD")));
}

TEST_F(FailingExport, FailsOverAReadOnlyFileAndLeavesIt) {
  site.files.entries[u"exchange.ini"] = {"[S]\r\na=1\r\n", kAttributeReadOnly | kAttributeArchive};
  EXPECT_THROW(config.Exportar(u"exchange.ini"), ConfigError);
  EXPECT_EQ(site.Bytes(u"exchange.ini"), "[S]\r\na=1\r\n");
}

TEST_F(FailingExport, FailsOnAFullDisk) {
  site.files.room = 100;
  test::ExpectConfigError([&] { config.Exportar(u"exchange.ini"); }, 0x800405DF,
                          u"clsConfigConmut.Exportar", test::kExportFailed);
}

}  // namespace
}  // namespace conmuta
