// Opening a configuration file of the present layout.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/config_bench.h"
#include "support/config_errors.h"
#include "support/config_snapshot.h"
#include "support/full_config.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::ExpectConfigError;
using test::Snapshot;
using test::SwitchFile;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView kNotThere = u"No es posible encontrar el archivo deseado.\r\n Archivo :";
constexpr TextView kNotRecognised =
    u"No es posible abrir al archivo de configuraci\u00F3n, no se reconoce.\r\n Archivo :";

class ConfigOpen : public testing::Test, protected test::ConfigBench {
 protected:
  void Open(const std::string& bytes) {
    files.entries[u"a.cfg"] = {bytes};
    config.Abrir(u"a.cfg");
  }
  void Open(const SwitchFile& file) { Open(file.Bytes()); }

  // Fails, and everything is as it was.
  void ExpectRefused(const std::string& bytes) {
    const Snapshot content = Snapshot::OfContent(config);
    const Snapshot state = Snapshot::OfState(config);
    TakeEvents();
    ExpectConfigError([&] { Open(bytes); }, 0x800405E1, u"clsConfigConmut.Abrir",
                      Text(kNotRecognised) + u"a.cfg");
    EXPECT_EQ(Snapshot::OfState(config), state);
    EXPECT_EQ(Snapshot::OfContent(config), content);
    EXPECT_THAT(TakeEvents(), IsEmpty());
  }

  bool Has(int kind) {
    config.DATOActivo(static_cast<emParamDato>(kind));
    return config.HayDATO();
  }
  bool HasConstant(int kind) {
    config.CTEActivo(static_cast<emParamDatoConstante>(kind));
    return config.HayCTE();
  }
};

TEST_F(ConfigOpen, BringsEveryFieldBack) {
  const SwitchFile file = test::FullFile();
  test::ConfigBench expected;
  test::Fill(expected.config, file);
  Open(file);
  EXPECT_EQ(Snapshot::OfContent(config), Snapshot::OfContent(expected.config));
  EXPECT_EQ(config.Version(), emVersion3_0);
  EXPECT_FALSE(config.Modificado());
}

TEST_F(ConfigOpen, SavedAgainTheFileIsTheSame) {
  const SwitchFile file = test::FullFile();
  Open(file);
  config.GuardarComo(u"b.cfg");
  EXPECT_EQ(files.entries.at(u"b.cfg").bytes, file.Bytes());
}

TEST_F(ConfigOpen, ReplacesWhatWasThere) {
  test::Fill(config, test::FullFile());
  SwitchFile file;
  file.datos = {{17, 3, 9, 6}};
  file.ctes = {{23, 2, 7, 1, "*"}};
  Open(file);
  test::ConfigBench expected;
  test::Fill(expected.config, file);
  EXPECT_EQ(Snapshot::OfContent(config), Snapshot::OfContent(expected.config));
}

TEST_F(ConfigOpen, RaisesLoadedOnceAndClearsTheChangeFlag) {
  test::Fill(config, test::FullFile());
  TakeEvents();
  Open(test::FullFile());
  EXPECT_FALSE(config.Modificado());
  const auto events = TakeEvents();
  EXPECT_EQ(std::count(events.begin(), events.end(), "ConfiguracionCargada"), 1);
  EXPECT_EQ(std::count(events.begin(), events.end(), "Inicializado"), 0);
  EXPECT_EQ(events.back(), "ConfiguracionCargada");
}

TEST_F(ConfigOpen, HeaderIsTakenOverWithoutEvents) {
  Open(SwitchFile());
  EXPECT_THAT(TakeEvents(), ElementsAre("ConfiguracionCargada"));
  EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
}

TEST_F(ConfigOpen, AddressingIsReset) {
  config.IDCfg(7);
  config.PuertoActivo(emPuertoSerialDB25DB25);
  config.PinIZQ(20);
  config.PinDER(21);
  config.DATOActivo(emParamCodigoCuenta);
  config.CTEActivo(emDatoCteIdentSaliente);
  Open(SwitchFile());
  EXPECT_EQ(config.IDCfg(), 7);
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
  EXPECT_EQ(config.PinIZQ(), 0);
  EXPECT_EQ(config.PinDER(), 0);
  EXPECT_EQ(config.DATOActivo(), emNoParamDato);
  EXPECT_EQ(config.CTEActivo(), emNoParamDatoConstante);
}

TEST_F(ConfigOpen, LastRecordsStayAddressed) {
  SwitchFile file;
  file.datos = {{2, 1, 5, 2}, {3, 1, 8, 2}, {4, 0, 8, 2}};
  file.ctes = {{4, 2, 5, 2, "IN"}, {5, 2, 5, 2, ""}};
  Open(file);
  EXPECT_EQ(config.DATOActivo(), emParamFechaMes);
  EXPECT_EQ(config.CTEActivo(), emDatoCteIdentEntrante);
}

TEST_F(ConfigOpen, BytesOfTheCodePageBecomeCharacters) {
  SwitchFile file;
  file.brand = "\xC1\0\xF1"s;
  file.separator = "\0\r"s;
  Open(file);
  EXPECT_EQ(config.Marca(), u"\u00C1\u00F1");
  EXPECT_EQ(config.Separador(), u"\r");
}

TEST_F(ConfigOpen, EntryZeroAndForeignBitsOfTheCableSurvive) {
  SwitchFile file = test::FullFile();
  file.db9_db9[0] = 0xFFFFFFFF;
  file.db9_db25[0] = 0x80000000;
  file.db25_db9[0] = 1;
  file.db25_db25[0] = 0x12345678;
  file.db9_db9[1] = 0xFFFFFFFF;
  file.db25_db25[25] = 0x80000000;
  Open(file);
  config.GuardarComo(u"b.cfg");
  EXPECT_EQ(files.entries.at(u"b.cfg").bytes, file.Bytes());

  config.Iniciar();
  Name();
  config.GuardarComo(u"b.cfg");
  SwitchFile cleared;
  cleared.db9_db9[0] = 0xFFFFFFFF;
  cleared.db9_db25[0] = 0x80000000;
  cleared.db25_db9[0] = 1;
  cleared.db25_db25[0] = 0x12345678;
  EXPECT_EQ(files.entries.at(u"b.cfg").bytes.substr(0, 660), cleared.Bytes());
}

TEST_F(ConfigOpen, AnyCaseIsAccepted) {
  for (const std::int32_t code : {9, 0, -1, 6, -2147483647 - 1, 2147483647}) {
    SwitchFile file;
    file.caso = code;
    Open(file);
    EXPECT_EQ(config.Caso(), code);
    EXPECT_EQ(config.HayConfig(), code != 0);
  }
}

TEST_F(ConfigOpen, TypeOfAnItemIsThatOfItsRecord) {
  SwitchFile file;
  file.datos = {{2, 3, 5, 2}, {3, 2, 8, 2}, {4, 9, 1, 1}, {5, -1, 1, 1}};
  Open(file);
  for (const auto& dato : file.datos) {
    EXPECT_TRUE(Has(dato.kind));
    EXPECT_EQ(config.TipoDatoDATO(), dato.type);
  }
}

TEST_F(ConfigOpen, InvalidItemsArePassedOver) {
  SwitchFile file;
  file.datos = {{2, 1, 0, 2},  {3, 1, 5, 0},  {4, 0, 5, 2},   {1, 1, 5, 2},
                {54, 1, 5, 2}, {-1, 1, 5, 2}, {53, 1, 77, 7}, {2147483647, 1, 5, 2}};
  file.ctes = {{4, 2, 1, 2, "IN"}};
  Open(file);
  for (int kind = 2; kind <= 52; ++kind) EXPECT_FALSE(Has(kind)) << kind;
  EXPECT_TRUE(Has(53));
  EXPECT_EQ(config.DATOPos(), 77);
  EXPECT_TRUE(HasConstant(4));
}

TEST_F(ConfigOpen, InvalidConstantsArePassedOver) {
  SwitchFile file;
  file.ctes = {{4, 2, 0, 2, "IN"}, {5, 0, 1, 2, "IN"},  {6, 2, 1, 2, ""},
               {1, 2, 1, 2, "IN"}, {24, 2, 1, 2, "IN"}, {23, 2, 1, 0, "IN"}};
  Open(file);
  for (int kind = 2; kind <= 22; ++kind) EXPECT_FALSE(HasConstant(kind)) << kind;
  EXPECT_TRUE(HasConstant(23));
}

TEST_F(ConfigOpen, SizeAndTypeOfAConstantComeFromItsText) {
  SwitchFile file;
  file.ctes = {{4, 7, 1, 99, "\0IN\0G"s}};
  Open(file);
  ASSERT_TRUE(HasConstant(4));
  EXPECT_EQ(config.Constante(), u"ING");
  EXPECT_EQ(config.CTETam(), 3);
  EXPECT_EQ(config.TipoDatoCTE(), emValorConstante);
  file.ctes = {{4, 2, 1, 3, "\0IN\0G"s}};
  config.GuardarComo(u"b.cfg");
  EXPECT_EQ(files.entries.at(u"b.cfg").bytes, file.Bytes());
}

TEST_F(ConfigOpen, LaterRecordOfTheSameKindWins) {
  SwitchFile file;
  file.datos = {{2, 3, 5, 2}, {3, 1, 8, 2}, {2, 1, 20, 4}};
  file.ctes = {{4, 2, 1, 2, "IN"}, {4, 2, 9, 3, "OUT"}};
  Open(file);
  EXPECT_TRUE(Has(2));
  EXPECT_EQ(config.DATOPos(), 20);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
  EXPECT_TRUE(HasConstant(4));
  EXPECT_EQ(config.Constante(), u"OUT");
  config.GuardarComo(u"b.cfg");
  EXPECT_EQ(files.entries.at(u"b.cfg").bytes.size(), 660u + 2 * 10 + 30);
}

TEST_F(ConfigOpen, SlotsOfTheLoadBeforeAreReused) {
  SwitchFile first;
  first.datos = {{2, 1, 1, 1}, {3, 1, 2, 2}, {4, 1, 3, 3}};
  Open(first);
  SwitchFile second;
  second.datos = {{17, 3, 9, 6}, {4, 1, 30, 3}, {3, 1, 20, 2}, {18, 3, 40, 4}};
  Open(second);
  // 17 took over the first slot, 3 and 4 kept theirs, 18 came last.
  SwitchFile third;
  third.datos = {{17, 3, 9, 6}, {3, 1, 20, 2}, {4, 1, 30, 3}, {18, 3, 40, 4}};
  config.GuardarComo(u"b.cfg");
  EXPECT_EQ(files.entries.at(u"b.cfg").bytes, third.Bytes());
}

TEST_F(ConfigOpen, RecycledSlotKeepsNothingOfTheOtherKind) {
  SwitchFile first;
  first.ctes = {{4, 2, 200, 6, "BEFORE"}};
  first.datos = {{2, 3, 200, 100}};
  Open(first);
  SwitchFile second;
  second.ctes = {{5, 2, 1, 1, "*"}};
  second.datos = {{3, 1, 1, 1}};
  Open(second);
  EXPECT_TRUE(Has(3));
  EXPECT_EQ(config.DATOTam(), 1);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
  EXPECT_TRUE(HasConstant(5));
  EXPECT_EQ(config.Constante(), u"*");
}

TEST_F(ConfigOpen, BytesAfterTheRecordsAreIgnored) {
  SwitchFile file;
  file.datos = {{2, 1, 5, 2}};
  Open(file.Bytes() + std::string(100000, '\x02'));
  EXPECT_TRUE(Has(2));
  EXPECT_FALSE(HasConstant(2));
}

TEST_F(ConfigOpen, BlankPathIsTheUnknownErrorWithThePathAsPassed) {
  for (const Text& path : {u""s, u"   "s}) {
    ExpectConfigError([&] { config.Abrir(path); }, 0x80040000, u"clsConfigConmut.Abrir",
                      u"Error desconocido.\r\n Archivo :" + path);
  }
  EXPECT_THAT(files.operations, IsEmpty());
}

TEST_F(ConfigOpen, MissingFileIsNamedAsPassed) {
  for (const Text& path : {u"none.cfg"s, u" C:\\dir\\\u00F1.cfg "s, u"\t"s, u"a\0b"s}) {
    ExpectConfigError([&] { config.Abrir(path); }, 0x800405DD, u"clsConfigConmut.Abrir",
                      Text(kNotThere) + path);
  }
}

TEST_F(ConfigOpen, FileWithoutArchiveAttributeIsPassedOver) {
  Name();
  for (const std::uint32_t attributes : {0u, 1u, 128u, kAttributeDirectory}) {
    files.entries[u"a.cfg"] = {SwitchFile().Bytes(), attributes};
    files.operations.clear();
    const Snapshot before = Snapshot::OfState(config);
    ExpectConfigError([&] { config.Abrir(u"a.cfg"); }, 0x800405DD, u"clsConfigConmut.Abrir",
                      Text(kNotThere) + u"a.cfg");
    EXPECT_THAT(files.operations, ElementsAre("attributes"));
    EXPECT_EQ(Snapshot::OfState(config), before);
  }
}

TEST_F(ConfigOpen, OtherAttributesBesideArchiveDoNotMatter) {
  files.entries[u"a.cfg"] = {SwitchFile().Bytes(), kAttributeArchive | kAttributeReadOnly | 2 | 4};
  config.Abrir(u"a.cfg");
  EXPECT_EQ(config.Marca(), u"ACME");
}

TEST_F(ConfigOpen, UnreadableFileIsNotRecognised) {
  Name();
  files.fail_read = true;
  ExpectRefused(SwitchFile().Bytes());
}

TEST_F(ConfigOpen, DirectoryIsNotRecognised) {
  files.entries[u"a.cfg"] = {"", kAttributeArchive | kAttributeDirectory};
  ExpectConfigError([&] { config.Abrir(u"a.cfg"); }, 0x800405E1, u"clsConfigConmut.Abrir",
                    Text(kNotRecognised) + u"a.cfg");
}

TEST_F(ConfigOpen, OtherVersionsAreRefused) {
  test::Fill(config, test::FullFile());
  for (const std::int64_t version : {2, 0, 1, 4, -1, 0x01000003, 0x0300}) {
    SwitchFile file;
    file.version = version;
    SCOPED_TRACE(version);
    ExpectRefused(file.Bytes());
  }
}

TEST_F(ConfigOpen, FileWithoutBrandModelOrSeparatorIsRefused) {
  test::Fill(config, test::FullFile());
  for (const int missing : {0, 1, 2}) {
    SwitchFile file;
    (missing == 0 ? file.brand : missing == 1 ? file.model : file.separator) = "";
    SCOPED_TRACE(missing);
    ExpectRefused(file.Bytes());
  }
}

TEST_F(ConfigOpen, LastCharacterIsEnoughOfAText) {
  SwitchFile file;
  file.brand = std::string(49, '\0') + "x";
  file.model = std::string(49, '\0') + "x";
  file.separator = std::string(9, '\0') + ";";
  Open(file);
  EXPECT_EQ(config.NombreConmutador(), u"x, x");
}

TEST_F(ConfigOpen, GarbageIsRefused) {
  test::Fill(config, test::FullFile());
  for (const std::size_t size : {0u, 1u, 659u, 660u, 785u, 786u, 787u, 5000u}) {
    SCOPED_TRACE(size);
    std::string bytes(size, '\xAA');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 167 + 13);
    ExpectRefused(bytes);
    ExpectRefused(std::string(size, '\0'));
    ExpectRefused(std::string(size, '\xFF'));
  }
}

TEST_F(ConfigOpen, FailureAfterALoadKeepsThatLoad) {
  Open(test::FullFile());
  EXPECT_FALSE(config.Modificado());
  ExpectRefused("no configuration");
  EXPECT_FALSE(config.Modificado());
}

}  // namespace
}  // namespace conmuta
