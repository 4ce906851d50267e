// A spill that fails costs no line that can be kept elsewhere, and the hearing of lines no time.
#include <gtest/gtest.h>

#include <fstream>

#include "capture/hooked_database.h"
#include "capture/writer_bench.h"

namespace conmuta::capture {
namespace {

struct FailingSpill : ::testing::Test {
  FailingSpill() {
    bench.limits.spill_after = 1h;
    bench.open_spill = [this](Thoroughness thoroughness) {
      ++opened;
      return std::make_unique<test::HookedDatabase>(
          OpenSqliteOrSetAside(path, thoroughness, bench.messages, bench.quick.name()),
          [this](const std::string& sql) {
            if (!failing.empty() && sql.find(failing) != std::string::npos) {
              ++failures;
              throw StoreError(kind, "como se pidió");
            }
          });
    };
  }
  std::unique_ptr<Backlog> MakeBacklog(std::int64_t last) {
    auto backlog =
        std::make_unique<Backlog>(std::vector<std::string>{"centro"}, bench.open_spill,
                                  bench.memory, bench.messages, [] { return test::kReceived; });
    EXPECT_TRUE(backlog->ContinueFrom(0, last, {}));
    return backlog;
  }
  static void Put(Backlog& backlog, int count, bool can_wait = false) {
    for (int i = 0; i < count; ++i) {
      backlog.Put(0, "línea", Wholeness::kWhole, {}, can_wait);
    }
  }
  static std::int64_t FirstNumber(Backlog& backlog) {
    return backlog.Next(1)->lines.at(0).line.number;
  }
  bool IsTold(const std::string& what) { return bench.told.str().find(what) != std::string::npos; }

  WriterBench bench;
  std::filesystem::path path = bench.folder.path() / "derrame.db";
  std::string failing;  // in the statement
  StoreError::Kind kind = StoreError::Kind::kFailed;
  int failures = 0;
  int opened = 0;
};

TEST_F(FailingSpill, IsNotAskedForEachLineAndWhatIsLostIsCountedAndTold) {
  bench.memory.first_pause = 1h;
  const auto backlog = MakeBacklog(0);
  failing = "INSERT";
  Put(*backlog, 1000);
  EXPECT_EQ(failures, 1);
  const auto waiting = static_cast<std::int64_t>(backlog->waiting());
  EXPECT_LT(waiting, 100);
  EXPECT_EQ(backlog->Next(1000)->incidents.at({0, Incident::kLost}), 1000 - waiting);
  EXPECT_TRUE(IsTold("no se puede usar el derrame: como se pidió"));
  EXPECT_TRUE(IsTold("se pierde"));
}

TEST_F(FailingSpill, IsTriedAgainLaterAndAtTheEnd) {
  bench.memory.first_pause = 20ms;
  const auto backlog = MakeBacklog(0);
  failing = "INSERT";
  Put(*backlog, 3);
  EXPECT_FALSE(backlog->SpillAll());
  failing.clear();
  EXPECT_FALSE(backlog->SpillAll());
  std::this_thread::sleep_for(25ms);
  EXPECT_TRUE(backlog->SpillAll());
  EXPECT_EQ(opened, 2);
  EXPECT_TRUE(IsTold("sirve otra vez"));
  failing = "INSERT";
  Put(*backlog, 3);
  EXPECT_FALSE(backlog->SpillAll());
  failing.clear();
  backlog->Hurry();
  EXPECT_TRUE(backlog->SpillAll());
  EXPECT_EQ(backlog->spilled(), 6);
}

// Lines that are in the store already need not come again because their room cannot be given back.
TEST_F(FailingSpill, ThatCannotBeEmptiedLetsLinesPass) {
  auto backlog = MakeBacklog(0);
  Put(*backlog, 3);
  EXPECT_TRUE(backlog->SpillAll());
  Put(*backlog, 1);
  failing = "DELETE";
  for (int number = 1; number <= 4; ++number) {
    EXPECT_EQ(FirstNumber(*backlog), number);
    backlog->Done();
  }
  EXPECT_EQ(failures, 3);
  failing.clear();
  Put(*backlog, 1);
  EXPECT_TRUE(backlog->SpillAll());
  EXPECT_EQ(FirstNumber(*backlog), 5);
  backlog->Done();
  backlog.reset();
  EXPECT_EQ(MakeBacklog(5)->spilled(), 0);
}

TEST_F(FailingSpill, OfAnotherCaptureWithTheSameSourceIsLeftAlone) {
  const auto backlog = MakeBacklog(0);
  Put(*backlog, 1);
  EXPECT_TRUE(backlog->SpillAll());
  Backlog other({"centro"}, bench.open_spill, bench.memory, bench.messages,
                [] { return test::kReceived; });
  EXPECT_FALSE(other.ContinueFrom(0, 0, {}));
  Put(other, 1);
  EXPECT_FALSE(other.SpillAll());
  EXPECT_EQ(other.waiting(), 1);
  EXPECT_TRUE(IsTold("otro conmuta derrama ahí la fuente centro: dé otro archivo con --derrame"));
  EXPECT_EQ(FirstNumber(*backlog), 1);
}

TEST_F(FailingSpill, ThatCannotBeReadIsNotOvertaken) {
  bench.memory.first_pause = 0ms;
  const auto backlog = MakeBacklog(0);
  Put(*backlog, 2);
  EXPECT_TRUE(backlog->SpillAll());
  Put(*backlog, 1);
  failing = "LIMIT";
  EXPECT_EQ(backlog->Next(1), nullptr);
  EXPECT_EQ(backlog->Next(1), nullptr);
  EXPECT_TRUE(backlog->Wait(0ms, 1));
  failing.clear();
  for (int number = 1; number <= 3; ++number) {
    EXPECT_EQ(FirstNumber(*backlog), number);
    backlog->Done();
  }
}

TEST_F(FailingSpill, ThatIsDamagedIsSetAsideToldAndMadeAnew) {
  bench.memory.first_pause = 0ms;
  auto backlog = MakeBacklog(0);
  for (int i = 0; i < 300; ++i) {
    Put(*backlog, 5);
    EXPECT_TRUE(backlog->SpillAll());
  }
  Put(*backlog, 1);
  // The log that is not in the file yet would mend it.
  backlog = nullptr;
  backlog = MakeBacklog(0);
  {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(4096 * 4);
    file << std::string(4096 * 4, '\xAA');
  }
  failing = "LIMIT";
  kind = StoreError::Kind::kDamaged;
  EXPECT_EQ(backlog->Next(1), nullptr);
  failing.clear();
  Put(*backlog, 1);
  backlog->Next(1);
  EXPECT_TRUE(IsTold("derrame.db está dañado"));
  EXPECT_TRUE(IsTold("se apartó como"));
  EXPECT_EQ(FirstNumber(*backlog), 1501);
  backlog->Done();
  Put(*backlog, 1);
  EXPECT_TRUE(backlog->SpillAll());
  EXPECT_EQ(backlog->spilled(), 1);
}

}  // namespace
}  // namespace conmuta::capture
