// A writer between lines and a store, with layers below that can be made to fail.
#pragma once

#include <sstream>

#include "capture/backlog.h"
#include "capture/faulty_files.h"
#include "capture/line_bench.h"
#include "capture/writer.h"
#include "support/temporary_folder.h"

namespace conmuta::capture {

using namespace std::chrono_literals;

struct WriterBench {
  explicit WriterBench(const char* spill_files = nullptr) {
    limits.lines = 7;
    limits.delay = 1ms;
    limits.first_pause = limits.longest_pause = 20ms;
    limits.spill_after = 0ms;
    memory.memory = 2000;
    memory.refuse = 6000;
    open_spill = [this, spill_files](Thoroughness thoroughness) {
      return OpenSqliteOrSetAside(folder.path() / "derrame.db", thoroughness, messages,
                                  spill_files != nullptr ? spill_files : quick.name());
    };
  }

  // A capture as it is from a start to an end.
  struct Capture {
    explicit Capture(WriterBench& bench, const char* files)
        : recorder({bench.pbx.Of("centro")},
                   bench.open_store ? bench.open_store : bench.OpenFile(files)),
          backlog({"centro"}, bench.open_spill, bench.memory, bench.messages,
                  [] { return test::kReceived; }),
          writer(backlog, recorder, bench.limits, bench.messages, {[](const auto&) {}, [] {}}) {}
    void Put(const std::string& line, bool can_wait = false) {
      backlog.Put(0, line, Wholeness::kWhole, {}, can_wait);
    }

    Recorder recorder;
    Backlog backlog;
    Writer writer;
  };

  OpenDatabase OpenFile(const char* files) {
    return [this, files](Thoroughness thoroughness) {
      return OpenSqliteOrSetAside(path, thoroughness, messages,
                                  files != nullptr ? files : quick.name());
    };
  }

  void ExpectAll(std::size_t count) {
    test::ExpectAllKept(
        path, "centro", {&pbx.config},
        {pbx.lines.begin(), pbx.lines.begin() + static_cast<std::ptrdiff_t>(count)});
  }
  std::int64_t Counted(Incident incident) {
    return test::ReadStore(path, "centro").summary.incidents[incident];
  }

  test::Switch pbx{"nortel-meridian"};
  test::FaultyFiles quick;  // does not wait for the disk
  test::TemporaryFolder folder;
  std::filesystem::path path = folder.path() / "lineas.db";
  std::ostringstream told;
  Messages messages{told};
  Writer::Limits limits;
  Backlog::Limits memory;
  OpenDatabase open_store;  // the file at `path` where it is not set
  OpenDatabase open_spill;
};

}  // namespace conmuta::capture
