// The lines of a capture, of any size, one after the other.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "conmuta/capture_head.h"
#include "layouts/host_line.h"

namespace conmuta::host {

// Lines as HostLines cuts them, counted from 1. Those of the head are counted, looked at and not
// handed out.
class LineSource {
 public:
  explicit LineSource(std::istream& bytes) : bytes_(bytes), chunk_(std::size_t{1} << 16) {}

  // Hands out the lines of the next bytes, as `line(number, std::string_view)`; waits for them
  // where they come slowly. False when there are no more; a last line without an end was handed out
  // then.
  template <class Line>
  bool Next(Line line) {
    return Next(line, [] {});
  }
  // The same; tells when bytes have come, before the first of their lines.
  template <class Line, class Arrived>
  bool Next(Line line, Arrived arrived) {
    const std::string_view bytes = Fill();
    arrived();
    const auto take = [&](std::string_view text) {
      ++number_;
      if (head_.Take(text)) return;
      line(number_, text);
    };
    if (!bytes.empty()) {
      lines_.Take(bytes, take);
      return true;
    }
    if (!lines_.rest().empty()) take(lines_.rest());
    return false;
  }

  std::uint64_t bytes_read() const { return bytes_read_; }
  // The day on which the capture was taken, if its head says so. Known with the first line that is
  // handed out.
  std::optional<CivilDate> date() const { return head_.date(); }

 private:
  // The next bytes, empty at the end.
  std::string_view Fill();

  std::istream& bytes_;
  std::vector<char> chunk_;
  layouts::HostLines lines_;
  std::uint64_t bytes_read_ = 0;
  std::uint64_t number_ = 0;
  CaptureHead head_;
};

}  // namespace conmuta::host
