#include "layouts/parsable_toml.h"

#include <algorithm>

namespace conmuta::layouts {
namespace {

constexpr int kMostKeyParts = 16;
constexpr std::string_view kBeforeTexts = "\n=,[{.";

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}
bool IsQuote(char c) {
  return c == '"' || c == '\'';
}

// Walks a TOML text from one character outside texts and comments to the next. Right up to the
// first error in the text, which is as far as a parser looks.
class Walk {
 public:
  explicit Walk(std::string_view toml) : toml_(toml) {
    if (toml.starts_with("\xEF\xBB\xBF")) place_ = 3;
  }

  // Goes to the next character; false at the end. A quote is one where no text can begin.
  bool Next() {
    place_ += step_;
    for (step_ = 1; place_ < toml_.size();) {
      const char c = toml_[place_];
      if (c == '#') {
        place_ = std::min(toml_.find('\n', place_), toml_.size());
      } else if (IsQuote(c) && kBeforeTexts.find(before_) != std::string_view::npos) {
        SkipText(c);
        before_ = c;
      } else {
        if (!IsBlank(c)) before_ = c;
        return true;
      }
    }
    return false;
  }

  char character() const { return toml_[place_]; }
  std::size_t place() const { return place_; }

 private:
  std::string_view rest() const { return toml_.substr(std::min(place_, toml_.size())); }

  void SkipText(char quote) {
    const std::string_view triple = quote == '"' ? "\"\"\"" : "'''";
    const bool is_long = rest().starts_with(triple);
    const std::string_view end = is_long ? triple : triple.substr(0, 1);
    place_ += end.size();
    while (!rest().empty() && !rest().starts_with(end)) {
      if (!is_long && toml_[place_] == '\n') return;
      if (quote == '"' && toml_[place_] == '\\') {
        // Behind it, or the line break it stands before, the parser looks for blanks.
        const std::size_t next = toml_.find_first_not_of(" \t\r\n", place_ + 1);
        if (next != toml_.npos && !IsAscii(toml_[next])) {
          place_ = next;
          return;
        }
        ++place_;
      }
      ++place_;
    }
    place_ += end.size();
    // Up to two more quotes belong to what a long text says.
    while (is_long && rest().starts_with(quote)) ++place_;
  }

  std::string_view toml_;
  std::size_t place_ = 0;
  std::size_t step_ = 0;
  char before_ = '\n';  // but for blanks
};

}  // namespace

std::string ParsableToml(std::string_view toml) {
  int parts = 1;          // of the present key
  bool in_value = false;  // that has begun behind a "="
  for (Walk walk(toml); walk.Next();) {
    const char c = walk.character();
    const bool is_second_equals = c == '=' && in_value;
    if (c == '.') {
      ++parts;
    } else if (std::string_view("\n=,[]{}").find(c) != std::string_view::npos) {
      parts = 1;
      in_value = c == '=';
    }
    if (!IsAscii(c) || IsQuote(c) || is_second_equals || parts > kMostKeyParts) {
      return std::string(toml.substr(0, walk.place())) + "!";
    }
  }
  return std::string(toml);
}

}  // namespace conmuta::layouts
