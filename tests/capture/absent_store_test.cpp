// A store that is silent, or away from the beginning: sources are heard, and the end does not wait.
#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

#include "capture/hooked_database.h"
#include "capture/writer_bench.h"

namespace conmuta::capture {
namespace {

using Clock = std::chrono::steady_clock;

// What asks for a silent server waits here.
class Gate {
 public:
  void Pass() {
    std::unique_lock lock(mutex_);
    ++waiting_;
    changed_.notify_all();
    changed_.wait(lock, [this] { return open_; });
    --waiting_;
  }
  void Close() { Set(false); }
  void Open() { Set(true); }
  void AwaitSomebody() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_ > 0; });
  }

 private:
  void Set(bool open) {
    const std::lock_guard lock(mutex_);
    open_ = open;
    changed_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  bool open_ = true;
  int waiting_ = 0;
};

struct SilentStore : ::testing::Test {
  SilentStore() {
    bench.open_store = [this](Thoroughness thoroughness) {
      return std::make_unique<test::HookedDatabase>(bench.OpenFile(nullptr)(thoroughness),
                                                    [this](const std::string& sql) {
                                                      if (sql == "COMMIT") gate.Pass();
                                                    });
    };
  }
  // Lines of which some are with the store when it falls silent.
  void SendHalf(WriterBench::Capture& capture) {
    capture.Put(bench.pbx.lines[0]);
    capture.writer.Start();
    gate.AwaitSomebody();
    for (std::size_t i = 1; i < half; ++i) capture.Put(bench.pbx.lines[i], true);
  }

  Gate gate;
  WriterBench bench;
  const std::size_t half = bench.pbx.lines.size() / 2;
};

TEST_F(SilentStore, DoesNotHoldUpTheEnd) {
  bench.limits.end = bench.limits.patience = 50ms;
  gate.Close();
  {
    WriterBench::Capture capture(bench, nullptr);
    SendHalf(capture);
    const auto begin = Clock::now();
    EXPECT_TRUE(capture.writer.Stop());
    EXPECT_LT(Clock::now() - begin, 5s);
    EXPECT_TRUE(capture.writer.is_stuck());
    EXPECT_NE(bench.told.str().find("quedan en el derrame " + std::to_string(half)),
              std::string::npos);
    gate.Open();  // what was with it may get there after all
  }
  bench.limits.end = 1min;
  WriterBench::Capture capture(bench, nullptr);
  capture.writer.Start();
  for (std::size_t i = half; i < bench.pbx.lines.size(); ++i) capture.Put(bench.pbx.lines[i]);
  EXPECT_TRUE(capture.writer.Stop());
  EXPECT_FALSE(capture.writer.is_stuck());
  bench.ExpectAll(bench.pbx.lines.size());
}

TEST_F(SilentStore, WhatWaitsBehindItGoesToTheDisk) {
  gate.Close();
  WriterBench::Capture capture(bench, nullptr);
  SendHalf(capture);
  EXPECT_GT(capture.backlog.waiting(), 0U);
  EXPECT_TRUE(capture.writer.IsHeldUp());
  capture.writer.Watch();
  capture.writer.Watch();
  EXPECT_EQ(capture.backlog.waiting(), 0U);
  EXPECT_EQ(capture.backlog.spilled(), static_cast<std::int64_t>(half));
  EXPECT_NE(bench.told.str().find("no responde"), std::string::npos);
  gate.Open();
  EXPECT_TRUE(capture.writer.Stop());
  capture.writer.Watch();
  EXPECT_NE(bench.told.str().find("responde otra vez"), std::string::npos);
  EXPECT_FALSE(capture.writer.IsHeldUp());
  EXPECT_TRUE(capture.backlog.IsEmpty());
  bench.ExpectAll(half);
}

struct StoreThatIsAway : ::testing::Test {
  StoreThatIsAway() {
    bench.limits.spill_after = 5ms;
    bench.open_store = [this](Thoroughness thoroughness) {
      if (is_away) throw StoreError(StoreError::Kind::kFailed, "no está");
      return bench.OpenFile(nullptr)(thoroughness);
    };
  }
  // From where the last one ended.
  void Capture(std::size_t count, bool away) {
    is_away = away;
    WriterBench::Capture capture(bench, nullptr);
    capture.writer.Start();
    const std::size_t end = std::min(sent + count, bench.pbx.lines.size());
    for (; sent < end; ++sent) capture.Put(bench.pbx.lines[sent], sent % 2 == 0);
    EXPECT_TRUE(capture.writer.Stop());
  }

  std::atomic<bool> is_away = true;
  WriterBench bench;
  std::size_t sent = 0;
};

TEST_F(StoreThatIsAway, FromTheBeginningGetsAllLinesWhenItComes) {
  WriterBench::Capture capture(bench, nullptr);
  capture.writer.Start();
  const std::size_t half = bench.pbx.lines.size() / 2;
  for (std::size_t i = 0; i < half; ++i) capture.Put(bench.pbx.lines[i]);
  while (capture.backlog.waiting() > 0) std::this_thread::sleep_for(1ms);  // on the disk now
  for (std::size_t i = half; i < bench.pbx.lines.size(); ++i) capture.Put(bench.pbx.lines[i], true);
  is_away = false;
  EXPECT_TRUE(capture.writer.Stop());
  bench.ExpectAll(bench.pbx.lines.size());
}

TEST_F(StoreThatIsAway, AtSeveralStartsGoesOnBehindItsLastLine) {
  Capture(9, false);
  Capture(5, true);
  Capture(7, true);
  Capture(4, false);
  Capture(6, true);
  Capture(bench.pbx.lines.size(), false);
  bench.ExpectAll(bench.pbx.lines.size());
}

// Whoever is killed between the two has the numbers on the disk.
TEST_F(StoreThatIsAway, NumbersThatWereGivenOnceStay) {
  Capture(5, true);
  const auto make = [this] {
    return std::make_unique<Backlog>(std::vector<std::string>{"centro"}, bench.open_spill,
                                     bench.memory, bench.messages, [] { return test::kReceived; });
  };
  auto backlog = make();
  backlog->Put(0, "later", Wholeness::kWhole, {}, true);
  EXPECT_TRUE(backlog->ContinueFrom(0, 40, {}));
  EXPECT_EQ(backlog->Next(1)->lines.at(0).line.number, 41);
  backlog = make();
  backlog->Put(0, "later", Wholeness::kWhole, {}, true);
  EXPECT_TRUE(backlog->ContinueFrom(0, 41, {}));
  const auto& lines = backlog->Next(100)->lines;
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines.front().line.number, 41);
  EXPECT_EQ(lines.back().line.number, 45);
  EXPECT_EQ(lines.front().line.bytes, bench.pbx.lines[0]);
  backlog->Done();
  EXPECT_EQ(backlog->Next(100)->lines.at(0).line.number, 46);
}

}  // namespace
}  // namespace conmuta::capture
