// Lines that the store does not take wait, and all of them get there once.
#include "capture/backlog.h"

#include <gtest/gtest.h>

#include "capture/writer_bench.h"

namespace conmuta::capture {
namespace {

using test::FaultyFiles;

TEST(WriterOfLines, WritesAllBeforeItStops) {
  WriterBench bench;
  WriterBench::Capture capture(bench, nullptr);
  capture.writer.Start();
  for (const std::string& line : bench.pbx.lines) capture.Put(line);
  EXPECT_TRUE(capture.writer.Stop());
  bench.ExpectAll(bench.pbx.lines.size());
  EXPECT_EQ(bench.told.str(), "");
}

TEST(WriterOfLines, StoreThatFailsForAWhileGetsAllOfThemOnce) {
  WriterBench bench;
  FaultyFiles files;
  {
    WriterBench::Capture capture(bench, files.name());
    files.FailAfter(3, SQLITE_FULL, true);
    capture.writer.Start();
    for (const std::string& line : bench.pbx.lines) capture.Put(line);
    std::this_thread::sleep_for(100ms);
    files.StopFailing();
    EXPECT_TRUE(capture.writer.Stop());
  }
  EXPECT_GT(files.failures(), 0);
  bench.ExpectAll(bench.pbx.lines.size());
  EXPECT_GT(bench.Counted(Incident::kSpilled), 0);
  EXPECT_NE(bench.told.str().find("el almacén no toma líneas"), std::string::npos);
  EXPECT_NE(bench.told.str().find("vuelve a tomar"), std::string::npos);
}

TEST(WriterOfLines, WhatTheStoreDidNotTakeIsThereAtTheNextStart) {
  WriterBench bench;
  const std::size_t half = bench.pbx.lines.size() / 2;
  {
    FaultyFiles files;
    WriterBench::Capture capture(bench, files.name());
    files.FailAfter(5, SQLITE_IOERR_WRITE, true);
    capture.writer.Start();
    for (std::size_t i = 0; i < half; ++i) capture.Put(bench.pbx.lines[i]);
    EXPECT_TRUE(capture.writer.Stop());
  }
  {
    WriterBench::Capture capture(bench, nullptr);
    capture.writer.Start();
    for (std::size_t i = half; i < bench.pbx.lines.size(); ++i) capture.Put(bench.pbx.lines[i]);
    EXPECT_TRUE(capture.writer.Stop());
  }
  bench.ExpectAll(bench.pbx.lines.size());
}

TEST(WriterOfLines, SaysSoWhenNothingTakesTheLines) {
  FaultyFiles spill_files;
  WriterBench bench(spill_files.name());
  FaultyFiles files;
  WriterBench::Capture capture(bench, files.name());
  files.FailAfter(0, SQLITE_FULL, true);
  spill_files.FailAfter(0, SQLITE_FULL, true);
  capture.writer.Start();
  for (const std::string& line : bench.pbx.lines) capture.Put(line);
  EXPECT_FALSE(capture.writer.Stop());
  EXPECT_NE(bench.told.str().find("se pierden"), std::string::npos);
}

TEST(BacklogOfLines, WhoCanWaitIsAskedToAndNothingIsSpilled) {
  WriterBench bench;
  WriterBench::Capture capture(bench, nullptr);
  std::size_t count = 0;
  while (!capture.backlog.MustWait()) capture.Put(bench.pbx.lines[count++], true);
  EXPECT_GT(count, 3u);
  capture.Put(bench.pbx.lines[count++], true);
  EXPECT_EQ(capture.backlog.waiting(), count);
  capture.writer.Start();
  EXPECT_TRUE(capture.writer.Stop());
  EXPECT_FALSE(capture.backlog.MustWait());
  bench.ExpectAll(count);
  EXPECT_EQ(bench.Counted(Incident::kSpilled), 0);
}

TEST(BacklogOfLines, WhoCannotWaitIsSpilledAndKeptInOrder) {
  WriterBench bench;
  WriterBench::Capture capture(bench, nullptr);
  for (const std::string& line : bench.pbx.lines) capture.Put(line, false);
  EXPECT_LT(capture.backlog.waiting(), bench.pbx.lines.size());
  capture.writer.Start();
  EXPECT_TRUE(capture.writer.Stop());
  bench.ExpectAll(bench.pbx.lines.size());
  EXPECT_GT(bench.Counted(Incident::kSpilled), 0);
}

TEST(BacklogOfLines, LinesBeyondAllMemoryAreCountedAsLost) {
  FaultyFiles spill_files;
  WriterBench bench(spill_files.name());
  WriterBench::Capture capture(bench, nullptr);
  spill_files.FailAfter(0, SQLITE_FULL, true);
  for (int i = 0; i < 10; ++i) {
    for (const std::string& line : bench.pbx.lines) capture.Put(line, false);
  }
  const auto kept = static_cast<std::int64_t>(capture.backlog.waiting());
  spill_files.StopFailing();
  capture.writer.Start();
  EXPECT_TRUE(capture.writer.Stop());
  const auto sent = static_cast<std::int64_t>(10 * bench.pbx.lines.size());
  EXPECT_EQ(bench.Counted(Incident::kLost), sent - kept);
  EXPECT_EQ(test::ReadStore(bench.path, "centro").summary.lines, kept);
}

// A file is not read again from where the store is when what came later waits in the spill.
TEST(Backlog, ASourceGoesOnBehindWhatWasSpilled) {
  WriterBench bench;
  const auto make = [&bench] {
    return std::make_unique<Backlog>(std::vector<std::string>{"centro"}, bench.open_spill,
                                     bench.memory, bench.messages, [] { return test::kReceived; });
  };
  auto backlog = make();
  EXPECT_EQ(backlog->ContinueFrom(0, 5, "stored"), "stored");
  backlog->Put(0, "seis", Wholeness::kWhole, "behind six", true);
  backlog->Put(0, "siete", Wholeness::kWhole, "behind seven", true);
  EXPECT_EQ(backlog->Next(1)->lines.size(), 1U);  // the writer has it in hand
  EXPECT_TRUE(backlog->SpillAll());

  backlog = make();
  EXPECT_EQ(backlog->ContinueFrom(0, 5, "stored"), "behind seven");
  EXPECT_EQ(backlog->Next(10)->lines.size(), 2U);
  backlog = make();
  EXPECT_EQ(backlog->ContinueFrom(0, 9, "stored"), "stored");  // the store has come further
}

}  // namespace
}  // namespace conmuta::capture
