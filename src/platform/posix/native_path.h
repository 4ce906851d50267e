#pragma once

#include <optional>
#include <string>

#include "platform/unicode.h"

namespace conmuta {

// The path in UTF-8; nothing when it holds a NUL or half a surrogate pair, which name no file.
inline std::optional<std::string> NativePath(TextView path) {
  if (path.find(kNul) != TextView::npos) return std::nullopt;
  return ToUtf8(path);
}

}  // namespace conmuta
