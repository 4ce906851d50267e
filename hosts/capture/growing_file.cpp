#include "capture/growing_file.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "layouts/capture_head.h"

namespace conmuta::capture {
namespace {

constexpr std::size_t kPiece = 65536;
constexpr std::int64_t kHead = 1024;

// Of the first bytes of a file.
std::uint64_t HashHead(const SharedFile& file, std::int64_t size) {
  std::array<char, kHead> head;
  const std::size_t count = file.Read(0, head.data(), static_cast<std::size_t>(size));
  std::uint64_t hash = 14695981039346656037U;
  for (std::size_t i = 0; i < count; ++i) {
    hash = (hash ^ static_cast<unsigned char>(head[i])) * 1099511628211U;
  }
  return hash;
}

// "offset head-size head-hash"
bool ReadPlace(const std::string& place, std::int64_t& offset, std::int64_t& size,
               std::uint64_t& hash) {
  const char* at = place.data();
  const char* end = at + place.size();
  const auto read = [&](auto& number) {
    while (at < end && *at == ' ') ++at;
    const auto [next, error] = std::from_chars(at, end, number);
    at = next;
    return error == std::errc{};
  };
  return read(offset) && read(size) && read(hash) && size >= 0 && size <= kHead;
}

}  // namespace

GrowingFile::GrowingFile(std::filesystem::path path, const std::string& place, char line_end,
                         std::size_t line_limit)
    : path_(std::move(path)),
      line_end_(line_end),
      line_limit_(line_limit),
      cutter_(line_end, line_limit) {
  if (ReadPlace(place, offset_, head_size_, head_hash_)) {
    line_begin_ = offset_;
  } else {
    Begin();
  }
}

void GrowingFile::Begin() {
  offset_ = line_begin_ = head_size_ = 0;
  in_head_ = true;
  head_hash_ = 0;
  cutter_ = LineCutter(line_end_, line_limit_);
}

bool GrowingFile::IsAnother(const SharedFile& file) const {
  return file.Size() < offset_ || (head_size_ > 0 && HashHead(file, head_size_) != head_hash_);
}

bool GrowingFile::Poll(const Line& line) {
  if (!file_.IsOpen()) {
    if (!file_.Open(path_)) return false;
    if (IsAnother(file_)) Begin();
    in_head_ = IsStillInHead();
  }
  if (file_.Size() >= offset_ && ReadNext(line)) return true;
  SharedFile present;
  if (!present.Open(path_)) return false;
  if (offset_ == 0) {
    // Of one that nothing was read of yet, nobody can tell whether it was replaced.
    file_.Swap(present);
    return file_.Size() > 0 && ReadNext(line);
  }
  if (!IsAnother(present)) return false;
  // The last look at the one that was: something may have been written before it was renamed.
  if (file_.Size() >= offset_ && ReadNext(line)) return true;
  if (std::string rest = cutter_.TakeRest(); !rest.empty()) {
    line(std::move(rest), Wholeness::kTorn, Place(offset_));
  }
  file_.Swap(present);
  Begin();
  return true;
}

bool GrowingFile::ReadNext(const Line& line) {
  std::array<char, kPiece> room;
  const std::size_t count = file_.Read(offset_, room.data(), room.size());
  if (count == 0) return false;
  const std::int64_t begin = offset_;
  offset_ += static_cast<std::int64_t>(count);
  LearnHead();
  cutter_.Take({room.data(), count}, [&](std::string text, Wholeness wholeness, std::size_t used) {
    DropMark(text);
    in_head_ = in_head_ && layouts::IsOfHead(text);
    if (in_head_) wholeness = Wholeness::kHead;
    line_begin_ = begin + static_cast<std::int64_t>(used);
    line(std::move(text), wholeness, Place(line_begin_));
  });
  return true;
}

void GrowingFile::DropMark(std::string& line) const {
  if (line_begin_ == 0) line.erase(0, layouts::SizeOfMark(line));
}

void GrowingFile::LearnHead() {
  if (head_size_ == kHead) return;
  head_size_ = std::min(offset_, kHead);
  head_hash_ = HashHead(file_, head_size_);
}

bool GrowingFile::IsStillInHead() const {
  if (offset_ > static_cast<std::int64_t>(kPiece)) return false;
  std::string room(static_cast<std::size_t>(offset_), '\0');
  std::string_view before(room.data(), file_.Read(0, room.data(), room.size()));
  before.remove_prefix(layouts::SizeOfMark(before));
  while (!before.empty()) {
    if (!layouts::IsOfHead(before)) return false;
    before.remove_prefix(std::min(before.find(line_end_), before.size() - 1) + 1);
  }
  return true;
}

void GrowingFile::TakeRest(const Line& line) {
  std::string rest = cutter_.TakeRest();
  DropMark(rest);
  if (!rest.empty()) {
    line(std::move(rest), Wholeness::kWhole, Place(offset_));
  }
}

std::string GrowingFile::Place(std::int64_t offset) {
  return std::to_string(offset) + " " + std::to_string(head_size_) + " " +
         std::to_string(head_hash_);
}

}  // namespace conmuta::capture
