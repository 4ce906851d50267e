// conmuta adivina: an unknown switch is known by what it prints.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "conmuta/fit.h"
#include "support/program_run.h"
#include "support/source_files.h"

namespace conmuta::host {
namespace {

using test::CaptureOf;
using test::ProgramRun;
using test::RunConmuta;

TEST(Adivina, EverySwitchIsKnownByItsOwnCapture) {
  int known = 0;
  for (const auto& folder : test::Entries(CONMUTA_SOURCES "/switches")) {
    if (!std::filesystem::is_directory(folder)) continue;
    const ProgramRun run =
        RunConmuta({"adivina", "--json", "-n", "1", (folder / "capture.txt").string()});
    const auto best = nlohmann::json::parse(run.out);
    EXPECT_EQ(best["conmutador"], folder.filename().string());
    EXPECT_GT(best["puntos"], 0.1) << folder;
    ++known;
  }
  EXPECT_EQ(known, static_cast<int>(Catalogue().size()));
}

// The two patterns differ in columns that this line does not fill.
TEST(Adivina, LayoutsThatExplainTheLinesAlikeAreSaidToBe) {
  const ProgramRun alike = RunConmuta({"adivina", "-"}, "01/14/19 09:21AM 1201     EXT1215\n");
  EXPECT_NE(alike.out.find("Los primeros 2 explican estas líneas por igual."), std::string::npos)
      << alike.out;
  const ProgramRun one = RunConmuta({"adivina", CaptureOf("panasonic-kx")});
  EXPECT_EQ(one.out.find("por igual"), std::string::npos) << one.out;
}

TEST(Adivina, WhatNobodyPrintedIsNobodys) {
  const ProgramRun run = RunConmuta({"adivina", "-"}, "El perro de San Roque\nno tiene rabo\n");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.out, "Ningún conmutador del catálogo explica estas líneas.\n");
}

TEST(Adivina, CallsThatCannotBeAreDoubtful) {
  const std::string good =
      "01/14/19 09:15AM 1210  01 <I>5550177                0'12 00:00'20 431211\n";
  std::string no_month = good;
  no_month.replace(0, 2, "14");
  std::string cut = good;
  cut.replace(21, 2, "05");  // the extension goes on where nobody reads
  const NamedLayout layout = FindLayout("panasonic-kx");
  const auto doubtful = [&](const std::string& line) {
    Fit fit(layout);
    fit.Take(Text(line.begin(), line.end() - 1));
    EXPECT_EQ(fit.calls(), 1U) << line;
    return fit.implausible() != 0;
  };
  EXPECT_FALSE(doubtful(good));
  EXPECT_TRUE(doubtful(no_month));
  EXPECT_TRUE(doubtful(cut));
}

}  // namespace
}  // namespace conmuta::host
