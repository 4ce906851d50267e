#include "layouts/key_chain.h"

#include <algorithm>

namespace conmuta::layouts {
namespace {

// Walks a TOML text from one character outside texts and comments to the next. Right up to the
// first error in the text, which is as far as a parser looks.
class Walk {
 public:
  explicit Walk(std::string_view toml) : rest_(toml) {}

  // The next character; NUL at the end.
  char Next() {
    while (!rest_.empty()) {
      const char c = rest_.front();
      if (c == '#') {
        Skip(rest_.find('\n'));
      } else if (c == '"' || c == '\'') {
        SkipText(c);
      } else {
        Skip(1);
        return c;
      }
    }
    return '\0';
  }

  Place place() const { return place_; }

 private:
  void Skip(std::size_t count) {
    for (const char c : rest_.substr(0, count)) {
      const bool goes_on = (c & 0xC0) == 0x80;  // of a character of several bytes
      if (c == '\n') {
        place_ = {place_.line + 1, 1};
      } else if (!goes_on) {
        ++place_.column;
      }
    }
    rest_.remove_prefix(std::min(count, rest_.size()));
  }

  void SkipText(char quote) {
    const std::string_view triple = quote == '"' ? "\"\"\"" : "'''";
    const bool is_long = rest_.starts_with(triple);
    const std::string_view end = is_long ? triple : triple.substr(0, 1);
    Skip(end.size());
    while (!rest_.empty() && !rest_.starts_with(end)) {
      if (!is_long && rest_.front() == '\n') return;
      Skip(quote == '"' && rest_.front() == '\\' ? 2 : 1);
    }
    Skip(end.size());
    // Up to two more quotes belong to what a long text says.
    while (is_long && !rest_.empty() && rest_.front() == quote) Skip(1);
  }

  std::string_view rest_;
  Place place_;
};

}  // namespace

std::optional<Place> FindLongKey(std::string_view toml, int most) {
  Walk walk(toml);
  int dots = 0;
  while (const char c = walk.Next()) {
    if (c == '.') {
      if (++dots >= most) return walk.place();
    } else if (c == '\n' || c == '=' || c == ',' || c == '[' || c == '{') {
      dots = 0;
    }
  }
  return std::nullopt;
}

}  // namespace conmuta::layouts
