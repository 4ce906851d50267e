// What is asked of a store: `conmuta estado`, `reprocesa`, `exporta`.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "capture/capture.h"

namespace conmuta::capture {

struct StatusOptions {
  std::string store = "conmuta.db";
  std::optional<std::int64_t> silence_minutes;  // without lines, after which a source is silent
  Now now = SystemNow;
};

// All of these: kUsage when the store cannot be read or written.

// kFailed when a source is silent.
int Status(const StatusOptions& options, std::ostream& out, std::ostream& err);

struct ReprocessOptions {
  std::string store = "conmuta.db";
  std::vector<std::pair<std::string, std::string>> layouts;  // by name of the source
};

// Translates all lines of these sources again, each on the day on which it was received. What was
// made of them before stays when that fails. kUsage while a capture has them, too.
int Reprocess(const ReprocessOptions& options, const LoadLayouts& load, std::ostream& err);

enum class ExportFormat : std::uint8_t { kCsv, kJsonLines };

struct ExportOptions {
  std::string store = "conmuta.db";
  std::string source;          // all where it is empty
  std::int64_t first_day = 0;  // yyyymmdd, both included
  std::int64_t last_day = 99999999;
  ExportFormat format = ExportFormat::kCsv;
  bool to_terminal = false;  // nothing that would steer one is written to it
};

int Export(const ExportOptions& options, std::ostream& out, std::ostream& err);

}  // namespace conmuta::capture
