#include "layouts/source_text.h"

#include <algorithm>
#include <utility>

namespace conmuta::layouts {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";  // at the head of a file; it has no column

bool GoesOn(char c) {
  return (c & 0xC0) == 0x80;  // of a character of several bytes
}

}  // namespace

Place PlaceBehind(std::string_view text) {
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  const auto line = 1 + std::count(text.begin(), text.end(), '\n');
  text.remove_prefix(text.rfind('\n') + 1);  // wraps to 0
  const auto column =
      1 + std::count_if(text.begin(), text.end(), [](char c) { return !GoesOn(c); });
  return {static_cast<int>(line), static_cast<int>(column)};
}

SourceText::SourceText(std::string_view text) : text_(text) {
  begins_.push_back(text.starts_with(kMark) ? kMark.size() : 0);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n') begins_.push_back(i + 1);
  }
  if (begins_.size() > 1 && begins_.back() == text.size()) begins_.pop_back();
  line_end_ = text.find("\r\n") != text.npos ? "\r\n" : "\n";
}

std::size_t SourceText::Begin(int line) const {
  const auto index = static_cast<std::size_t>(line - 1);
  return index < begins_.size() ? begins_[index] : text_.size();
}

std::size_t SourceText::Offset(Place place) const {
  std::size_t offset = Begin(place.line);
  for (int column = 1; column < place.column && offset < text_.size(); ++column) {
    do {
      ++offset;
    } while (offset < text_.size() && GoesOn(text_[offset]));
  }
  return offset;
}

std::string_view SourceText::At(Extent extent) const {
  const std::size_t begin = Offset(extent.begin);
  return text_.substr(begin, Offset(extent.end) - begin);
}

char SourceText::First(Place place) const {
  const std::size_t offset = Offset(place);
  return offset < text_.size() ? text_[offset] : '\0';
}

void SourceText::Replace(Extent extent, std::string by) {
  changes_.push_back({Offset(extent.begin), Offset(extent.end), std::move(by)});
}

void SourceText::RemoveLines(int first, int last) {
  std::size_t begin = Begin(first);
  const std::size_t end = Begin(last + 1);
  const bool open_end = end == text_.size() && !text_.ends_with('\n');
  if (open_end && first > 1) {
    begin -= text_.substr(0, begin).ends_with("\r\n") ? 2 : 1;
  }
  changes_.push_back({begin, end, {}});
}

void SourceText::InsertLine(int after, std::string_view line) {
  const std::size_t at = Begin(after + 1);
  std::string inserted;
  if (after > 0) {
    const std::string_view before = text_.substr(Begin(after));
    const std::size_t indent = std::min(before.find_first_not_of(" \t"), before.size());
    inserted = before.substr(0, indent);
  }
  inserted += line;
  if (at == text_.size() && !text_.empty() && !text_.ends_with('\n')) {
    inserted = line_end_ + inserted;
  } else {
    inserted += line_end_;
  }
  changes_.push_back({at, at, std::move(inserted)});
}

void SourceText::AppendLines(std::initializer_list<std::string_view> lines) {
  const bool open_end = !text_.empty() && !text_.ends_with('\n');
  std::string appended = open_end ? line_end_ : std::string();
  for (const std::string_view line : lines) appended.append(line_end_).append(line);
  if (!open_end) appended += line_end_;
  changes_.push_back({text_.size(), text_.size(), std::move(appended)});
}

std::string SourceText::Changed() const {
  std::vector<Change> changes = changes_;
  std::stable_sort(changes.begin(), changes.end(),
                   [](const Change& a, const Change& b) { return a.begin < b.begin; });
  std::string changed;
  std::size_t done = 0;
  for (const Change& change : changes) {
    changed.append(text_.substr(done, change.begin - done)).append(change.by);
    done = std::max(done, change.end);
  }
  return changed.append(text_.substr(done));
}

}  // namespace conmuta::layouts
