// conmuta captura, estado, reprocesa, exporta: what they answer, and how they end.
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "support/program_run.h"
#include "support/source_files.h"
#include "support/temporary_folder.h"

namespace conmuta::host {
namespace {

using test::ProgramRun;
using test::RunConmuta;
using Json = nlohmann::json;

struct CaptureCommands : ::testing::Test {
  // Keeps all of a file, once.
  ProgramRun Capture(const std::string& layout, const std::string& file) {
    return RunConmuta(
        {"captura", "--almacen", store, "--hasta-el-fin", "centro=" + layout + "@archivo:" + file});
  }
  ProgramRun Ask(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin() + 1, {"--almacen", store});
    return RunConmuta(arguments);
  }
  static std::vector<Json> Rows(const std::string& text) {
    std::vector<Json> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) rows.push_back(Json::parse(line));
    return rows;
  }

  test::TemporaryFolder folder;
  std::string store = (folder.path() / "sitio.db").string();
};

// Head, several layouts, times that are the end: what traduce knows, captura knows.
TEST_F(CaptureCommands, ExportedCallsAreThoseOfTraduce) {
  for (const std::string name :
       {"panasonic-dbs-esi", "altigen-out", "samsung-dcs", "toshiba-ctx"}) {
    store = (folder.path() / (name + ".db")).string();
    const std::string file = test::CaptureOf(name);
    const ProgramRun captured = Capture(name, file);
    EXPECT_EQ(captured.code, 0) << captured.err;
    const auto exported = Rows(Ask({"exporta", "-f", "json"}).out);
    const auto translated = Rows(RunConmuta({"traduce", "-q", "-f", "json", name, file}).out);
    ASSERT_EQ(exported.size(), translated.size()) << name;
    ASSERT_GT(exported.size(), 5U);
    for (std::size_t i = 0; i < exported.size(); ++i) {
      for (const auto& [key, value] : exported[i].items()) {
        if (key == "fuente") continue;
        ASSERT_TRUE(translated[i].contains(key)) << key;
        EXPECT_EQ(value, translated[i][key]) << name << ' ' << key << ' ' << exported[i];
      }
    }
  }
}

TEST_F(CaptureCommands, ColumnsOfTheExportStay) {
  Capture("altigen-out", test::CaptureOf("altigen-out"));
  const std::string csv = Ask({"exporta"}).out;
  EXPECT_EQ(csv.substr(0, csv.find('\r')),
            "fuente,linea,conmutador,tipo,transferencia,fecha,hora,duracion_s,timbre_s,emisor,"
            "receptor,telefono,extension_transferida,cuenta,inicio");
}

TEST_F(CaptureCommands, AStoreThatCannotBeReadEndsThemWithTwo) {
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"estado"}, {"exporta"}, {"reprocesa", "centro=panasonic-kx"}}) {
    const ProgramRun run = Ask(command);
    EXPECT_EQ(run.code, 2) << command[0];
    EXPECT_NE(run.err.find("no se puede abrir: vea el nombre"), std::string::npos) << run.err;
    EXPECT_FALSE(std::filesystem::exists(store));
  }
}

TEST_F(CaptureCommands, EndWithOneOnlyForASilentSource) {
  Capture("panasonic-kx", test::CaptureOf("panasonic-kx"));
  EXPECT_EQ(Ask({"estado", "--silencio", "10"}).code, 0);
  EXPECT_EQ(Ask({"reprocesa", "norte=panasonic-kx"}).code, 2);
  std::ofstream(folder.path() / "nada.txt").flush();
  RunConmuta({"captura", "--almacen", store, "--hasta-el-fin",
              "sur=panasonic-kx@archivo:" + (folder.path() / "nada.txt").string()});
  const ProgramRun status = Ask({"estado", "--silencio", "10"});
  EXPECT_EQ(status.code, 1);
  EXPECT_NE(status.out.find("sur (sin traducir)"), std::string::npos) << status.out;
}

TEST_F(CaptureCommands, LinesAreTranslatedAnewWithTheLayoutThatIsNamed) {
  Capture("panasonic-b", test::CaptureOf("panasonic-kx"));
  const std::string before = Ask({"exporta"}).out;
  EXPECT_EQ(Ask({"reprocesa", "centro=panasonic-kx"}).code, 0);
  const std::string after = Ask({"exporta"}).out;
  EXPECT_NE(before, after);
  store += "2";
  Capture("panasonic-kx", test::CaptureOf("panasonic-kx"));
  EXPECT_EQ(after, Ask({"exporta"}).out);
}

TEST_F(CaptureCommands, AMistakeInWhatIsAskedEndsThemWithTwo) {
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"exporta", "--desde", "2026-02-30"},
           {"captura", "centro=panasonic-kx"},
           {"captura", "centro=no-hay@-"},
           {"captura", "a=nec-date@escucha:0", "a=nec-date@escucha:0"},
           {"captura", "--simula", "x.txt"}}) {
    EXPECT_EQ(RunConmuta(command).code, 2) << command.back();
  }
}

}  // namespace
}  // namespace conmuta::host
