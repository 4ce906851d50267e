// Lines from sockets and ports: their limits, their ends, and what a connection leaves behind.
#include <gtest/gtest.h>

#include <fstream>

#include "capture/line_quality.h"
#include "capture/source_bench.h"
#include "capture/system.h"

namespace conmuta::capture {
namespace {

using Clock = std::chrono::steady_clock;
using Texts = std::vector<std::string>;

TEST(TcpServer, TakesTheConnectionsOfSeveralAtOnce) {
  SourceBench bench;
  bench.Start("escucha:0");
  Peer a, b;
  a.Call(bench.port);
  b.Call(bench.port);
  a.Send("uno\nmed");
  bench.AwaitLines(1);
  b.Send("dos\n");
  bench.AwaitLines(2);
  a.Send("io\n");
  bench.AwaitLines(3);
  EXPECT_EQ(bench.Lines(), (Texts{"uno", "dos", "medio"}));
}

TEST(TcpServer, DropsWhoWasSilentLongestWhenThereAreTooMany) {
  SourceBench bench;
  bench.limits.connections = 2;
  bench.Start("escucha:0");
  Peer first, second, third;
  first.Call(bench.port);
  first.Send("uno\n");
  bench.AwaitLines(1);
  second.Call(bench.port);
  second.Send("dos\nmed");
  bench.AwaitLines(2);
  first.Send("tres\n");
  bench.AwaitLines(3);
  third.Call(bench.port);
  second.AwaitEnd();
  third.Send("cuatro\n");
  first.Send("cinco\n");
  bench.AwaitLines(6);
  Texts lines = bench.Lines();
  std::sort(lines.begin() + 4, lines.end());
  EXPECT_EQ(lines, (Texts{"uno", "dos", "tres", "med~", "cinco", "cuatro"}));
  bench.Stop();
  EXPECT_EQ(bench.Counted(Incident::kConnectionDropped), 1);
  EXPECT_NE(bench.told.str().find("más tiempo lleva callada"), std::string::npos);
}

TEST(TcpServer, KeepsWhatTheSystemHasOfAConnectionThatIsDropped) {
  SourceBench bench;
  bench.limits.connections = 1;
  bench.limits.bytes_a_second = 10;
  bench.Start("escucha:0");
  Peer first, second;
  first.Call(bench.port);
  first.Send("123456789\nuno\ndos\n");
  bench.AwaitLines(1);  // and then it may not read on
  second.Call(bench.port);
  first.AwaitEnd();
  bench.AwaitLines(3);
  EXPECT_EQ(bench.Lines(), (Texts{"123456789", "uno", "dos"}));
}

TEST(TcpServer, ReadsNoFasterThanItMay) {
  SourceBench bench;
  bench.limits.bytes_a_second = 1000;
  bench.Start("escucha:0");
  Peer peer;
  peer.Call(bench.port);
  const auto begin = Clock::now();
  for (int i = 0; i < 250; ++i) peer.Send("123456789\n");
  bench.AwaitLines(250);
  EXPECT_GE(Clock::now() - begin, 1900ms);
}

TEST(TcpServer, GivesALineWithoutAnEndInPieces) {
  SourceBench bench;
  bench.limits.line = 1000;
  bench.Start("escucha:0");
  Peer peer;
  peer.Call(bench.port);
  peer.Send(std::string(2500, 'x') + "\nuno\n");
  bench.AwaitLines(4);
  EXPECT_EQ(bench.Lines(), (Texts{std::string(1000, 'x') + "+", std::string(1000, 'x') + "+",
                                  std::string(500, 'x') + "+", "uno"}));
}

TEST(TcpClient, LineThatBreaksOffIsNotGluedToTheNextConnection) {
  SourceBench bench;
  bench.limits.first_pause = 1ms;
  Peer peer;
  bench.Start("tcp:127.0.0.1:" + std::to_string(peer.Listen()));
  peer.Accept();
  peer.Send("uno\nmed");
  bench.AwaitLines(1);
  peer.HangUp();
  peer.Accept();
  peer.Send("io\n");
  bench.AwaitLines(3);
  EXPECT_EQ(bench.Lines(), (Texts{"uno", "med~", "io"}));
  EXPECT_EQ(bench.Counted(Incident::kConnectionLost), 1);
}

// How long a client takes for some calls that are ended at once.
Clock::duration TimeOfCalls(int calls, const std::string& greeting) {
  SourceBench bench;
  bench.limits.first_pause = 1ms;
  Peer peer;
  bench.Start("tcp:127.0.0.1:" + std::to_string(peer.Listen()));
  const auto begin = Clock::now();
  for (int i = 0; i < calls; ++i) {
    peer.Accept();
    if (!greeting.empty()) peer.Send(greeting);
    peer.HangUp();
  }
  return Clock::now() - begin;
}

TEST(TcpClient, PausesLongerAndLongerWhereConnectionsBringNothing) {
  EXPECT_GE(TimeOfCalls(9, ""), 255ms);    // 1 + 2 + ... + 128
  EXPECT_LT(TimeOfCalls(16, "x\n"), 15s);  // and not 32 s
}

TEST(GrowingPauses, DoubleUpToALimitAndStartAfresh) {
  SourceLimits limits;
  limits.first_pause = 100ms;
  limits.longest_pause = 350ms;
  GrowingPause pause(limits);
  for (const auto expected : {100ms, 200ms, 350ms, 350ms}) EXPECT_EQ(pause.Next(), expected);
  pause.Reset();
  EXPECT_EQ(pause.Next(), 100ms);
}

// A read that was answered is heard of behind the wish to end.
template <class Send>
void EndWithinARead(SourceBench& bench, Send send) {
  bool is_first = true;
  bench.at_a_line = [&] {
    if (!std::exchange(is_first, false)) return;
    send("dos\nmed");
    bench.StopSoon();
  };
  send("uno\n");
  bench.AwaitLines(3);
  bench.Stop();
  EXPECT_EQ(bench.Lines(), (Texts{"uno", "dos", "med~"}));
}

TEST(TcpServer, KeepsWhatTheSystemHasWhenItIsToEnd) {
  SourceBench bench;
  bench.Start("escucha:0");
  Peer peer;
  peer.Call(bench.port);
  EndWithinARead(bench, [&](const std::string& bytes) { peer.Send(bytes); });
}

TEST(TcpClient, KeepsWhatTheSystemHasWhenItIsToEnd) {
  SourceBench bench;
  Peer peer;
  bench.Start("tcp:127.0.0.1:" + std::to_string(peer.Listen()));
  peer.Accept();
  EndWithinARead(bench, [&](const std::string& bytes) { peer.Send(bytes); });
}

#ifndef _WIN32  // which has no pseudo terminals; the capture's program is killed at its serial port
                // there
TEST(SerialPort, KeepsWhatTheSystemHasWhenItIsToEnd) {
  PseudoTerminal terminal;
  SourceBench bench;
  bench.Start("serie:" + terminal.name());
  EndWithinARead(bench, [&](const std::string& bytes) { terminal.Write(bytes); });
}
#endif

TEST(FileSource, ThatIsNotThereIsToldOnceAndReadWhenItAppears) {
  SourceBench bench;
  bench.limits.poll = 1ms;
  const auto path = bench.folder.path() / "smdr.txt";
  bench.Start("archivo:" + path.string());
  std::this_thread::sleep_for(30ms);
  std::ofstream(path, std::ios::binary) << "uno\n";
  bench.AwaitLines(1);
  bench.Stop();
  EXPECT_EQ(bench.Lines(), Texts{"uno"});
  EXPECT_EQ(bench.told.str(), "centro: el archivo " + path.string() +
                                  " no se puede abrir; se lee en cuanto aparezca\n"
                                  "centro: el archivo " +
                                  path.string() + " ya está\n");
}

TEST(LineQualityOfAPort, CountsAndTellsWhatThePortKnows) {
  SourceBench bench;
  LineQuality quality(bench.backlog, bench.messages, 0, "centro", "COM3");
  quality.Look(SerialErrors{});
  EXPECT_EQ(bench.told.str(), "");
  quality.Look(SerialErrors{2, 0, 0});
  quality.Look(SerialErrors{0, 3, 4});
  EXPECT_EQ(bench.told.str(),
            "centro: errores de trama en COM3; ¿otra velocidad, otra paridad?\n"
            "centro: errores de paridad en COM3; ¿otra velocidad, otra paridad? (van 2 veces)\n");
  EXPECT_EQ(bench.Counted(Incident::kFraming), 2);
  EXPECT_EQ(bench.Counted(Incident::kParity), 3);
  EXPECT_EQ(bench.Counted(Incident::kOverrun), 4);
}

TEST(LineQualityOfAPort, IsGuessedFromTheBytesOnlyWhereThePortKnowsNothing) {
  SourceBench bench;
  LineQuality quality(bench.backlog, bench.messages, 0, "centro", "COM3");
  const std::string rubbish(1024, '\xF0');
  quality.Take(rubbish);
  quality.Look(std::nullopt);
  EXPECT_EQ(bench.Counted(Incident::kUnprintable), 4);
  EXPECT_NE(bench.told.str().find("bytes que no son texto"), std::string::npos);
  quality.Take(rubbish);
  quality.Look(SerialErrors{1, 0, 0});
  EXPECT_EQ(bench.Counted(Incident::kUnprintable), 4);
}

}  // namespace
}  // namespace conmuta::capture
