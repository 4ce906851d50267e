#include "taller/capture_text.h"

#include <algorithm>

#include "layouts/capture_head.h"

namespace conmuta::taller {
namespace {

// A mark comes after so many lines, or so many bytes.
constexpr std::uint64_t kLinesApart = 4096;
constexpr std::uint64_t kBytesApart = 65536;
constexpr std::size_t kRoom = std::size_t{1} << 18;

}  // namespace

CaptureText::CaptureText(std::shared_ptr<const CaptureBytes> bytes)
    : bytes_(std::move(bytes)), room_(kRoom) {}

bool CaptureText::Step(std::size_t most) {
  const std::uint64_t size = bytes_->size();
  for (std::size_t left = most; left != 0 && seen_ < size;) {
    const std::size_t count = bytes_->Read(seen_, {room_.data(), std::min(left, room_.size())});
    if (count == 0) return false;  // the disk fails: what was seen stays
    const std::string_view piece(room_.data(), count);
    if (seen_ == 0) marks_[0].offset = last_begin_ = layouts::SizeOfMark(piece);
    for (std::size_t at = 0; (at = piece.find('\n', at)) != piece.npos; ++at) {
      EndLine(seen_ + at + 1);
    }
    seen_ += count;
    left -= count;
  }
  return seen_ < size;
}

void CaptureText::EndLine(std::uint64_t next_begin) {
  ++ends_;
  const std::uint64_t begin = last_begin_;
  last_begin_ = next_begin;
  if (in_head_) {
    const std::uint64_t length = std::min<std::uint64_t>(next_begin - 1 - begin, kMostOfLine);
    std::string line(static_cast<std::size_t>(length), '\0');
    line.resize(bytes_->Read(begin, line));
    if (line.ends_with('\r')) line.pop_back();
    in_head_ = head_.Take(line);
    if (in_head_) head_lines_ = ends_;
  }
  const Mark& last = marks_.back();
  if (ends_ + 1 - last.line >= kLinesApart || next_begin - last.offset >= kBytesApart) {
    marks_.push_back({ends_ + 1, next_begin});
  }
}

void CaptureText::ReadBlock(const Mark& mark, std::uint64_t end) const {
  // No line begins further behind its mark, and of none is more wanted.
  const std::uint64_t most = std::min(end - mark.offset, kBytesApart + kMostOfLine);
  if (block_.offset == mark.offset && block_.bytes.size() == most) return;
  block_.offset = mark.offset;
  block_.bytes.resize(static_cast<std::size_t>(most));
  block_.bytes.resize(bytes_->Read(mark.offset, block_.bytes));
}

std::optional<std::size_t> CaptureText::Find(std::uint64_t number) const {
  if (number == 0 || number > lines()) return std::nullopt;
  const auto behind =
      std::upper_bound(marks_.begin(), marks_.end(), number,
                       [](std::uint64_t line, const Mark& mark) { return line < mark.line; });
  const Mark& mark = *(behind - 1);
  ReadBlock(mark, behind != marks_.end() ? behind->offset : seen_);
  std::size_t begin = 0;
  for (std::uint64_t line = mark.line; line < number; ++line) {
    const std::size_t end = block_.bytes.find('\n', begin);
    if (end == std::string::npos) return std::nullopt;
    begin = end + 1;
  }
  return begin;
}

std::string CaptureText::Line(std::uint64_t number) const {
  const auto begin = Find(number);
  if (!begin) return {};
  const std::string_view rest = std::string_view(block_.bytes).substr(*begin);
  return std::string(rest.substr(0, std::min(rest.find('\n'), kMostOfLine)));
}

std::uint64_t CaptureText::Offset(std::uint64_t number) const {
  const auto begin = Find(number);
  return begin ? block_.offset + *begin : seen_;
}

}  // namespace conmuta::taller
