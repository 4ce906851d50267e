// What Importar takes over from a file, what it refuses and what it leaves as it was.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/exchange_bench.h"
#include "support/full_config.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::DefineConstant;
using test::DefineItem;
using test::Events;
using test::SiteKind;
using test::Snapshot;
using testing::ElementsAre;
using testing::IsEmpty;

// A file told by its keys. A key without a value is not in the file.
struct ExchangeFile {
  std::optional<std::string> version = "3";
  std::optional<std::string> brand = "NEW";
  std::optional<std::string> model = "N2";
  std::optional<std::string> caso = "1";
  std::optional<std::string> separator = "59,";
  std::optional<std::string> comments = "imported";
  std::string wiring = {};     // lines
  std::string items = {};      // lines
  std::string constants = {};  // lines

  std::string Bytes() const {
    std::string bytes = "[Conmutador]\r\n";
    const auto add = [&](const char* key, const std::optional<std::string>& value) {
      if (value) bytes.append(key).append("=").append(*value).append("\r\n");
    };
    add("Version", version);
    add("Marca", brand);
    add("Modelo", model);
    add("Caso", caso);
    add("Separador", separator);
    add("Comentarios", comments);
    return bytes + "[Puertos]\r\n" + wiring + "[Datos]\r\n" + items + "[Constantes]\r\n" +
           constants;
  }
};

class ConfigImport : public testing::TestWithParam<SiteKind>, protected test::ExchangeBench {
 protected:
  ConfigImport() : ExchangeBench(GetParam()) {}

  void Import(const ExchangeFile& file) { ImportText(file.Bytes()); }
  Events EventsOf(const ExchangeFile& file) {
    listener.Take();
    Import(file);
    return listener.Take();
  }
  // Which wires of a pair there are, as "left-right".
  std::vector<std::string> Wires(emPuertoSerial pair) {
    std::vector<std::string> wires;
    for (std::int16_t left = 1; left <= 25; ++left) {
      for (std::int16_t right = 1; right <= 25; ++right) {
        config.PuertoActivo(emPuertoSerialDB25DB25);
        config.PinIZQ(left);
        config.PinDER(right);
        config.PuertoActivo(pair);
        if (config.PinesConectados()) {
          wires.push_back(std::to_string(left) + "-" + std::to_string(right));
        }
      }
    }
    return wires;
  }
  void Wire(emPuertoSerial pair, std::int16_t left, std::int16_t right) {
    config.PuertoActivo(pair);
    config.PinIZQ(left);
    config.PinDER(right);
    config.PinesConectados(true);
  }
};

INSTANTIATE_TEST_SUITE_P(, ConfigImport, testing::ValuesIn(test::kEverySite),
                         [](const auto& info) { return test::SiteName(info.param); });

TEST_P(ConfigImport, TakesEverythingOver) {
  ExchangeFile file;
  file.wiring =
      "DB9DB9=0,4,0,0,0,0,0,0,1,\r\nDB9DB25=16777216,0,0,0,0,0,0,0,0,\r\n"
      "DB25DB9=256,\r\nDB25DB25=1,2,\r\n";
  file.items = "Dato1=33,1,40,4,\r\nDato2=2,1,1,2,\r\n";
  file.constants = "Constante1=7,2,30,3,$(79,85,84,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,)\r\n";
  Import(file);
  EXPECT_EQ(config.Version(), 3);
  EXPECT_EQ(config.Marca(), u"NEW");
  EXPECT_EQ(config.Modelo(), u"N2");
  EXPECT_EQ(config.Caso(), 1);
  EXPECT_EQ(config.Separador(), u";");
  EXPECT_EQ(config.Comentarios(), u"imported");
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("2-3", "9-1"));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("1-25"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB9), ElementsAre("1-9"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), ElementsAre("1-1", "2-2"));
  config.DATOActivo(emParamExtensionSaliente);
  EXPECT_TRUE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 40);
  EXPECT_EQ(config.DATOTam(), 4);
  config.DATOActivo(emParamFechaDia);
  EXPECT_TRUE(config.HayDATO());
  config.CTEActivo(emDatoCteIdentSaliente);
  EXPECT_TRUE(config.HayCTE());
  EXPECT_EQ(config.Constante(), u"OUT");
  EXPECT_EQ(config.CTEPos(), 30);
  EXPECT_EQ(config.CTETam(), 3);
  EXPECT_FALSE(config.Modificado());
}

TEST_P(ConfigImport, FindsSectionsAndKeysByNameAlone) {
  ImportText(
      "; written by hand\r\n[CONSTANTES]\r\nCONSTANTE1=4,2,9,2,$(73,78,)\r\n"
      "[datos]\r\nDATO2=3,1,4,2,\r\ndato1=2,1,1,2,\r\n[other]\r\nMarca=other\r\n"
      "[conMutador]\r\nCOMENTARIOS=c\r\nseparador=59,\r\ncaso=1\r\nMODELO=m\r\n marca = b \r\n"
      "version=2\r\n[puertos]\r\ndb9db9=1,\r\n");
  EXPECT_EQ(config.Version(), 2);
  EXPECT_EQ(config.NombreConmutador(), u"b, m");
  EXPECT_EQ(config.Comentarios(), u"c");
  config.DATOActivo(emParamFechaMes);
  EXPECT_TRUE(config.HayDATO());
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"IN");
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("1-1"));
}

TEST_P(ConfigImport, RaisesOnlyThatItWasLoadedForTheHeader) {
  ExchangeFile file;
  file.wiring = "DB9DB9=1,2,3,4,5,6,7,8,9,\r\n";
  EXPECT_THAT(EventsOf(file), ElementsAre("ConfiguracionCargada"));
}

TEST_P(ConfigImport, RaisesTheChangesOfItemsAndConstants) {
  ExchangeFile file;
  file.items = "Dato1=2,1,5,2,\r\n";
  EXPECT_THAT(EventsOf(file), ElementsAre("Cambios", "Cambios", "ConfiguracionCargada"));
  EXPECT_THAT(EventsOf(file), ElementsAre("ConfiguracionCargada"));  // nothing changes any more
  file.items = "Dato1=3,3,5,2,\r\n";  // the type is written, too, to a slot that is not there yet
  EXPECT_THAT(EventsOf(file), ElementsAre("Cambios", "Cambios", "Cambios", "ConfiguracionCargada"));
  file.items = "";
  file.constants = "Constante1=4,2,9,2,$(73,78,)\r\n";
  EXPECT_THAT(EventsOf(file), ElementsAre("Cambios", "Cambios", "ConfiguracionCargada"));
  EXPECT_THAT(EventsOf(file), ElementsAre("ConfiguracionCargada"));
}

TEST_P(ConfigImport, EventsComeWhileTheFileIsBeingRead) {
  ExchangeFile file;
  file.items = "Dato1=2,1,5,2,\r\n";
  bool seen = false;
  listener.OnNextEvent([&] {
    seen = config.DATOActivo() == emParamFechaDia && config.DATOPos() == 5 &&
           config.Marca() == u"NEW" && config.Modificado();
  });
  Import(file);
  EXPECT_TRUE(seen);
}

TEST_P(ConfigImport, IsUnmodifiedByTheTimeItIsAnnounced) {
  Name();
  ASSERT_TRUE(config.Modificado());
  bool modified = true;
  listener.On("ConfiguracionCargada", [&] { modified = config.Modificado(); });
  ExchangeFile file;
  file.items = "Dato1=2,1,5,2,\r\n";
  Import(file);
  EXPECT_FALSE(modified);
  EXPECT_FALSE(config.Modificado());
}

TEST_P(ConfigImport, NeedsNoListener) {
  config.Listen(nullptr);
  ExchangeFile file;
  file.items = "Dato1=2,1,5,2,\r\n";
  Import(file);
  EXPECT_EQ(config.Marca(), u"NEW");
}

TEST_P(ConfigImport, KeepsWhatTheFileDoesNotName) {
  test::Fill(config, test::FullFile());
  config.IDCfg(7);
  config.PuertoActivo(emPuertoSerialDB25DB25);
  config.PinIZQ(4);
  config.PinDER(5);
  ExchangeFile file;
  file.items = "Dato1=2,1,200,9,\r\n";
  file.constants = "Constante1=4,2,200,2,$(73,78,)\r\n";
  Import(file);
  EXPECT_EQ(config.IDCfg(), 7);
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
  EXPECT_EQ(config.PinIZQ(), 4);
  EXPECT_EQ(config.PinDER(), 5);
  EXPECT_EQ(config.DATOActivo(), 2);
  EXPECT_EQ(config.CTEActivo(), 4);
  for (int kind = 3; kind <= 53; ++kind) {
    config.DATOActivo(static_cast<emParamDato>(kind));
    EXPECT_EQ(config.DATOPos(), 255 - kind);
    EXPECT_EQ(config.DATOTam(), kind);
    EXPECT_EQ(config.TipoDatoDATO(), kind % 3 + 1);
  }
  config.CTEActivo(emDatoCteIdentSaliente);
  EXPECT_EQ(config.CTEPos(), 107);
  EXPECT_TRUE(config.HayCTE());
}

TEST_P(ConfigImport, KeepsReleasedSlots) {
  DefineItem(config, emParamFechaMes, 5, 2);
  DefineConstant(config, emDatoCteIdentSaliente, 9, u"OUT");
  config.Iniciar();
  Import(ExchangeFile());
  config.DATOActivo(emParamFechaMes);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 5);
  config.CTEActivo(emDatoCteIdentSaliente);
  EXPECT_FALSE(config.HayCTE());
  EXPECT_EQ(config.Constante(), u"OUT");
}

TEST_P(ConfigImport, VersionsItTakes) {
  for (const auto& [text, version] : {std::pair{"1", 1},
                                      {"2", 2},
                                      {"3", 3},
                                      {" +02 ", 2},
                                      {"0.6", 1},
                                      {"1.5", 2},
                                      {"3.4", 3},
                                      {"\"2\"", 2}}) {
    ExchangeFile file;
    file.version = text;
    Import(file);
    EXPECT_EQ(config.Version(), version) << text;
  }
}

TEST_P(ConfigImport, FormsOfTheOneCaseItTakes) {
  for (const char* text : {"1", "1.0", "1.", "01.000", " +1 ", "\"1\""}) {
    ExchangeFile file;
    file.caso = text;
    config.Caso(emCasoSamsungNX_820);
    Import(file);
    EXPECT_EQ(config.Caso(), emCasoEstandar) << text;
  }
}

TEST_P(ConfigImport, TextsAreCutToTheirWidth) {
  ExchangeFile file;
  file.brand = std::string(60, 'b');
  file.model = std::string(60, 'm');
  file.comments = std::string(260, 'c');
  file.separator.reset();
  std::string separator;
  for (int code = 40; code < 55; ++code) separator += std::to_string(code) + ",";
  file.separator = separator;
  Import(file);
  EXPECT_EQ(config.Marca(), Text(50, u'b'));
  EXPECT_EQ(config.Modelo(), Text(50, u'm'));
  EXPECT_EQ(config.Comentarios(), Text(250, u'c'));
  EXPECT_EQ(config.Separador(), u"()*+,-./01");
}

TEST_P(ConfigImport, ShorterTextsReplaceLongerOnes) {
  test::Fill(config, test::FullFile());
  Import(ExchangeFile());
  EXPECT_EQ(config.Marca(), u"NEW");
  EXPECT_EQ(config.Modelo(), u"N2");
  EXPECT_EQ(config.Comentarios(), u"imported");
  EXPECT_EQ(config.Separador(), u";");
}

TEST_P(ConfigImport, TextsAreStoredAsRead) {
  ExchangeFile file;
  file.brand = "\"  b \"";  // quotes keep the blanks in front
  file.model = "m\xF1 \xD1";
  file.comments.reset();
  Import(file);
  EXPECT_EQ(config.Marca(), u"  b");
  EXPECT_EQ(config.Modelo(), u"m\u00F1 \u00D1");
  EXPECT_EQ(config.Comentarios(), u"");
}

TEST_P(ConfigImport, SeparatorKeepsItsNuls) {
  ExchangeFile file;
  file.separator = "13,0,10,0,";
  Import(file);
  EXPECT_EQ(config.Separador(), u"\r\n");
  EXPECT_THAT(EventsOf(file), ElementsAre("ConfiguracionCargada"));
  config.Separador(u"\r\0\n"s);  // as it is stored
  EXPECT_THAT(listener.Take(), IsEmpty());
  config.Separador(u"\r\n");
  EXPECT_THAT(listener.Take(), ElementsAre("Cambios"));
}

TEST_P(ConfigImport, SeparatorLeavesOutWhatIsNoCode) {
  ExchangeFile file;
  file.separator = "x,255,256,-1,0065,13,10";
  Import(file);
  EXPECT_EQ(config.Separador(), u"\r\n");
}

TEST_P(ConfigImport, MissingWiringIsCut) {
  Wire(emPuertoSerialDB9DB9, 1, 1);
  Wire(emPuertoSerialDB9DB25, 2, 2);
  Wire(emPuertoSerialDB25DB9, 3, 3);
  Wire(emPuertoSerialDB25DB25, 4, 4);
  ExchangeFile file;
  file.wiring = "DB25DB9=1,\r\n";
  Import(file);
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), IsEmpty());
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), IsEmpty());
  EXPECT_THAT(Wires(emPuertoSerialDB25DB9), ElementsAre("1-1"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), IsEmpty());
}

TEST_P(ConfigImport, BadWiringCountsAsNothing) {
  ExchangeFile file;
  file.wiring =
      "DB9DB9=1,x,,00000000001,1e0,2,,,1,1,1,1,\r\n"
      "DB9DB25=1;2;3\r\nDB25DB9=99999999999,1,\r\n";
  Import(file);
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("1-1", "6-2", "9-1"));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), IsEmpty());
  EXPECT_THAT(Wires(emPuertoSerialDB25DB9), ElementsAre("2-1"));
}

TEST_P(ConfigImport, NegativeMaskWiresEveryPin) {
  ExchangeFile file;
  file.wiring = "DB9DB9=-1,\r\n";
  Import(file);
  EXPECT_EQ(Wires(emPuertoSerialDB9DB9).size(), 9u);
}

TEST_P(ConfigImport, WiringBeyond32BitsEndsTheImport) {
  Wire(emPuertoSerialDB9DB9, 3, 3);
  Wire(emPuertoSerialDB9DB9, 4, 4);
  Wire(emPuertoSerialDB25DB25, 9, 9);
  listener.Take();
  ExchangeFile file;
  file.wiring = "DB9DB9=1,2,2147483648,8,\r\nDB25DB25=1,\r\n";
  file.items = "Dato1=2,1,5,2,\r\n";
  ExpectImportError(file.Bytes(), test::kNoSeparator);
  EXPECT_THAT(listener.Take(), IsEmpty());
  EXPECT_TRUE(config.Modificado());
  EXPECT_EQ(config.Comentarios(), u"imported");  // everything before it is taken over
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("1-1", "2-2", "3-3", "4-4"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), ElementsAre("9-9"));
  config.DATOActivo(emParamFechaDia);
  EXPECT_FALSE(config.HayDATO());
}

TEST_P(ConfigImport, ItemsEndUpNumeric) {
  ExchangeFile file;
  file.items = "Dato1=2,3,5,2,\r\nDato2=3,2,8,2,\r\nDato3=4,1,11,4,\r\n";
  for (int round = 0; round < 2; ++round) {
    Import(file);
    for (const emParamDato kind : {emParamFechaDia, emParamFechaMes, emParamFechaAnio}) {
      config.DATOActivo(kind);
      EXPECT_TRUE(config.HayDATO());
      EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
    }
  }
}

TEST_P(ConfigImport, ItemsStopAtTheFirstNumberThatIsMissing) {
  ExchangeFile file;
  file.items = "Dato1=2,1,1,2,\r\nDato2=3,1,4,2,\r\nDato4=5,1,9,2,\r\n";
  file.constants = "Constante1=4,2,9,2,$(73,78,)\r\nConstante3=7,2,9,2,$(79,85,)\r\n";
  Import(file);
  config.DATOActivo(emParamFechaMes);
  EXPECT_TRUE(config.HayDATO());
  config.DATOActivo(emParamFechaHoras);
  EXPECT_FALSE(config.HayDATO());
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_TRUE(config.HayCTE());
  config.CTEActivo(emDatoCteIdentSaliente);
  EXPECT_FALSE(config.HayCTE());
}

TEST_P(ConfigImport, ItemsStopAtAnEmptyValue) {
  ExchangeFile file;
  file.items = "Dato1=2,1,1,2,\r\nDato2=\r\nDato3=3,1,4,2,\r\n";
  Import(file);
  config.DATOActivo(emParamFechaDia);
  EXPECT_TRUE(config.HayDATO());
  config.DATOActivo(emParamFechaMes);
  EXPECT_FALSE(config.HayDATO());
}

TEST_P(ConfigImport, NumbersOfKeysHaveNoLeadingNoughts) {
  ExchangeFile file;
  file.items = "Dato01=2,1,1,2,\r\nDato0=3,1,4,2,\r\n";
  Import(file);
  config.DATOActivo(emParamFechaDia);
  EXPECT_FALSE(config.HayDATO());
}

TEST_P(ConfigImport, LinesThatAreNotValidAreSkipped) {
  ExchangeFile file;
  file.items =
      "Dato1=1,1,1,1,\r\nDato2=x\r\nDato3=2,1,1,2,\r\nDato4=3,4,1,1,\r\nDato5=4,1,7,4,\r\n";
  file.constants =
      "Constante1=4,2,9,2,\r\nConstante2=x\r\nConstante3=54,2,9,2,$(73,78,)\r\n"
      "Constante4=4,2,9,2,$(73,78,)\r\n";
  EXPECT_THAT(EventsOf(file), ElementsAre("Cambios", "Cambios", "Cambios", "Cambios", "Cambios",
                                          "Cambios", "ConfiguracionCargada"));
  config.DATOActivo(emParamFechaDia);
  EXPECT_TRUE(config.HayDATO());
  config.DATOActivo(emParamFechaAnio);
  EXPECT_TRUE(config.HayDATO());
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"IN");
}

TEST_P(ConfigImport, LaterLinesOfAKindWin) {
  ExchangeFile file;
  file.items = "Dato1=2,1,1,2,\r\nDato2=2,1,9,3,\r\n";
  file.constants = "Constante1=4,2,1,2,$(73,78,)\r\nConstante2=4,2,5,2,$(79,85,84,)\r\n";
  Import(file);
  config.DATOActivo(emParamFechaDia);
  EXPECT_EQ(config.DATOPos(), 9);
  EXPECT_EQ(config.DATOTam(), 3);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.CTEPos(), 5);
  EXPECT_EQ(config.Constante(), u"OUT");
}

TEST_P(ConfigImport, TypeAndSizeOfAConstantAreReadButNotApplied) {
  ExchangeFile file;
  file.constants = "Constante1=4,3,9,200,$(73,78,)\r\n";
  Import(file);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.TipoDatoCTE(), emValorConstante);
  EXPECT_EQ(config.CTETam(), 2);
  file.constants = "Constante1=4,4,1,200,$(79,85,84,)\r\nConstante2=4,2,1,256,$(79,85,84,)\r\n";
  Import(file);
  EXPECT_EQ(config.Constante(), u"IN");  // lines out of bounds are skipped
}

TEST_P(ConfigImport, ConstantsKeepTheirNulsAndBlanks) {
  ExchangeFile file;
  file.constants = "Constante1=4,2,9,2,$(73,0,78,32,)\r\n";
  Import(file);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"IN ");
  EXPECT_EQ(config.CTETam(), 3);
  listener.Take();
  config.Constante(u"I\0N "s);  // as it is stored
  EXPECT_THAT(listener.Take(), IsEmpty());
}

TEST_P(ConfigImport, CharacterOfCode255IsMissing) {
  ExchangeFile file;
  file.constants = "Constante1=4,2,9,3,$(65,255,66,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,)\r\n";
  Import(file);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"AB");
}

TEST_P(ConfigImport, ConstantWithoutCharactersIsReleased) {
  DefineConstant(config, emDatoCteIdentEntrante, 1, u"IN");
  ExchangeFile file;
  file.constants = "Constante1=4,2,9,2,$(0,0,)\r\n";
  Import(file);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_FALSE(config.HayCTE());
  EXPECT_EQ(config.CTEPos(), 9);
}

TEST_P(ConfigImport, ConstantOfAKindThatOnlyItemsHaveIsLost) {
  ExchangeFile file;
  file.constants =
      "Constante1=24,2,9,2,$(73,78,)\r\nConstante2=53,2,9,2,$(73,78,)\r\n"
      "Constante3=4,2,9,2,$(79,85,84,)\r\n";
  Import(file);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_TRUE(config.HayCTE());
  EXPECT_EQ(config.Constante(), u"OUT");
  for (const int kind : {24, 53}) {
    config.CTEActivo(static_cast<emParamDatoConstante>(kind));
    EXPECT_FALSE(config.HayCTE());
  }
  EXPECT_FALSE(config.Modificado());
}

TEST_P(ConfigImport, LineEndInANameThatWasExportedEndsTheName) {
  Name();
  config.Marca(u"ACME\r\nCaso=2");
  Export();
  ImportText(site->Bytes(kName).value_or(""));
  EXPECT_EQ(config.Marca(), u"ACME");
  EXPECT_EQ(config.Caso(), emCasoEstandar);
}

TEST_P(ConfigImport, FileThatIsNotThere) {
  Name();
  const auto before = Snapshot::OfState(config);
  ExpectImportError(test::kWrongVersion);
  EXPECT_EQ(Snapshot::OfState(config), before);
  EXPECT_THAT(listener.Take(), IsEmpty());
  EXPECT_EQ(site->Bytes(kName), std::nullopt);
}

TEST_P(ConfigImport, FileThatSaysNothing) {
  for (const std::string& bytes : {""s, "x"s, "[Datos]\r\nDato1=2,1,5,2,\r\n"s, "Version=3\r\n"s,
                                   "[Conmutador\r\nVersion=3\r\n"s}) {
    ExpectImportError(bytes, test::kWrongVersion);
  }
  EXPECT_THAT(listener.Take(), IsEmpty());
}

TEST_P(ConfigImport, PathThatNamesNoFile) {
  std::vector<Text> paths = {u"", u"   ", Text(site->Path(u"a") + kNul + u"b")};
  if (GetParam() == SiteKind::kDisk) {
    paths.push_back(site->Path(u"missing/exchange.ini"));
    paths.push_back(site->Path(u""));
  }
  for (const Text& path : paths) {
    test::ExpectConfigError(
        [&] { config.Importar(path); }, 0x800405E0, u"clsConfigConmut.Importar",
        Text(test::kImportFailed) + u"\r\n" + Text(test::kWrongVersion) + u"\r\n" + path);
  }
}

TEST_P(ConfigImport, ErrorNamesThePathAsGiven) {
  const Text path = u"  " + site->Path(u"missing.ini") + u"  ";
  test::ExpectConfigError(
      [&] { config.Importar(path); }, 0x800405E0, u"clsConfigConmut.Importar",
      Text(test::kImportFailed) + u"\r\n" + Text(test::kWrongVersion) + u"\r\n" + path);
}

// Header values that are refused, in the order of the checks.
struct RefusedCase {
  const char* name;
  std::optional<std::string> ExchangeFile::*key;
  std::optional<std::string> value;
};

void PrintTo(const RefusedCase& row, std::ostream* out) {
  *out << row.name;
}

// What is checked, in its order.
struct HeaderCheck {
  std::optional<std::string> ExchangeFile::*key;
  TextView detail;
};
const HeaderCheck kChecks[] = {{&ExchangeFile::version, test::kWrongVersion},
                               {&ExchangeFile::brand, test::kNoBrand},
                               {&ExchangeFile::model, test::kNoModel},
                               {&ExchangeFile::caso, test::kWrongCase},
                               {&ExchangeFile::separator, test::kNoSeparator}};

class RefusedHeader : public testing::TestWithParam<std::tuple<SiteKind, RefusedCase>>,
                      protected test::ExchangeBench {
 protected:
  RefusedHeader() : ExchangeBench(std::get<0>(GetParam())) {
    config.Marca(u"OLD");
    config.Modelo(u"O1");
    config.Separador(u"|");
    config.Comentarios(u"old");
    config.Caso(emCasoSamsungNX_820);
    DefineItem(config, emParamFechaDia, 1, 1);
    config.PuertoActivo(emPuertoSerialDB9DB9);
    config.PinIZQ(1);
    config.PinDER(1);
    config.PinesConectados(true);
    file.version = "2";
    file.wiring = "DB9DB9=2,\r\n";
    file.items = "Dato1=2,1,9,9,\r\n";
    file.*row().key = row().value;
  }

  static const RefusedCase& row() { return std::get<1>(GetParam()); }
  static std::size_t CheckThatFails() {
    std::size_t check = 0;
    while (kChecks[check].key != row().key) ++check;
    return check;
  }
  // The new values as far as the checks were passed, the old ones from there.
  void ExpectStoredUpTo(std::size_t failing) {
    EXPECT_EQ(config.Version(), failing > 0 ? 2 : 3);
    EXPECT_EQ(config.Marca(), failing > 1 ? u"NEW" : u"OLD");
    EXPECT_EQ(config.Modelo(), failing > 2 ? u"N2" : u"O1");
    EXPECT_EQ(config.Caso(), failing > 3 ? 1 : 2);
    EXPECT_EQ(config.Separador(), u"|");
    EXPECT_EQ(config.Comentarios(), u"old");
    EXPECT_TRUE(config.PinesConectados());
    EXPECT_EQ(config.DATOPos(), 1);
  }

  ExchangeFile file;
};

TEST_P(RefusedHeader, IsNamedAndTheValuesBeforeItAreStored) {
  listener.Take();
  ASSERT_TRUE(config.Modificado());
  const std::size_t failing = CheckThatFails();
  ExpectImportError(file.Bytes(), kChecks[failing].detail);
  ExpectStoredUpTo(failing);
  EXPECT_TRUE(config.Modificado());
  EXPECT_THAT(listener.Take(), IsEmpty());
}

TEST_P(RefusedHeader, LeavesAnUnmodifiedConfigurationUnmodified) {
  config.GuardarComo(site->Path(u"switch.cfg"));
  ASSERT_FALSE(config.Modificado());
  const std::size_t failing = CheckThatFails();
  ExpectImportError(file.Bytes(), kChecks[failing].detail);
  EXPECT_FALSE(config.Modificado());
}

TEST_P(RefusedHeader, ComesBeforeWhatIsWrongBehindIt) {
  const std::size_t failing = CheckThatFails();
  for (std::size_t i = failing + 1; i < std::size(kChecks); ++i) (file.*kChecks[i].key).reset();
  file.wiring = "DB9DB9=9999999999,\r\n";
  ExpectImportError(file.Bytes(), kChecks[failing].detail);
}

TEST_P(RefusedHeader, LeavesTheConfigurationUsable) {
  EXPECT_THROW(ImportText(file.Bytes()), ConfigError);
  ImportText(ExchangeFile().Bytes());
  EXPECT_EQ(config.NombreConmutador(), u"NEW, N2");
}

std::vector<RefusedCase> Refused(const char* name, std::optional<std::string> ExchangeFile::*key,
                                 std::vector<std::string> values) {
  std::vector<RefusedCase> rows = {{name, key, std::nullopt}};
  for (auto& value : values) rows.push_back({name, key, std::move(value)});
  return rows;
}

std::string RefusedName(const testing::TestParamInfo<std::tuple<SiteKind, RefusedCase>>& info) {
  return test::SiteName(std::get<0>(info.param)) + std::get<1>(info.param).name +
         std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(
    OfVersion, RefusedHeader,
    testing::Combine(testing::ValuesIn(test::kEverySite),
                     testing::ValuesIn(Refused("Version", &ExchangeFile::version,
                                               {"", "0", "4", "-1", "x", "3x", "1,5", "1e0", "&H1",
                                                "3.6", "0.4", "3 3", "4294967297",
                                                std::string(250, '9')}))),
    RefusedName);
INSTANTIATE_TEST_SUITE_P(OfBrand, RefusedHeader,
                         testing::Combine(testing::ValuesIn(test::kEverySite),
                                          testing::ValuesIn(Refused("Brand", &ExchangeFile::brand,
                                                                    {"", "   ", "\"\"", "\"   \"",
                                                                     "' '"}))),
                         RefusedName);
INSTANTIATE_TEST_SUITE_P(OfModel, RefusedHeader,
                         testing::Combine(testing::ValuesIn(test::kEverySite),
                                          testing::ValuesIn(Refused("Model", &ExchangeFile::model,
                                                                    {"", "\t", "\" \""}))),
                         RefusedName);
INSTANTIATE_TEST_SUITE_P(OfCase, RefusedHeader,
                         testing::Combine(testing::ValuesIn(test::kEverySite),
                                          testing::ValuesIn(Refused("Case", &ExchangeFile::caso,
                                                                    {"", "0", "2", "3", "4", "5",
                                                                     "-1", "x", "1x", "1e0", "11",
                                                                     "1.4", "0.6", "1.5", "0.5",
                                                                     "1.0000000000000000000001",
                                                                     std::string(250, '1')}))),
                         RefusedName);
INSTANTIATE_TEST_SUITE_P(OfSeparator, RefusedHeader,
                         testing::Combine(testing::ValuesIn(test::kEverySite),
                                          testing::ValuesIn(Refused(
                                              "Separator", &ExchangeFile::separator,
                                              {"", ",", "0,0,", "0,0,0,0,0,0,0,0,0,0,", "x", "255,",
                                               "256,", "-13,", "0013,", "13;10", "\r\n"}))),
                         RefusedName);

}  // namespace
}  // namespace conmuta
