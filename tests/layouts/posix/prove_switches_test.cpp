// The program that shows what switches prove, run as a person runs it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "layouts/posix/run_program.h"
#include "support/temporary_folder.h"

namespace conmuta::layouts {
namespace {

class ProveSwitches : public testing::Test {
 protected:
  ProveSwitches() { std::filesystem::copy(CONMUTA_SOURCES "/switches/altigen-in", copy_); }

  test::ProgramRun Run(const std::string& arguments) const {
    return test::RunProgram(CONMUTA_PROVE_SWITCHES " " + arguments, temporary_.path());
  }

  // In a file of the folder, which has that text once.
  void Replace(const char* file, const std::string& text, const std::string& by) const {
    std::string bytes = test::ReadWhole(copy_ / file);
    const std::size_t found = bytes.find(text);
    ASSERT_NE(found, std::string::npos);
    std::ofstream(copy_ / file, std::ios::binary) << bytes.replace(found, text.size(), by);
  }

  test::TemporaryFolder temporary_;
  const std::filesystem::path copy_ = std::filesystem::path(temporary_.path()) / "altigen-in";
};

TEST_F(ProveSwitches, ALineAFamily) {
  const auto run = Run(copy_.string());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.said,
            "conmutador  líneas  Entrante  Saliente  Inter-extension  Inter-troncal  errores  "
            "distintas  sin llamada\n"
            "altigen-in      43        18         0                0              0        0  "
            "        0  2 vacia, 2 sin digitos, 20 sin emisor, 1 sin receptor\n");
}

TEST_F(ProveSwitches, AnotherCallThanExpectedIsToldAndEndsWithOne) {
  Replace("expected.txt", "| sin emisor", "| sin fecha");
  const auto run = Run(copy_.string());
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.said.find("  se espera: "), std::string::npos) << run.said;
  EXPECT_NE(run.said.find(" | sin fecha\n"), std::string::npos) << run.said;
}

TEST_F(ProveSwitches, MistakesAreToldAndTheOtherFamiliesShown) {
  Replace("layout.toml", "caso = ", "casa = ");
  const auto run = Run(copy_.string() + " " CONMUTA_SOURCES "/switches/altigen-out /none");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.said.find(copy_.string() + "/layout.toml:"), std::string::npos) << run.said;
  EXPECT_NE(run.said.find("/none/layout.toml:1: no se puede leer\n"), std::string::npos)
      << run.said;
  EXPECT_NE(run.said.find("\naltigen-out "), std::string::npos) << run.said;
}

TEST_F(ProveSwitches, ALayoutThatALikeOneIsAsGoodAsEndsWithOne) {
  const auto twin = copy_.parent_path() / "twin";
  std::filesystem::copy(copy_, twin);
  const auto run = Run("--matrix " + copy_.string() + " " + twin.string());
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(
      run.said.starts_with("twin explica la captura de altigen-in tan bien como la suya\n"
                           "altigen-in explica la captura de twin tan bien como la suya\n"))
      << run.said;
}

TEST_F(ProveSwitches, ShowsDamageAndTheWrongCallsThatComeOfIt) {
  const auto damage = Run("--damage " + copy_.string());
  EXPECT_EQ(damage.status, 0);
  EXPECT_TRUE(damage.said.starts_with("conmutador  dañadas  equivocadas  ")) << damage.said;
  const auto wrong = Run("--wrong " + copy_.string());
  EXPECT_EQ(wrong.status, 0);
  EXPECT_NE(wrong.said.find(" | Entrante | "), std::string::npos) << wrong.said;
}

TEST_F(ProveSwitches, WrongArgumentsShowTheUsage) {
  for (const std::string arguments : {"", "--matrix", "--what x"}) {
    const auto run = Run(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_TRUE(run.said.starts_with("Usage: prove_switches ")) << run.said;
  }
}

}  // namespace
}  // namespace conmuta::layouts
