// Lines of a switch, what a plain translation makes of them, and what a store has.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "capture/line_translation.h"
#include "capture/source_layout.h"
#include "capture/sqlite_database.h"
#include "capture/store.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "support/source_files.h"

namespace conmuta::test {

// A configuration of the catalogue, and what its switch printed.
struct Switch {
  explicit Switch(const std::string& name) : config(SystemPlatform()), name(name) {
    const std::filesystem::path folder = std::filesystem::path(CONMUTA_SOURCES) / "switches" / name;
    const auto reading = layouts::ReadLayout(ReadWhole(folder / "layout.toml"));
    layouts::Apply(reading.layout.value(), config);
    std::string line;
    for (const char c : ReadWhole(folder / "capture.txt")) {
      if (c != '\n') {
        line += c;
        continue;
      }
      if (!line.starts_with("# ")) lines.push_back(line);
      line.clear();
    }
  }

  // As one of the layouts of a source, and as the only one.
  capture::LoadedLayout Loaded() {
    return {name, std::shared_ptr<clsCfgConmut>(std::shared_ptr<void>(), &config)};
  }
  capture::SourceLayout Of(const std::string& source) { return {source, name, {Loaded()}}; }

  clsCfgConmut config;
  std::string name;
  std::vector<std::string> lines;
};

// 4 May 2026, noon, UTC: the fourth everywhere.
inline constexpr std::int64_t kReceived = 1777896000000;

// By number: a row of what became of a line.
using Results = std::map<std::int64_t, layouts::Outcome>;

inline Results PlainTranslation(const std::vector<clsCfgConmut*>& configs,
                                const std::vector<std::string>& lines) {
  capture::LineTranslation translation(configs);
  Results results;
  for (const std::string& line : lines) {
    capture::Received received;
    received.number = static_cast<std::int64_t>(results.size()) + 1;
    received.time_ms = kReceived;
    received.bytes = line;
    results[received.number] = translation.Translate(received).outcome;
  }
  return results;
}

// All of a source, in the order of the numbers.
struct Stored {
  std::vector<std::string> lines;
  std::vector<capture::Wholeness> wholeness;
  Results calls;
  capture::SourceSummary summary;
};

inline Stored ReadStore(const std::filesystem::path& path, const std::string& source) {
  using namespace capture;
  Store store(OpenSqlite(path, Access::kReadWrite, Thoroughness::kChecked), SchemaUse::kWrite);
  Stored stored;
  const SourceRow row = store.Source(source);
  store.Lines(row.id, 1, row.last, [&](const Received& line) {
    EXPECT_EQ(line.number, static_cast<std::int64_t>(stored.lines.size()) + 1);
    stored.lines.push_back(line.bytes);
    stored.wholeness.push_back(line.wholeness);
  });
  store.Calls(source, 0, 99999999, [&](const StoredCall& call) {
    stored.calls[call.number] = {call.call, NoCall::kNone, LineError::kNone};
  });
  stored.summary = store.Summary(row);
  return stored;
}

inline Results CallsOf(const Results& all) {
  Results calls;
  for (const auto& [number, outcome] : all) {
    if (outcome.call) calls[number] = outcome;
  }
  return calls;
}

// Kept lines are the sent ones, and what was made of them is what a plain translation makes.
inline void ExpectAllKept(const std::filesystem::path& path, const std::string& source,
                          const std::vector<clsCfgConmut*>& configs,
                          const std::vector<std::string>& sent) {
  const Stored stored = ReadStore(path, source);
  EXPECT_EQ(stored.lines, sent);
  const Results plain = PlainTranslation(configs, sent);
  EXPECT_EQ(stored.calls, CallsOf(plain));
  std::map<NoCall, std::int64_t> rejected;
  std::map<LineError, std::int64_t> errors;
  for (const auto& [number, outcome] : plain) {
    if (outcome.error != LineError::kNone) {
      ++errors[outcome.error];
    } else if (!outcome.call) {
      ++rejected[outcome.reason];
    }
  }
  EXPECT_EQ(stored.summary.rejected, rejected);
  EXPECT_EQ(stored.summary.errors, errors);
}

inline std::vector<capture::Arrival> Arrivals(const std::vector<std::string>& lines,
                                              std::size_t source = 0) {
  std::vector<capture::Arrival> arrivals;
  for (const std::string& line : lines) {
    capture::Arrival arrival{source, {}};
    arrival.line.number = static_cast<std::int64_t>(arrivals.size()) + 1;
    arrival.line.time_ms = kReceived;
    arrival.line.bytes = line;
    arrivals.push_back(std::move(arrival));
  }
  return arrivals;
}

}  // namespace conmuta::test

namespace conmuta::layouts {
inline void PrintTo(const Outcome& outcome, std::ostream* out) {
  const Text row = RowText(0, outcome);
  *out << std::string(row.begin(), row.end());
}
}  // namespace conmuta::layouts
