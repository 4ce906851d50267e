// Saving a configuration.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/config_bench.h"
#include "support/config_errors.h"
#include "support/config_snapshot.h"
#include "support/full_config.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::ExpectConfigError;
using test::Snapshot;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView kIncomplete =
    u"Los datos de la configuraci\u00F3n no estan completos.\r\nVerifica la marca y modelo, el "
    u"separador de llamadas, el caso establecido.";
constexpr TextView kCannotWrite =
    u"No es posible acceder al archivo o el nombre del archivo no es v\u00E1lido.";

class ConfigSave : public testing::Test, protected test::ConfigBench {
 protected:
  std::string Saved() {
    config.GuardarComo(u"a.cfg");
    return files.entries.at(u"a.cfg").bytes;
  }
};

TEST_F(ConfigSave, HeaderAloneIs660Bytes) {
  Name();
  EXPECT_EQ(Saved(), test::SwitchFile().Bytes());
  EXPECT_EQ(Saved().size(), 660u);
}

TEST_F(ConfigSave, OnlyValidSlotsReachTheFile) {
  Name();
  test::DefineItem(config, emParamFechaDia, 1, 2);
  test::DefineItem(config, emParamFechaMes, 4, 2);
  test::DefineItem(config, emParamFechaAnio, 7, 4, emValorCadena);
  test::DefineItem(config, emParamFechaHoras, 12, 2);
  test::DefineConstant(config, emDatoCteIdentEntrante, 20, u"IN");
  test::DefineConstant(config, emDatoCteIdentSaliente, 20, u"OUT");
  config.DATOActivo(emParamFechaMes);
  config.TipoDatoDATO(emNoDefinido);

  test::SwitchFile file;
  file.datos = {{2, 1, 1, 2}, {4, 3, 7, 4}, {5, 1, 12, 2}};
  file.ctes = {{4, 2, 20, 2, "IN"}, {7, 2, 20, 3, "OUT"}};
  EXPECT_EQ(Saved(), file.Bytes());
  EXPECT_EQ(Saved().size(), 750u);
}

TEST_F(ConfigSave, EveryFieldStandsWhereTheLayoutPromises) {
  const test::SwitchFile file = test::FullFile();
  test::Fill(config, file);
  EXPECT_EQ(Saved(), file.Bytes());
}

TEST_F(ConfigSave, SlotMadeButNeverCompletedIsSkipped) {
  Name();
  config.DATOActivo(emParamFechaDia);
  config.TipoDatoDATO(emValorNumerico);  // in use, without a place
  config.CTEActivo(emDatoCteIdentEntrante);
  config.Constante(u"IN");
  config.DATOActivo(static_cast<emParamDato>(54));
  config.TipoDatoDATO(emValorNumerico);
  config.DATOPos(1);
  config.DATOTam(1);
  EXPECT_EQ(Saved(), test::SwitchFile().Bytes());
}

TEST_F(ConfigSave, ConstantIsWrittenAsStored) {
  Name();
  test::DefineConstant(config, emDatoCteIdentEntrante, 1, u"\0I\0N"s);
  config.CTETam(9);
  test::SwitchFile file;
  file.ctes = {{4, 2, 1, 9, "\0I\0N"s}};
  EXPECT_EQ(Saved(), file.Bytes());
}

TEST_F(ConfigSave, TextsAreWrittenAsStored) {
  config.Marca(u"\0A"s);
  config.Modelo(u"B\0C"s);
  config.Separador(u"\0\r"s);
  test::SwitchFile file;
  file.brand = "\0A"s;
  file.model = "B\0C"s;
  file.separator = "\0\r"s;
  EXPECT_EQ(Saved(), file.Bytes());
}

TEST_F(ConfigSave, WhatTheCodePageLacksBecomesAQuestionMark) {
  Name();
  config.Marca(u"\u4E2D\u00F1");
  test::SwitchFile file;
  file.brand = "?\xF1";
  EXPECT_EQ(Saved(), file.Bytes());
  EXPECT_EQ(config.Marca(), u"\u4E2D\u00F1");
}

TEST_F(ConfigSave, TextOfSeveralBytesACharacterIsCutAtAWholeOne) {
  const test::SeveralBytes several_bytes;
  const Platform wide_platform{files, clock, several_bytes, profiles};
  clsCfgConmut wide(wide_platform);
  wide.Marca(u"ACME");
  wide.Modelo(u"X1");
  wide.Separador(u"a\u00F1\u00F1\u00F1\u00F1\u00F1");  // 11 bytes
  wide.GuardarComo(u"a.cfg");
  EXPECT_EQ(files.entries.at(u"a.cfg").bytes.size(), 660u);
  EXPECT_EQ(files.entries.at(u"a.cfg").bytes.substr(354, 10), "a<><><><>\0"s);
}

TEST_F(ConfigSave, CaseIsWrittenWhateverItIs) {
  Name();
  for (const std::int32_t code : {-1, 1, 9, -2147483647 - 1, 2147483647}) {
    config.Caso(static_cast<emCasos>(code));
    test::SwitchFile file;
    file.caso = code;
    EXPECT_EQ(Saved(), file.Bytes());
  }
}

TEST_F(ConfigSave, FileIsRemovedBeforeItIsWritten) {
  Name();
  files.entries[u"a.cfg"] = {"old"};
  Saved();
  EXPECT_THAT(files.operations, ElementsAre("remove", "write"));
}

TEST_F(ConfigSave, FileThatCannotBeRemovedIsReplaced) {
  Name();
  files.entries[u"a.cfg"] = {"old"};
  files.fail_remove = true;
  EXPECT_EQ(Saved(), test::SwitchFile().Bytes());
}

TEST_F(ConfigSave, ClearsTheChangeFlagAndRaisesNothing) {
  Name();
  EXPECT_TRUE(config.Modificado());
  TakeEvents();
  Saved();
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigSave, ChangesNothingElse) {
  test::Fill(config, test::FullFile());
  config.IDCfg(7);
  Saved();
  const Snapshot content = Snapshot::OfContent(config);
  const Snapshot state = Snapshot::OfState(config);
  Saved();
  EXPECT_EQ(Snapshot::OfState(config), state);
  EXPECT_EQ(Snapshot::OfContent(config), content);
  EXPECT_EQ(config.Version(), emVersion3_0);
}

TEST_F(ConfigSave, VersionInMemoryIsNotTheOneInTheFile) {
  files.entries[u"a.txt"] = {
      "[Conmutador]\r\nVersion=2\r\nMarca=ACME\r\nModelo=X1\r\nCaso=1\r\nSeparador=13,10\r\n"};
  config.Importar(u"a.txt");
  ASSERT_EQ(config.Version(), emVersion2_0);
  EXPECT_EQ(config.NombreVersion(), u"2.0");
  EXPECT_EQ(Saved(), test::SwitchFile().Bytes());
  EXPECT_EQ(config.Version(), emVersion2_0);
  config.Iniciar();
  EXPECT_EQ(config.Version(), emVersion3_0);
}

TEST_F(ConfigSave, PathIsUsedExactlyAsPassed) {
  Name();
  config.GuardarComo(u" \u00F1 .cfg ");
  EXPECT_EQ(files.entries.count(u" \u00F1 .cfg "), 1u);
}

TEST_F(ConfigSave, BlankPathFailsInTheNameOfExportar) {
  for (const Text& path : {u""s, u" "s, u"    "s}) {
    ExpectConfigError([&] { config.GuardarComo(path); }, 0x800405DD, u"clsConfigConmut.Exportar",
                      u"No es posible encontrar el archivo deseado.");
  }
  EXPECT_THAT(files.operations, IsEmpty());
}

TEST_F(ConfigSave, BlankPathIsReportedBeforeIncompleteData) {
  Name();
  ExpectConfigError([&] { config.GuardarComo(u""); }, 0x800405DD, u"clsConfigConmut.Exportar",
                    u"No es posible encontrar el archivo deseado.");
  EXPECT_TRUE(config.Modificado());
}

TEST_F(ConfigSave, TabIsAPath) {
  Name();
  config.GuardarComo(u"\t");
  EXPECT_EQ(files.entries.count(u"\t"), 1u);
}

struct Missing {
  const char* name;
  void (*take)(clsCfgConmut&);
};

class IncompleteData : public testing::TestWithParam<Missing>, protected test::ConfigBench {};

TEST_P(IncompleteData, IsNotWritten) {
  Name();
  files.entries[u"a.cfg"] = {"old"};
  GetParam().take(config);
  const Snapshot before = Snapshot::OfState(config);
  TakeEvents();
  ExpectConfigError([&] { config.GuardarComo(u"a.cfg"); }, 0x800405DE,
                    u"clsConfigConmut.GuardarComo", kIncomplete);
  EXPECT_EQ(files.entries.at(u"a.cfg").bytes, "old");
  EXPECT_THAT(files.operations, IsEmpty());
  EXPECT_EQ(Snapshot::OfState(config), before);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    All, IncompleteData,
    testing::Values(Missing{"Case", [](clsCfgConmut& c) { c.Caso(emNoCaso); }},
                    Missing{"Brand", [](clsCfgConmut& c) { c.Marca(u""); }},
                    Missing{"Model", [](clsCfgConmut& c) { c.Modelo(u""); }},
                    Missing{"Separator", [](clsCfgConmut& c) { c.Separador(u""); }},
                    Missing{"BrandOfNuls", [](clsCfgConmut& c) { c.Marca(u"\0"s); }},
                    Missing{"SeparatorBeyondTheCut",
                            [](clsCfgConmut& c) { c.Separador(Text(10, kNul) + u"\r"); }},
                    Missing{"Everything", [](clsCfgConmut& c) { c.Iniciar(); }}),
    [](const auto& test) { return test.param.name; });

TEST_F(ConfigSave, BlanksCountAsNames) {
  config.Marca(u" ");
  config.Modelo(u" ");
  config.Separador(u" ");
  EXPECT_EQ(Saved().size(), 660u);
}

struct Fault {
  const char* name;
  void (*cause)(test::FakeFiles&);
  bool old_file_stays;
};
void PrintTo(const Fault& fault, std::ostream* out) {
  *out << fault.name;
}

class FaultyDisk : public testing::TestWithParam<Fault>, protected test::ConfigBench {};

TEST_P(FaultyDisk, LeavesTheConfigurationAsItWas) {
  test::Fill(config, test::FullFile());
  files.entries[u"a.cfg"] = {"old"};
  GetParam().cause(files);
  const Snapshot content = Snapshot::OfContent(config);
  const Snapshot state = Snapshot::OfState(config);
  TakeEvents();
  ExpectConfigError([&] { config.GuardarComo(u"a.cfg"); }, 0x800405DC,
                    u"clsConfigConmut.GuardarComo", kCannotWrite);
  EXPECT_EQ(Snapshot::OfState(config), state);
  EXPECT_EQ(Snapshot::OfContent(config), content);
  EXPECT_TRUE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_EQ(files.removals, 1);
  EXPECT_EQ(files.writes, 1);
  const auto left = files.entries.find(u"a.cfg");
  ASSERT_EQ(left != files.entries.end(), GetParam().old_file_stays);
  if (GetParam().old_file_stays) {
    EXPECT_EQ(left->second.bytes, "old");
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, FaultyDisk,
    testing::Values(
        Fault{"FullAtTheStart", [](test::FakeFiles& f) { f.room = 0; }, false},
        Fault{"FullInTheHeader", [](test::FakeFiles& f) { f.room = 659; }, false},
        Fault{"FullOneByteBeforeTheEnd", [](test::FakeFiles& f) { f.room = 660 + 520 + 660 - 1; },
              false},
        Fault{"NotWritable", [](test::FakeFiles& f) { f.fail_open = true; }, false},
        Fault{"ReadOnlyFile",
              [](test::FakeFiles& f) { f.entries[u"a.cfg"].attributes |= kAttributeReadOnly; },
              true},
        Fault{"Directory",
              [](test::FakeFiles& f) { f.entries[u"a.cfg"].attributes = kAttributeDirectory; },
              true}),
    [](const auto& test) { return test.param.name; });

TEST_F(ConfigSave, WorksAgainOnceTheDiskDoes) {
  test::Fill(config, test::FullFile());
  files.room = 100;
  EXPECT_THROW(config.GuardarComo(u"a.cfg"), ConfigError);
  files.room = 660 + 520 + 660;
  EXPECT_EQ(Saved(), test::FullFile().Bytes());
  EXPECT_FALSE(config.Modificado());
}

}  // namespace
}  // namespace conmuta
