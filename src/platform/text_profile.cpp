#include "platform/text_profile.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/unicode.h"

namespace conmuta {
namespace {

// What the system's functions pass over around names and values; 1A ends old text files.
constexpr std::string_view kWhiteSpace = " \t\v\f\r\x1A";
constexpr std::string_view kLineEnd = "\r\n";

std::string_view TrimFront(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
}

std::string_view TrimBoth(std::string_view text) {
  return TrimFront(text.substr(0, text.find_last_not_of(kWhiteSpace) + 1));
}

std::string_view CutAtNul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

std::string Folded(std::string_view name) {
  std::string folded(TrimBoth(CutAtNul(name)));
  for (char& c : folded) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return folded;
}

// The name in "[name]", whatever follows it.
std::optional<std::string> SectionOf(std::string_view line) {
  line = TrimFront(line);
  const std::size_t close = line.rfind(']');
  if (!line.starts_with('[') || close == std::string_view::npos) return std::nullopt;
  return Folded(line.substr(1, close - 1));
}

std::string_view Unquoted(std::string_view value) {
  const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                      value.front() == value.back();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string ValueOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {};
  const std::string_view value = Unquoted(TrimBoth(line.substr(equals + 1)));
  return std::string(CutAtNul(value.substr(0, kMostProfileBytes)));
}

// A line ends with CR, LF or both.
std::vector<std::string> SplitLines(std::string_view bytes) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = std::min(bytes.find_first_of(kLineEnd, begin), bytes.size());
    lines.emplace_back(bytes.substr(begin, end - begin));
    const bool is_pair = bytes.substr(end, kLineEnd.size()) == kLineEnd;
    begin = end + (is_pair ? kLineEnd.size() : 1);
  }
  return lines;
}

// The content in the ANSI code page: a file may carry a mark that says it is Unicode.
std::string Decoded(std::string bytes, const CodePage& code_page) {
  const auto text = FromMarkedUnicode(bytes);
  return text ? code_page.ToBytes(*text) : std::move(bytes);
}

// The lines of a profile file, with an index of its sections and keys.
class Lines {
 public:
  explicit Lines(std::string_view bytes = {}) : lines_(SplitLines(bytes)) { Index(); }

  std::string Read(std::string_view section, std::string_view key) const {
    const Section* found = Find(section);
    if (found == nullptr) return {};
    const auto line = found->keys.find(Folded(key));
    return line != found->keys.end() ? ValueOf(lines_[line->second]) : std::string();
  }

  void Put(const ProfileValue& value) {
    // A value with line ends in it makes lines of its own, here as in the file.
    auto written = SplitLines(std::string(value.key).append("=").append(TrimFront(value.value)));
    auto place = lines_.end();
    if (const Section* found = Find(value.section)) {
      const auto present = found->keys.find(Folded(value.key));
      if (present != found->keys.end()) {
        place = lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(present->second));
      } else {
        place = lines_.begin() + static_cast<std::ptrdiff_t>(found->end);
      }
    } else {
      written.insert(written.begin(), std::string("[").append(value.section).append("]"));
    }
    lines_.insert(place, std::make_move_iterator(written.begin()),
                  std::make_move_iterator(written.end()));
    Index();
  }

  std::string Bytes() const {
    std::string bytes;
    for (const std::string& line : lines_) bytes.append(line).append(kLineEnd);
    return bytes;
  }

 private:
  struct Section {
    std::unordered_map<std::string, std::size_t> keys;  // the line of each, by folded name
    std::size_t end = 0;                                // behind its last line that is not blank
  };

  void Index() {
    sections_.clear();
    Section* section = nullptr;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const std::string_view line = lines_[i];
      if (const auto name = SectionOf(line)) {
        const auto [place, is_first] = sections_.try_emplace(*name);
        section = is_first ? &place->second : nullptr;  // only the first of that name counts
      } else if (section != nullptr) {
        section->keys.try_emplace(Folded(line.substr(0, line.find('='))), i);
      }
      if (section != nullptr && !TrimBoth(line).empty()) section->end = i + 1;
    }
  }

  const Section* Find(std::string_view name) const {
    const auto found = sections_.find(Folded(name));
    return found != sections_.end() ? &found->second : nullptr;
  }

  std::vector<std::string> lines_;
  std::unordered_map<std::string, Section> sections_;
};

class TextProfile final : public ProfileFile {
 public:
  TextProfile(FileSystem& files, const CodePage& code_page, TextView path)
      : files_(files), code_page_(code_page), path_(path) {}

  std::string Read(std::string_view section, std::string_view key) override {
    Load();
    return lines_->Read(section, key);
  }

  bool Write(const ProfileValue& value) override {
    Load();
    if (unreadable_) return false;
    lines_->Put(value);
    return files_.Write(path_, lines_->Bytes());
  }

 private:
  void Load() {
    if (lines_) return;
    auto content = files_.Read(path_, SIZE_MAX);
    unreadable_ = !content && files_.Attributes(path_).has_value();
    lines_.emplace(content ? Decoded(std::move(content->bytes), code_page_) : std::string());
  }

  FileSystem& files_;
  const CodePage& code_page_;
  const Text path_;
  bool unreadable_ = false;  // though it is there: writing would lose what it holds
  std::optional<Lines> lines_;
};

}  // namespace

std::unique_ptr<ProfileFile> TextProfiles::Open(TextView path) {
  return std::make_unique<TextProfile>(files_, code_page_, path);
}

bool TextProfiles::Replace(TextView path, std::span<const ProfileValue> values) {
  Lines anew;
  for (const ProfileValue& value : values) anew.Put(value);
  const std::string bytes = anew.Bytes();
  if (files_.Remove(path) || !files_.Attributes(path)) return files_.Write(path, bytes);
  const auto file = Open(path);
  return std::all_of(values.begin(), values.end(),
                     [&](const ProfileValue& value) { return file->Write(value); });
}

}  // namespace conmuta
