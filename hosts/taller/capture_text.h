// A capture as lines that can be asked for by number, whatever its size.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "conmuta/capture_head.h"
#include "taller/capture_bytes.h"

namespace conmuta::taller {

// Keeps where lines begin, one of many: less than a hundredth of the capture's size, and what lies
// between is counted when it is asked for. For one thread.
class CaptureText {
 public:
  // Bytes of one step: what a window has time for between two messages.
  static constexpr std::size_t kStep = std::size_t{4} << 20;
  // Of a line, bytes that can be had.
  static constexpr std::size_t kMostOfLine = 65536;

  explicit CaptureText(std::shared_ptr<const CaptureBytes> bytes);

  // Counts the lines of the next bytes. Whether there are more; once there are none, to be called
  // again when some were appended.
  bool Step(std::size_t most = kStep);

  // How far it has come.
  std::uint64_t bytes_seen() const { return seen_; }
  // Lines so far; what follows the last line end is one as well.
  std::uint64_t lines() const { return ends_ + (seen_ > last_begin_ ? 1 : 0); }

  // The bytes of a line, from 1, without its LF, as they came; empty for one that is not there.
  std::string Line(std::uint64_t number) const;

  // Where a line begins in the bytes; what was seen of them for one that is not there.
  std::uint64_t Offset(std::uint64_t number) const;

  // How many lines at the beginning are the head's.
  std::uint64_t head_lines() const { return head_lines_; }
  // The day on which the capture was taken, if its head says so.
  std::optional<CivilDate> date() const { return head_.date(); }

  const std::shared_ptr<const CaptureBytes>& bytes() const { return bytes_; }

 private:
  struct Mark {
    std::uint64_t line;
    std::uint64_t offset;
  };
  // The bytes behind a mark.
  struct Block {
    std::uint64_t offset = 0;
    std::string bytes;
  };

  void EndLine(std::uint64_t next_begin);
  // Makes the present block one with the line; where in it that begins.
  std::optional<std::size_t> Find(std::uint64_t number) const;
  void ReadBlock(const Mark& mark, std::uint64_t end) const;

  std::shared_ptr<const CaptureBytes> bytes_;
  std::vector<char> room_;
  std::vector<Mark> marks_{{1, 0}};
  std::uint64_t seen_ = 0;
  std::uint64_t ends_ = 0;        // of lines
  std::uint64_t last_begin_ = 0;  // of the line that has not ended
  bool in_head_ = true;
  host::CaptureHead head_;
  std::uint64_t head_lines_ = 0;
  mutable Block block_;  // the last one that was asked for: a window shows lines that follow
};

}  // namespace conmuta::taller
