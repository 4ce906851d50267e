// conmuta compila, descompila, informe, cable, catalogo: configurations made, read, shown.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "catalogue/switch_folder.h"
#include "conmuta/layout_choice.h"
#include "layouts/read_layout.h"
#include "platform/unicode.h"
#include "support/approved.h"
#include "support/program_run.h"
#include "support/saved_config.h"
#include "support/source_files.h"
#include "support/temporary_folder.h"

namespace conmuta::host {
namespace {

namespace fs = std::filesystem;

using test::ProgramRun;
using test::ReadWhole;
using test::RunConmuta;

const std::string kGood =
    "marca = \"ACME\"\nmodelo = \"X1\"\ncomentarios = \"\"\nseparador = \"\\r\\n\"\n"
    "caso = \"Estandar\"\n[datos]\nFechaMes = { pos = 1, tam = 2 }\n";
const std::string kBad = kGood + "FechaDia = { pos = 300, tam = 2 }\n";

class ConfigCommand : public testing::Test {
 protected:
  std::string AddSwitch(const std::string& name, const std::string& layout) {
    fs::create_directories(folder_ / name);
    std::ofstream(folder_ / name / "layout.toml", std::ios::binary) << layout;
    return (folder_ / name).string();
  }
  std::string Out(const std::string& name = "out") const { return (folder_ / name).string(); }
  std::vector<std::string> Written() const {
    std::vector<std::string> names;
    for (const auto& path : test::Entries(Out())) names.push_back(path.filename().string());
    return names;
  }

  test::TemporaryFolder temporary_;
  const fs::path folder_ = temporary_.path();
};

using Compila = ConfigCommand;

TEST_F(Compila, EachFolderBecomesAConfigurationOfItsName) {
  const std::string a = AddSwitch("acme-x1", kGood);
  const std::string b = AddSwitch("acme-x2", kGood + "FechaDia = { pos = 4, tam = 2 }\n");
  const ProgramRun run = RunConmuta({"compila", a, b + "/layout.toml", "-o", Out()});
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out + run.err, "");
  ASSERT_EQ(Written(), (std::vector<std::string>{"acme-x1.cfg", "acme-x2.cfg"}));
  EXPECT_EQ(ReadWhole(Out() + "/acme-x1.cfg"),
            test::SavedConfig(*layouts::ReadLayout(kGood).layout).Bytes());
}

TEST_F(Compila, OneLayoutBecomesTheFileThatIsNamed) {
  ASSERT_EQ(RunConmuta({"compila", AddSwitch("acme", kGood), "-o", Out("sitio.cfg")}).code, 0);
  EXPECT_EQ(ReadWhole(Out("sitio.cfg")),
            test::SavedConfig(*layouts::ReadLayout(kGood).layout).Bytes());
  // In a folder that is there it takes its own name.
  fs::create_directories(Out());
  ASSERT_EQ(RunConmuta({"compila", AddSwitch("acme", kGood), "-o", Out()}).code, 0);
  EXPECT_EQ(Written(), std::vector<std::string>{"acme.cfg"});
}

TEST_F(Compila, OneMistakeAndNothingIsWritten) {
  const std::string good = AddSwitch("good", kGood);
  const std::string bad = AddSwitch("bad", kBad);
  const ProgramRun run = RunConmuta({"compila", good, bad, "-o", Out()});
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.err, (fs::path(bad) / "layout.toml").string() +
                         ":8: FechaDia: la posición 300 pasa de 254 (de 1 a 254)\n");
  EXPECT_EQ(Written(), std::vector<std::string>());
}

TEST_F(Compila, TwoSwitchesOfOneNameAreAMistake) {
  const std::string first = AddSwitch("a/x", kGood);
  const std::string second = AddSwitch("b/x", kGood);
  const ProgramRun run = RunConmuta({"compila", first, second, "-o", Out()});
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.err, second + ": otro conmutador tiene el mismo nombre\n");
  EXPECT_EQ(Written(), std::vector<std::string>());
}

TEST_F(Compila, ReplacesNothingUnlessItIsTold) {
  const std::string good = AddSwitch("good", kGood);
  std::ofstream(Out("x.cfg")) << "mine";
  const ProgramRun run = RunConmuta({"compila", good, "-o", Out("x.cfg")});
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.err, Out("x.cfg") + ": ya existe; --reemplaza lo escribe de nuevo\n");
  EXPECT_EQ(ReadWhole(Out("x.cfg")), "mine");
  EXPECT_EQ(RunConmuta({"compila", "--reemplaza", good, "-o", Out("x.cfg")}).code, 0);
  EXPECT_NE(ReadWhole(Out("x.cfg")), "mine");
}

TEST_F(Compila, WhatCannotBeWrittenIsNamed) {
  const std::string a = AddSwitch("a", kGood);
  const std::string b = AddSwitch("b", kGood);
  std::ofstream(Out()) << "a file";
  const ProgramRun run = RunConmuta({"compila", a, b, "-o", Out()});
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.err, Out() + ": no se puede crear la carpeta\n");
  EXPECT_EQ(RunConmuta({"compila", a, "-o", Out() + "/x.cfg"}).code, 2);
  EXPECT_EQ(RunConmuta({"compila", a}).err,
            "Falta --salida: el archivo .cfg, o una carpeta para varios.\n");
}

using Descompila = ConfigCommand;

TEST_F(Descompila, GivesTheLayoutOfEveryKindOfConfiguration) {
  for (const NamedLayout& named : Catalogue()) {
    const std::string cfg = Out(named.name + ".cfg");
    ASSERT_EQ(RunConmuta({"compila", named.name, "-o", cfg}).code, 0);
    const ProgramRun run = RunConmuta({"descompila", cfg});
    const auto again = layouts::ReadLayout(run.out);
    ASSERT_TRUE(again.layout) << run.out;
    EXPECT_EQ(again.layout->items, named.layout.items);
    EXPECT_EQ(again.layout->constants, named.layout.constants);
    EXPECT_EQ(again.layout->header.Cables, named.layout.header.Cables) << named.name;
    EXPECT_EQ(again.layout->header.Caso, named.layout.header.Caso) << named.name;
  }
  clsCfgConmut config(SystemPlatform());
  config.Abrir(FromUtf8(Out("panasonic-kx.cfg")));
  config.Exportar(FromUtf8(Out("exchange.txt")));
  const ProgramRun exchange = RunConmuta({"descompila", Out("exchange.txt")});
  EXPECT_EQ(exchange.out, RunConmuta({"descompila", Out("panasonic-kx.cfg")}).out) << exchange.err;
}

TEST_F(Descompila, WritesWhereItIsTold) {
  ASSERT_EQ(RunConmuta({"descompila", "nec-date", "-o", Out("l.toml")}).code, 0);
  EXPECT_EQ(ReadWhole(Out("l.toml")), RunConmuta({"descompila", "nec-date"}).out);
  EXPECT_EQ(RunConmuta({"descompila", "nec-date", "-o", Out("l.toml")}).code, 2);
}

TEST(Informe, IsAsApproved) {
  const std::string report = RunConmuta({"informe", "panasonic-kx"}).out;
  EXPECT_EQ(report, test::Approved("informe.txt", report));
}

TEST(Cable, ListAndDrawingAreAsApproved) {
  const std::string text = RunConmuta({"cable", "panasonic-kx"}).out;
  EXPECT_EQ(text, test::Approved("cable.txt", text));
  const std::string svg = RunConmuta({"cable", "--svg", "panasonic-kx"}).out;
  test::ExpectLikeApproved("cable.svg", svg, 0);
}

TEST(Cable, OnlyOfAPairThatThereIs) {
  EXPECT_EQ(RunConmuta({"cable", "--par", "DB9-DB25", "panasonic-kx"}).code, 0);
  const ProgramRun run = RunConmuta({"cable", "--par", "DB9", "panasonic-kx"});
  EXPECT_EQ(run.code, 2);
  EXPECT_TRUE(run.err.starts_with("--par: «DB9» no es uno de estos valores: DB9-DB9, ")) << run.err;
}

using Catalogo = ConfigCommand;

TEST_F(Catalogo, NamesEverySwitch) {
  const std::string list = "\n" + RunConmuta({"catalogo"}).out;
  const std::string json = RunConmuta({"catalogo", "--json"}).out;
  for (const auto& folder : test::Entries(CONMUTA_SOURCES "/switches")) {
    if (!fs::is_directory(folder)) continue;
    const std::string name = folder.filename().string();
    EXPECT_NE(list.find("\n" + name + " "), std::string::npos) << name;
    EXPECT_NE(json.find("{\"formato\":1,\"conmutador\":\"" + name + "\","), std::string::npos)
        << name;
  }
}

TEST_F(Catalogo, InstallsAFolderThatTheComponentOpens) {
  const ProgramRun run = RunConmuta({"catalogo", "instala", Out(), "--prefijo", "pbx"});
  ASSERT_EQ(run.code, 0) << run.err;
  ::conmuta::SwitchFolder catalogue;
  catalogue.prefix = u"PBX";
  catalogue.extension = u"cfg";
  ASSERT_EQ(Written().size(), Catalogue().size());
  for (const std::string& name : Written()) {
    const auto number = catalogue.NumberOf(fs::path(name).u16string());
    ASSERT_TRUE(number) << name;
    clsCfgConmut config(SystemPlatform());
    config.Abrir((fs::path(Out()) / name).u16string());
    const auto& layout = Catalogue().at(static_cast<std::size_t>(*number - 1)).layout;
    EXPECT_EQ(config.Modelo(), layout.header.Modelo.Read());
  }
}

TEST_F(Catalogo, InstallsNothingOverAFileThatIsThere) {
  fs::create_directories(Out());
  std::ofstream(Out() + "/CNM34.cfg") << "mine";
  const ProgramRun run = RunConmuta({"catalogo", "instala", Out()});
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(Written(), std::vector<std::string>{"CNM34.cfg"});
  EXPECT_EQ(ReadWhole(Out() + "/CNM34.cfg"), "mine");
  EXPECT_EQ(RunConmuta({"catalogo", "instala", Out(), "--reemplaza"}).code, 0);
  EXPECT_EQ(RunConmuta({"catalogo", "instala"}).code, 2);
  EXPECT_EQ(RunConmuta({"catalogo", "instala", Out(), "--prefijo", "../x"}).code, 2);
}

}  // namespace
}  // namespace conmuta::host
