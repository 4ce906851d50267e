// The line at work: `conmuta captura`.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "capture/address.h"
#include "capture/backlog.h"
#include "capture/source.h"
#include "capture/source_layout.h"
#include "capture/writer.h"

namespace conmuta::capture {

// Ends of a command, the same for all.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;  // what was asked for was done, and found wanting
inline constexpr int kUsage = 2;   // it cannot be done with these arguments, files, this store

struct CaptureOptions {
  std::string store = "conmuta.db";
  std::string spill;  // beside the store where it is empty
  std::vector<NamedSource> sources;
  bool once = false;  // files are read to their end, and then no more
  Backlog::Limits backlog;
  Writer::Limits writer;
  SourceLimits source;
  Now now = SystemNow;
};

// Keeps what the sources bring until the program is to end, or no source has anything more. kFailed
// when lines could not be kept, kUsage when the store is one that it must not touch.
int Capture(const CaptureOptions& options, const LoadLayouts& load, std::ostream& err);

}  // namespace conmuta::capture
