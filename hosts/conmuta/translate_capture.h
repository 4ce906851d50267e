// A capture's lines, translated and written as rows.
#pragma once

#include <functional>
#include <istream>
#include <span>
#include <string>

#include "conmuta/layout_choice.h"
#include "conmuta/out_buffer.h"
#include "conmuta/row_format.h"
#include "conmuta/tally.h"
#include "conmuta/today_option.h"

namespace conmuta::host {

struct CaptureJob {
  std::string file;  // "-" for the standard input
  std::span<const NamedLayout> layouts;
  const TodayOption& today;
  bool every_line = false;  // also those that give no call
  bool flush = false;       // whoever reads sees a row as soon as its line is there
  // Told now and then how many more bytes and lines were read.
  std::function<void(std::uint64_t bytes, std::uint64_t lines)> advance;
};

// Memory does not grow with the capture. UserError where it cannot be read.
Tally TranslateCapture(const CaptureJob& job, std::istream& bytes, RowFormat& format,
                       OutBuffer& out);

}  // namespace conmuta::host
