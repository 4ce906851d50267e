// conmuta explica: what was looked at in a line, for people and for programs.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/approved.h"
#include "support/program_run.h"
#include "support/source_files.h"

namespace conmuta::host {
namespace {

using test::CaptureOf;
using test::ProgramRun;
using test::RunConmuta;

const std::string kLine =
    "01/14/19 09:15AM 1210  01 <I>5550177                0'12 00:00'20 431211     TR";

TEST(Explica, PagesAreAsApproved) {
  const struct {
    std::string file;
    std::vector<std::string> arguments;
  } cases[] = {
      {"llamada", {"panasonic-kx", kLine}},
      {"sin-llamada", {"panasonic-kx", "01/14/19 09:07AM *1204 LOG IN"}},
      {"bloque", {"nortel-norstar", CaptureOf("nortel-norstar") + ":12"}},
      {"error", {"nortel-norstar", CaptureOf("nortel-norstar") + ":157"}},
  };
  for (const auto& row : cases) {
    std::vector<std::string> arguments = {"explica", "--hoy", "2019-01-17"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const std::string plain = RunConmuta(arguments).out;
    EXPECT_EQ(plain, test::Approved("explica-" + row.file + ".txt", plain));
    const std::string coloured = RunConmuta(arguments, {}, {.out = true}).out;
    EXPECT_EQ(coloured, test::Approved("explica-" + row.file + ".ansi", coloured));
    arguments.push_back("--json");
    const std::string json = RunConmuta(arguments).out;
    EXPECT_EQ(json, test::Approved("explica-" + row.file + ".json", json));
  }
}

TEST(Explica, TakesALineACaptureAndTheInput) {
  const std::string one = RunConmuta({"explica", "panasonic-kx", kLine}).out;
  EXPECT_EQ(RunConmuta({"explica", "panasonic-kx"}, kLine + "\n").out, one);
  EXPECT_EQ(RunConmuta({"explica", "panasonic-kx", "-"}, kLine + "\n").out, one);
  const std::string capture = CaptureOf("panasonic-kx");
  const std::string whole = RunConmuta({"explica", "panasonic-kx", capture}).out;
  const std::string line = RunConmuta({"explica", "panasonic-kx", capture + ":14"}).out;
  EXPECT_TRUE(line.starts_with("  14  01/02/02 10:07AM ")) << line;
  EXPECT_NE(whole.find("\n" + line), std::string::npos);
}

TEST(Explica, SaysWhichLineIsNotThere) {
  const std::string capture = CaptureOf("panasonic-kx");
  for (const std::string number : {"1", "5000"}) {  // the first is of the head
    const ProgramRun run = RunConmuta({"explica", "panasonic-kx", capture + ":" + number});
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.err, capture + ": no tiene una línea " + number + " que traducir\n");
  }
  for (const std::string number : {"0", "x", "1x", ""}) {
    const ProgramRun run = RunConmuta({"explica", "panasonic-kx", capture + ":" + number});
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.err, "«" + number + "» no es un número de línea\n");
  }
}

// A call of a block is told with the lines before it.
TEST(Explica, ALineOfACaptureIsReadAfterThoseBeforeIt) {
  const ProgramRun run =
      RunConmuta({"explica", "--json", "nortel-norstar", CaptureOf("nortel-norstar") + ":14"});
  const auto json = nlohmann::json::parse(run.out);
  EXPECT_EQ(json["linea"], 14);
  EXPECT_NE(json["motivo"], "fuera de bloque") << run.out;
}

TEST(Explica, NothingThatSteersATerminalIsWritten) {
  std::string line = kLine;
  line.replace(66, 4,
               "\xC2\x9B"
               "31m");
  line += "\x7F\xE2\x80\xAE";
  for (const bool terminal : {false, true}) {
    const ProgramRun run = RunConmuta({"explica", "panasonic-kx", line}, {}, {.out = terminal});
    for (const std::string bytes : {"\xC2\x9B", "\x7F", "\xE2\x80\xAE"}) {
      EXPECT_EQ(run.out.find(bytes), std::string::npos) << run.out;
    }
    EXPECT_NE(run.out.find("·31m"), std::string::npos) << run.out;
  }
  EXPECT_EQ(RunConmuta({"explica", "--json", "panasonic-kx", line}).out.find('\x7F'),
            std::string::npos);
}

}  // namespace
}  // namespace conmuta::host
