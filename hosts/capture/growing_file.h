// A file that a PBX's own program writes, line after line.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "capture/line_cutter.h"
#include "capture/system.h"

namespace conmuta::capture {

// Reads whole lines. Goes on where it was after a restart, too: a place is an offset and what the
// file begins with. A file that was renamed, cut short or written anew is read from its beginning,
// after all that was left of the one before.
class GrowingFile {
 public:
  // (bytes of a line, wholeness, the place behind it)
  using Line = std::function<void(std::string, Wholeness, std::string)>;

  GrowingFile(std::filesystem::path path, const std::string& place, char line_end,
              std::size_t line_limit);

  // Reads a piece of what is new. Gives whether there may be more at once.
  bool Poll(const Line& line);
  // Whether there is such a file, as far as was seen.
  bool IsThere() const { return file_.IsOpen(); }
  // At the end of a file that will not grow any more: the last line may lack its end.
  void TakeRest(const Line& line);

 private:
  bool ReadNext(const Line& line);
  bool IsAnother(const SharedFile& file) const;
  void Begin();
  std::string Place(std::int64_t offset);
  // What a text editor writes in front of the first line is none of it.
  void DropMark(std::string& line) const;
  void LearnHead();
  // Whether all before the place from which it goes on is head.
  bool IsStillInHead() const;

  std::filesystem::path path_;
  char line_end_;
  std::size_t line_limit_;
  SharedFile file_;
  std::int64_t offset_ = 0;      // of what is read next
  std::int64_t line_begin_ = 0;  // of the line that is not over
  bool in_head_ = true;          // only lines of a capture's head so far
  // What the file begins with, as far as it was read; two files that begin alike are told apart by
  // their length only.
  std::int64_t head_size_ = 0;
  std::uint64_t head_hash_ = 0;
  LineCutter cutter_;
};

}  // namespace conmuta::capture
