#pragma once

#include <array>
#include <climits>

#include "platform/unicode.h"

namespace conmuta {

// A terminated path in UTF-8; empty, which names no file, when the path holds a NUL or half a
// surrogate pair, or is longer than any.
class NativePath {
 public:
  explicit NativePath(TextView path) {
    const auto length = path.find(kNul) == TextView::npos ? ToUtf8(path, path_) : std::nullopt;
    const std::size_t end = length.value_or(path_.size());
    path_[end < path_.size() ? end : 0] = '\0';
  }
  const char* get() const { return path_.data(); }

 private:
  std::array<char, PATH_MAX> path_;  // only up to the NUL
};

}  // namespace conmuta
