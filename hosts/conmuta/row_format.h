// How rows of calls are written: for people or for programs.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "conmuta/layout_choice.h"
#include "conmuta/out_buffer.h"
#include "conmuta/translators.h"

namespace conmuta::host {

class RowFormat {
 public:
  virtual ~RowFormat() = default;

  // Before the first row of all.
  virtual void Begin(OutBuffer& out) = 0;
  // A line's call, or why it is none.
  virtual void Row(OutBuffer& out, std::uint64_t line, const Outcome& outcome) = 0;
};

// What a source's rows have in common.
struct RowSource {
  std::string file;  // as the person named it
  std::span<const NamedLayout> layouts;
  bool is_one_of_several = false;
  bool to_terminal = false;  // nothing that steers one may be written
};

using MakeRowFormat = std::unique_ptr<RowFormat> (*)(const RowSource& source);

std::unique_ptr<RowFormat> MakeTable(const RowSource& source);
std::unique_ptr<RowFormat> MakeCsv(const RowSource& source);        // RFC 4180
std::unique_ptr<RowFormat> MakeJsonLines(const RowSource& source);  // an object a line

}  // namespace conmuta::host
