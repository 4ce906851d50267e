// The bytes of a capture, wherever they are: in a file of any size, or in memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "capture/system.h"

namespace conmuta::taller {

// May be read from several threads at once. What was there once stays, more may follow.
class CaptureBytes {
 public:
  virtual ~CaptureBytes() = default;

  virtual std::uint64_t size() const = 0;

  // Fills the room from there on; gives how many bytes that is, fewer at the end and where the disk
  // fails.
  virtual std::size_t Read(std::uint64_t offset, std::span<char> room) const = 0;

  // Whether a line without an end is one that is still being printed.
  virtual bool IsLive() const { return false; }
};

// What was pasted, or comes over the line.
class MemoryBytes final : public CaptureBytes {
 public:
  enum class Kind : std::uint8_t { kPasted, kLive };
  explicit MemoryBytes(Kind kind, std::string bytes = {}) : kind_(kind), bytes_(std::move(bytes)) {}

  void Append(std::string_view bytes);

  std::uint64_t size() const override;
  std::size_t Read(std::uint64_t offset, std::span<char> room) const override;
  bool IsLive() const override { return kind_ == Kind::kLive; }

 private:
  Kind kind_;
  mutable std::mutex mutex_;
  std::string bytes_;
};

class FileBytes final : public CaptureBytes {
 public:
  // host::UserError when it cannot be read.
  explicit FileBytes(const std::filesystem::path& path);

  std::uint64_t size() const override;
  std::size_t Read(std::uint64_t offset, std::span<char> room) const override;

  // What became of the file since the last look, by its size and its time, and by its first and
  // last bytes where those differ. What it has grown by can be read from then on. After kReplaced
  // and kGone it must be opened anew.
  enum class Change : std::uint8_t { kNone, kGrown, kReplaced, kGone };
  Change Look();

 private:
  // Bytes by which a file that grew is told from another one.
  struct Ends {
    std::string first;
    std::string last;
    bool operator==(const Ends&) const = default;
  };
  Ends ReadEnds() const;

  std::filesystem::path path_;
  mutable std::mutex mutex_;
  capture::SharedFile file_;  // who writes it may rename it
  std::uint64_t size_ = 0;
  std::filesystem::file_time_type time_;
  Ends ends_;
};

}  // namespace conmuta::taller
