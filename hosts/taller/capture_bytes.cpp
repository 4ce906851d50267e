#include "taller/capture_bytes.h"

#include <algorithm>
#include <cstring>

#include "conmuta/files.h"

namespace conmuta::taller {
namespace {

constexpr std::size_t kEnd = 256;  // bytes that are compared at either end

}  // namespace

void MemoryBytes::Append(std::string_view bytes) {
  const std::scoped_lock lock(mutex_);
  bytes_ += bytes;
}

std::uint64_t MemoryBytes::size() const {
  const std::scoped_lock lock(mutex_);
  return bytes_.size();
}

std::size_t MemoryBytes::Read(std::uint64_t offset, std::span<char> room) const {
  const std::scoped_lock lock(mutex_);
  if (offset >= bytes_.size()) return 0;
  const auto begin = static_cast<std::size_t>(offset);
  const std::size_t count = std::min(room.size(), bytes_.size() - begin);
  std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(begin), count, room.begin());
  return count;
}

FileBytes::FileBytes(const std::filesystem::path& path) : path_(path) {
  host::OpenToRead(path);  // says what is the matter with it
  std::error_code ignored;
  time_ = std::filesystem::last_write_time(path_, ignored);
  file_.Open(path_);
  size_ = static_cast<std::uint64_t>(file_.Size());
  ends_ = ReadEnds();
}

std::uint64_t FileBytes::size() const {
  const std::scoped_lock lock(mutex_);
  return size_;
}

std::size_t FileBytes::Read(std::uint64_t offset, std::span<char> room) const {
  const std::scoped_lock lock(mutex_);
  if (offset >= size_) return 0;
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(room.size(), size_ - offset));
  return file_.Read(static_cast<std::int64_t>(offset), room.data(), count);
}

FileBytes::Ends FileBytes::ReadEnds() const {
  const auto read = [&](std::uint64_t offset) {
    std::string bytes(kEnd, '\0');
    bytes.resize(Read(offset, bytes));
    return bytes;
  };
  return {read(0), read(size_ > kEnd ? size_ - kEnd : 0)};
}

FileBytes::Change FileBytes::Look() {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(path_, error);
  if (error) return Change::kGone;
  const std::uint64_t size = std::filesystem::file_size(path_, error);
  if (error) return Change::kGone;
  if (size == size_ && time == time_) return Change::kNone;
  if (size < size_) return Change::kReplaced;
  {
    // One that took its place has the name and not the handle.
    const std::scoped_lock lock(mutex_);
    if (!file_.Open(path_)) return Change::kGone;
  }
  // A capture only ever gets longer: whoever writes one of the same length wrote another.
  if (size == size_ || ReadEnds() != ends_) return Change::kReplaced;
  {
    const std::scoped_lock lock(mutex_);
    size_ = size;
    time_ = time;
  }
  ends_ = ReadEnds();
  return Change::kGrown;
}

}  // namespace conmuta::taller
