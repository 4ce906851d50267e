// A PBX that is not there, for those who have none at hand.
#include "capture/simulate.h"

#include <gtest/gtest.h>

#include <fstream>

#include "capture/capture.h"
#include "capture/source_bench.h"

namespace conmuta::capture {
namespace {

struct Simulation : ::testing::Test {
  Simulation() { bench.Start("escucha:0"); }
  int Run(const std::string& capture, std::optional<unsigned> speed) {
    const auto path = bench.folder.path() / "captura.txt";
    std::ofstream(path, std::ios::binary) << capture;
    return Simulate({path.string(), "tcp:127.0.0.1:" + std::to_string(bench.port), speed}, told);
  }

  static constexpr const char* kHead =
      "# conmutador: uno\n# fecha: 2019-01-16\n# velocidad: 2400\n# trama: 8N1\n# fuente: yo\n";
  SourceBench bench;
  std::ostringstream told;
};

TEST_F(Simulation, SendsTheLinesAsAPbxEndsThemAndNotTheHead) {
  EXPECT_EQ(Run(std::string(kHead) + "uno\n\ndos\r\n", 0), kDone);
  bench.AwaitLines(3);
  EXPECT_EQ(bench.Lines(), (std::vector<std::string>{"uno\r", "\r", "dos\r"}));
}

TEST_F(Simulation, TakesAsLongAsTheLineOfTheHeadWould) {
  const auto begin = std::chrono::steady_clock::now();
  // At 2400 bits a second, a bit more than half a second.
  EXPECT_EQ(Run(kHead + std::string(138, 'x') + "\n", std::nullopt), kDone);
  const auto took = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(took, 450ms);
  EXPECT_LE(took, 3s);
  bench.AwaitLines(1);
}

TEST_F(Simulation, SaysWhatItCannotSend) {
  EXPECT_EQ(Run("uno\n", 0), kUsage);
  EXPECT_NE(told.str().find("falta"), std::string::npos);
  std::ostringstream err;
  EXPECT_EQ(Simulate({"x", "archivo:y", {}}, err), kUsage);
  EXPECT_NE(err.str().find("no se puede enviar a archivo:y"), std::string::npos);
}

TEST_F(Simulation, SaysThatNobodyListens) {
  EXPECT_EQ(Run(kHead, 0), kDone);
  bench.Stop();
  EXPECT_EQ(Run(kHead, 0), kFailed);
  EXPECT_NE(told.str().find("tcp:127.0.0.1"), std::string::npos);
}

}  // namespace
}  // namespace conmuta::capture
