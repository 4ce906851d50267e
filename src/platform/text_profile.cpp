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

class TextProfile final : public ProfileFile {
 public:
  TextProfile(FileSystem& files, const CodePage& code_page, TextView path)
      : files_(files), code_page_(code_page), path_(path) {}

  std::string Read(std::string_view section, std::string_view key) override {
    Load();
    const Section* found = Find(section);
    if (found == nullptr) return {};
    const auto line = found->keys.find(Folded(key));
    return line != found->keys.end() ? ValueOf(lines_[line->second]) : std::string();
  }

  bool Write(std::string_view section, std::string_view key, std::string_view value) override {
    Load();
    if (unreadable_) return false;
    // A value with line ends in it makes lines of its own, here as in the file.
    auto written = SplitLines(std::string(key).append("=").append(TrimFront(value)));
    auto place = lines_.end();
    if (const Section* found = Find(section)) {
      const auto present = found->keys.find(Folded(key));
      if (present != found->keys.end()) {
        place = lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(present->second));
      } else {
        place = lines_.begin() + static_cast<std::ptrdiff_t>(found->end);
      }
    } else {
      written.insert(written.begin(), std::string("[").append(section).append("]"));
    }
    lines_.insert(place, std::make_move_iterator(written.begin()),
                  std::make_move_iterator(written.end()));
    Index();
    return Save();
  }

 private:
  struct Section {
    std::unordered_map<std::string, std::size_t> keys;  // the line of each, by folded name
    std::size_t end = 0;                                // behind its last line that is not blank
  };

  void Load() {
    if (loaded_) return;
    loaded_ = true;
    auto content = files_.Read(path_, SIZE_MAX);
    unreadable_ = !content && files_.Attributes(path_).has_value();
    if (!content) return;
    lines_ = SplitLines(Decoded(std::move(content->bytes), code_page_));
    Index();
  }

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

  bool Save() {
    std::string bytes;
    for (const std::string& line : lines_) bytes.append(line).append(kLineEnd);
    return files_.Write(path_, bytes);
  }

  FileSystem& files_;
  const CodePage& code_page_;
  const Text path_;
  bool loaded_ = false;
  bool unreadable_ = false;  // though it is there: writing would lose what it holds
  std::vector<std::string> lines_;
  std::unordered_map<std::string, Section> sections_;
};

}  // namespace

std::unique_ptr<ProfileFile> TextProfiles::Open(TextView path) {
  return std::make_unique<TextProfile>(files_, code_page_, path);
}

std::unique_ptr<ProfileFile> TextProfiles::Create(TextView path) {
  files_.Remove(path);
  return Open(path);
}

}  // namespace conmuta
