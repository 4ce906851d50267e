// A capture from its start to its end.
#include "capture/capture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "capture/line_bench.h"
#include "support/temporary_folder.h"

namespace conmuta::capture {
namespace {

using namespace std::chrono_literals;

struct CaptureOfAFile : ::testing::Test {
  CaptureOfAFile() {
    options.store = (folder.path() / "lineas.db").string();
    options.once = true;
    options.sources = {
        ReadNamedSource("centro=samsung-dcs@archivo:" + (folder.path() / "smdr.txt").string())
            .value()};
    options.now = [] { return test::kReceived; };
    std::ofstream file(folder.path() / "smdr.txt", std::ios::binary);
    for (const std::string& line : pbx.lines) file << line << '\n';
  }
  int Run() {
    return Capture(
        options, [this](const std::string&) { return std::vector{pbx.Loaded()}; }, told);
  }

  test::Switch pbx{"samsung-dcs"};
  test::TemporaryFolder folder;
  CaptureOptions options;
  std::ostringstream told;
};

TEST_F(CaptureOfAFile, ToItsEndWaitsForTheStoreHoweverSlowItIs) {
  options.writer.lines = 1;
  options.writer.end = options.writer.patience = 0ms;
  EXPECT_EQ(Run(), kDone);
  EXPECT_EQ(told.str(), "");
  test::ExpectAllKept(options.store, "centro", {&pbx.config}, pbx.lines);
}

TEST_F(CaptureOfAFile, LeavesAStoreOfALaterVersionAlone) {
  EXPECT_EQ(Run(), kDone);
  OpenSqlite(options.store, Access::kReadWrite, Thoroughness::kQuick)
      ->Run("UPDATE versiones SET version = 3, lector_minimo = 3 WHERE parte = 'recibido'");
  EXPECT_EQ(Run(), kUsage);
  EXPECT_NE(told.str().find("versión posterior"), std::string::npos);
}

}  // namespace
}  // namespace conmuta::capture
