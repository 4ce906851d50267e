// The program that makes the catalogue's configuration files, run as the build runs it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "layouts/posix/run_program.h"
#include "layouts/read_layout.h"
#include "support/saved_config.h"
#include "support/source_files.h"
#include "support/temporary_folder.h"

namespace conmuta::layouts {
namespace {

namespace fs = std::filesystem;

const std::string kGood =
    "marca = \"ACME\"\nmodelo = \"X1\"\ncomentarios = \"\"\nseparador = \"\\r\\n\"\n"
    "caso = \"Estandar\"\n[datos]\nFechaMes = { pos = 1, tam = 2 }\n";
const std::string kBad = kGood + "FechaDia = { pos = 300, tam = 2 }\n";

class CompileLayout : public testing::Test {
 protected:
  std::string AddSwitch(const std::string& name, const std::string& layout) {
    fs::create_directories(folder_ / name);
    std::ofstream(folder_ / name / "layout.toml", std::ios::binary) << layout;
    return (folder_ / name).string();
  }

  // The exit code; what it said is in said_.
  int Run(const std::string& arguments) {
    const auto run = test::RunProgram(CONMUTA_COMPILE_LAYOUT " " + arguments, folder_);
    said_ = run.said;
    return run.status;
  }

  std::string Out() const { return (folder_ / "out").string(); }
  std::vector<std::string> Written() const {
    std::vector<std::string> names;
    for (const auto& path : test::Entries(Out())) names.push_back(path.filename().string());
    return names;
  }

  test::TemporaryFolder temporary_;
  const fs::path folder_ = temporary_.path();
  std::string said_;
};

TEST_F(CompileLayout, EachFolderBecomesAConfigurationOfItsName) {
  const std::string a = AddSwitch("acme-x1", kGood);
  const std::string b = AddSwitch("acme-x2", kGood + "FechaDia = { pos = 4, tam = 2 }\n");
  ASSERT_EQ(Run(a + " " + b + "/layout.toml -o " + Out()), 0) << said_;
  EXPECT_EQ(said_, "");
  ASSERT_EQ(Written(), (std::vector<std::string>{"acme-x1.cfg", "acme-x2.cfg"}));
  EXPECT_EQ(test::ReadWhole(Out() + "/acme-x1.cfg"),
            test::SavedConfig(*ReadLayout(kGood).layout).Bytes());
}

TEST_F(CompileLayout, OneMistakeAndNothingIsWritten) {
  const std::string good = AddSwitch("good", kGood);
  const std::string bad = AddSwitch("bad", kBad);
  EXPECT_EQ(Run(good + " " + bad + " -o " + Out()), 1);
  EXPECT_EQ(said_, bad + "/layout.toml:8: FechaDia: la posición 300 pasa de 254 (de 1 a 254)\n");
  EXPECT_EQ(Written(), std::vector<std::string>());
}

TEST_F(CompileLayout, TwoSwitchesOfOneNameAreAMistake) {
  const std::string first = AddSwitch("a/x", kGood);
  const std::string second = AddSwitch("b/x", kGood);
  EXPECT_EQ(Run(first + " " + second + " -o " + Out()), 1);
  EXPECT_EQ(said_, second + ": otro conmutador tiene el mismo nombre\n");
  EXPECT_EQ(Written(), std::vector<std::string>());
}

TEST_F(CompileLayout, WhatCannotBeReadOrWrittenIsNamed) {
  EXPECT_EQ(Run((folder_ / "none").string() + " -o " + Out()), 1);
  EXPECT_EQ(said_, (folder_ / "none").string() + ": no se puede leer\n");
  const std::string good = AddSwitch("good", kGood);
  std::ofstream(Out()) << "a file";
  EXPECT_EQ(Run(good + " -o " + Out()), 1);
  EXPECT_EQ(said_, Out() + "/good.cfg: no se puede escribir\n");
}

TEST_F(CompileLayout, WrongArgumentsShowTheUsage) {
  for (const std::string arguments : {"", "x", "-o x", "x -o", "x -q -o y", "x -o y -o z"}) {
    EXPECT_EQ(Run(arguments), 2) << arguments;
    EXPECT_TRUE(said_.starts_with("Usage: compile_layout ")) << said_;
  }
}

}  // namespace
}  // namespace conmuta::layouts
