// Whatever fails under the store, lines that were kept stay, and none is there twice.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "capture/faulty_files.h"
#include "capture/line_bench.h"
#include "capture/recorder.h"
#include "support/temporary_folder.h"

namespace conmuta::capture {
namespace {

using test::Arrivals;
using test::ExpectAllKept;
using test::FaultyFiles;
using test::Switch;
using test::TemporaryFolder;

struct StoreBench {
  explicit StoreBench(const std::string& name) : pbx(name) {}

  Recorder MakeRecorder() { return MakeRecorder(quick.name()); }
  Recorder MakeRecorder(const char* vfs) {
    return Recorder({pbx.Of("centro")}, [this, vfs](Thoroughness thoroughness) {
      return OpenSqliteOrSetAside(path, thoroughness, messages, vfs);
    });
  }
  void ExpectAll(const std::vector<std::string>& sent) {
    ExpectAllKept(path, "centro", {&pbx.config}, sent);
  }

  Switch pbx;
  FaultyFiles quick;  // does not wait for the disk
  TemporaryFolder folder;
  std::filesystem::path path = folder.path() / "lineas.db";
  std::ostringstream told;
  Messages messages{told};
};

// Batches of a few lines, each tried again until the store takes it.
template <class Failed>
void RecordAll(Recorder& recorder, const std::vector<Arrival>& lines, Failed failed) {
  constexpr std::size_t kBatch = 7;
  for (std::size_t i = 0; i < lines.size();) {
    const std::size_t count = std::min(kBatch, lines.size() - i);
    try {
      recorder.Open(Thoroughness::kQuick);
      recorder.Record({lines.data() + i, count}, {});
      i += count;
    } catch (const StoreError&) {
      recorder.Close();
      failed();
    }
  }
}

class StoreUnderFailure : public ::testing::TestWithParam<std::pair<int, bool>> {};

TEST_P(StoreUnderFailure, EveryOperationMayFailAndNothingIsLostOrDoubled) {
  const auto [code, lasting] = GetParam();
  std::int64_t at = 0;
  // Under sanitizers and Wine each round is slow; primes meet every kind of operation.
  for (;; at += at < 60 ? 1 : 7) {
    StoreBench bench("nortel-meridian");
    const auto lines = Arrivals(bench.pbx.lines);
    FaultyFiles files;
    {
      Recorder recorder = bench.MakeRecorder(files.name());
      files.FailAfter(at, code, lasting);
      int failures = 0;
      RecordAll(recorder, lines, [&] {
        if (++failures > 2) files.StopFailing();
      });
    }
    const bool failed = files.failures() > 0;
    files.StopFailing();
    bench.ExpectAll(bench.pbx.lines);
    if (HasFailure()) FAIL() << "operation " << at;
    if (!failed) break;
  }
  EXPECT_GT(at, 30);
}

INSTANTIATE_TEST_SUITE_P(Codes, StoreUnderFailure,
                         ::testing::Values(std::pair(SQLITE_FULL, false),
                                           std::pair(SQLITE_FULL, true),
                                           std::pair(SQLITE_IOERR_WRITE, false),
                                           std::pair(SQLITE_IOERR_WRITE, true),
                                           std::pair(SQLITE_READONLY, true)));

TEST(StoreAtAPowerCut, HasEachBatchWholeOrNotAtAll) {
  StoreBench bench("samsung-dcs");
  const auto lines = Arrivals(bench.pbx.lines);
  FaultyFiles files;
  Recorder recorder = bench.MakeRecorder(files.name());
  recorder.Open(Thoroughness::kQuick);
  const auto after = bench.folder.path() / "despues.db";
  constexpr std::size_t kBatch = 5;
  for (std::size_t i = 0; i < lines.size(); i += kBatch) {
    const std::size_t count = std::min(kBatch, lines.size() - i);
    recorder.Record({lines.data() + i, count}, {});
    files.PowerCut(bench.path, after);
    const std::vector<std::string> so_far(
        bench.pbx.lines.begin(), bench.pbx.lines.begin() + static_cast<std::ptrdiff_t>(i + count));
    ExpectAllKept(after, "centro", {&bench.pbx.config}, so_far);
    if (HasFailure()) FAIL() << "after line " << i + count;
  }
}

TEST(StoreAtRestart, CallsThatWaitAreWaitedForAgain) {
  for (const char* name : {"nortel-meridian", "nortel-norstar", "samsung-dcs", "toshiba-ctx"}) {
    StoreBench bench(name);
    for (const Arrival& line : Arrivals(bench.pbx.lines)) {
      Recorder recorder = bench.MakeRecorder();
      recorder.Open(Thoroughness::kQuick);
      recorder.Record({&line, 1}, {});
    }
    bench.ExpectAll(bench.pbx.lines);
  }
}

// What one layout made of a line, or holds of it, is none of the other's, at whatever line a new
// translator begins.
TEST(StoreOfSeveralLayouts, HasTheCallsOfAllOfThemAtAnyRestart) {
  for (const auto& [a, b] :
       {std::pair("panasonic-dbs-esi", "panasonic-dbs-esi-t"),
        std::pair("nortel-norstar", "nortel-meridian"), std::pair("samsung-dcs", "toshiba-ctx")}) {
    StoreBench bench(a);
    Switch other(b);
    std::vector<std::string> sent;
    for (std::size_t i = 0; i < std::max(bench.pbx.lines.size(), other.lines.size()); ++i) {
      if (i < bench.pbx.lines.size()) sent.push_back(bench.pbx.lines[i]);
      if (i < other.lines.size()) sent.push_back(other.lines[i]);
    }
    for (const Arrival& line : Arrivals(sent)) {
      Recorder recorder({{"centro", "a+b", {bench.pbx.Loaded(), other.Loaded()}}},
                        [&](Thoroughness thoroughness) {
                          return OpenSqliteOrSetAside(bench.path, thoroughness, bench.messages,
                                                      bench.quick.name());
                        });
      recorder.Open(Thoroughness::kQuick);
      recorder.Record({&line, 1}, {});
    }
    ExpectAllKept(bench.path, "centro", {&bench.pbx.config, &other.config}, sent);
    const auto by_layout = test::ReadStore(bench.path, "centro").summary.by_layout;
    EXPECT_GT(by_layout.at(a), 3) << a;
    EXPECT_GT(by_layout.at(b), 3) << b;
  }
}

TEST(StoreAtRestart, OnlyLinesFromTheLastQuietPointAreTranslatedAgain) {
  StoreBench bench("panasonic-kx");
  const auto lines = Arrivals(bench.pbx.lines);
  Recorder recorder = bench.MakeRecorder();
  recorder.Open(Thoroughness::kQuick);
  recorder.Record(lines, {});
  EXPECT_EQ(recorder.Row(0).replay_from, static_cast<std::int64_t>(lines.size()) + 1);
}

TEST(Store, LinesOfAHeadAreKeptAndNotTranslated) {
  StoreBench bench("panasonic-kx");
  auto lines = Arrivals(bench.pbx.lines);
  Recorder recorder = bench.MakeRecorder();
  recorder.Open(Thoroughness::kQuick);
  const auto calls = test::CallsOf(test::PlainTranslation({&bench.pbx.config}, bench.pbx.lines));
  const std::string call = bench.pbx.lines.at(static_cast<std::size_t>(calls.begin()->first) - 1);
  for (Arrival& arrival : lines) arrival.line.wholeness = Wholeness::kHead;
  lines.back().line.wholeness = Wholeness::kWhole;
  lines.back().line.bytes = call;
  recorder.Record(lines, {});
  const auto stored = test::ReadStore(bench.path, "centro");
  EXPECT_EQ(stored.lines.size(), lines.size());
  EXPECT_EQ(stored.summary.head, static_cast<std::int64_t>(lines.size()) - 1);
  const auto plain = test::PlainTranslation({&bench.pbx.config}, {call});
  ASSERT_EQ(stored.calls.size(), 1U);
  EXPECT_EQ(stored.calls.begin()->second, plain.at(1));
}

TEST(StoreAtRestart, LinesThatAreThereAlreadyChangeNothing) {
  StoreBench bench("nortel-meridian");
  const auto lines = Arrivals(bench.pbx.lines);
  for (int round = 0; round < 3; ++round) {
    Recorder recorder = bench.MakeRecorder();
    recorder.Open(Thoroughness::kQuick);
    recorder.Record({lines.data(), 20}, {});
    recorder.Record(lines, {});
  }
  bench.ExpectAll(bench.pbx.lines);
}

TEST(StoreOfTwoCaptures, LinesOfOneAreNotTakenForThoseOfTheOther) {
  test::TemporaryFolder folder;
  Store store(OpenSqlite(folder.path() / "a.db", Access::kReadWrite, Thoroughness::kQuick),
              SchemaUse::kWrite);
  const std::int64_t source = store.Source("centro").id;
  Received line;
  line.number = 1;
  line.time_ms = 1000;
  line.bytes = "uno";
  EXPECT_TRUE(store.Keep(source, line));
  EXPECT_FALSE(store.Keep(source, line));
  line.bytes = "otro";
  EXPECT_THROW(store.Keep(source, line), StoreError);
}

TEST(StoreOfTwoCaptures, OneKeepsTheOtherFromItsSources) {
  StoreBench bench("panasonic-kx");
  Recorder recorder = bench.MakeRecorder();
  recorder.Open(Thoroughness::kQuick);
  Recorder same = bench.MakeRecorder();
  try {
    same.Open(Thoroughness::kQuick);
    FAIL();
  } catch (const StoreError& error) {
    EXPECT_EQ(error.kind(), StoreError::Kind::kInUse);
  }
  Recorder other({bench.pbx.Of("sur")}, [&](Thoroughness thoroughness) {
    return OpenSqliteOrSetAside(bench.path, thoroughness, bench.messages);
  });
  other.Open(Thoroughness::kQuick);
  recorder.Close();
  same.Open(Thoroughness::kQuick);
}

TEST(StoreErrors, SayInSpanishWhatToDo) {
  StoreBench bench("panasonic-kx");
  const auto told = [&](const std::filesystem::path& path, Access access) {
    try {
      Store(OpenSqlite(path, access, Thoroughness::kQuick), SchemaUse::kRead);
    } catch (const StoreError& error) {
      return std::string(error.what());
    }
    return std::string();
  };
  EXPECT_EQ(told(bench.folder.path() / "no" / "a.db", Access::kReadWrite).find("no se puede abrir"),
            0U);
  std::ofstream(bench.path, std::ios::binary) << std::string(5000, 'x');
  EXPECT_EQ(told(bench.path, Access::kReadOnly).find("el archivo no es un almacén"), 0U);
  FaultyFiles files;
  files.FailAfter(0, SQLITE_FULL, true);
  try {
    OpenSqlite(bench.folder.path() / "b.db", Access::kReadWrite, Thoroughness::kQuick, files.name())
        ->Run("CREATE TABLE a(b)");
    FAIL();
  } catch (const StoreError& error) {
    EXPECT_EQ(std::string(error.what()).find("el disco está lleno"), 0U) << error.what();
  }
}

TEST(Shown, EscapesWhatSteersATerminal) {
  EXPECT_EQ(Shown("a\x1B\x7F"
                  "ñ"),
            "a\\x1B\\x7Fñ");
  EXPECT_EQ(Shown("\xC2\x9F").find('\x9F'), std::string::npos);
}

TEST(StoreThatIsDamaged, IsSetAsideUnderANameThatIsTold) {
  StoreBench bench("panasonic-kx");
  const std::string damaged =
      "esto no es un almacén, y nadie debe borrarlo" + std::string(5000, 'x');
  std::ofstream(bench.path, std::ios::binary) << damaged;
  {
    Recorder recorder = bench.MakeRecorder();
    recorder.Open(Thoroughness::kChecked);
    recorder.Record(Arrivals(bench.pbx.lines), {});
  }
  bench.ExpectAll(bench.pbx.lines);
  std::filesystem::path aside;
  for (const auto& path : test::Entries(bench.folder.path())) {
    if (path.filename().string().find("apartado") != std::string::npos) aside = path;
  }
  EXPECT_EQ(test::ReadWhole(aside), damaged);
  EXPECT_NE(bench.told.str().find(aside.filename().string()), std::string::npos);
}

TEST(StoreThatIsDamaged, IsFoundByLookingThroughIt) {
  StoreBench bench("panasonic-kx");
  {
    Recorder recorder = bench.MakeRecorder();
    recorder.Open(Thoroughness::kQuick);
    std::vector<std::string> many;
    for (int i = 0; i < 20; ++i) {
      many.insert(many.end(), bench.pbx.lines.begin(), bench.pbx.lines.end());
    }
    recorder.Record(Arrivals(many), {});
  }
  {
    std::fstream file(bench.path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(4096 * 12);
    file << std::string(4096 * 4, '\xAA');
  }
  Recorder recorder = bench.MakeRecorder();
  recorder.Open(Thoroughness::kChecked);
  EXPECT_NE(bench.told.str().find("apartó"), std::string::npos);
  EXPECT_EQ(recorder.Row(0).last, 0);
}

TEST(StoreOfAnotherVersion, OfALaterOneIsLeftAlone) {
  StoreBench bench("panasonic-kx");
  {
    Recorder recorder = bench.MakeRecorder();
    recorder.Open(Thoroughness::kQuick);
  }
  OpenSqlite(bench.path, Access::kReadWrite, Thoroughness::kQuick)
      ->Run("UPDATE versiones SET version = 3, lector_minimo = 2 WHERE parte = 'recibido'");
  Recorder recorder = bench.MakeRecorder();
  EXPECT_THROW(recorder.Open(Thoroughness::kQuick), StoreError);
}

TEST(StoreOfAnotherVersion, WhatWasConcludedIsMadeAgainFromWhatWasReceived) {
  StoreBench bench("nortel-meridian");
  {
    Recorder recorder = bench.MakeRecorder();
    recorder.Open(Thoroughness::kQuick);
    recorder.Record(Arrivals(bench.pbx.lines), {});
  }
  OpenSqlite(bench.path, Access::kReadWrite, Thoroughness::kQuick)
      ->Run(
          "DELETE FROM llamadas; "
          "UPDATE versiones SET version = -1, lector_minimo = -1 WHERE parte = 'concluido'");
  Recorder recorder = bench.MakeRecorder();
  recorder.Open(Thoroughness::kQuick);
  recorder.CatchUp();
  bench.ExpectAll(bench.pbx.lines);
}

TEST(StoreTranslatedAnew, HasTheCallsOfTheOtherLayout) {
  StoreBench bench("panasonic-kx");
  {
    Recorder recorder = bench.MakeRecorder();
    recorder.Open(Thoroughness::kQuick);
    recorder.Record(Arrivals(bench.pbx.lines), {});
  }
  Switch other("panasonic-b");
  Recorder recorder({other.Of("centro")}, [&](Thoroughness thoroughness) {
    return OpenSqliteOrSetAside(bench.path, thoroughness, bench.messages);
  });
  recorder.Open(Thoroughness::kQuick);
  recorder.TranslateAnew();
  recorder.Close();
  ExpectAllKept(bench.path, "centro", {&other.config}, bench.pbx.lines);
}

}  // namespace
}  // namespace conmuta::capture
