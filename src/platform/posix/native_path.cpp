#include "platform/posix/native_path.h"

namespace conmuta {
namespace {

constexpr bool IsHighSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xDC00;
}

void AppendUtf8(std::string& bytes, char32_t c) {
  const auto tail = [&](unsigned shift) {
    bytes.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F)));
  };
  if (c < 0x80) {
    bytes.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    bytes.push_back(static_cast<char>(0xC0 | (c >> 6)));
    tail(0);
  } else if (c < 0x10000) {
    bytes.push_back(static_cast<char>(0xE0 | (c >> 12)));
    tail(6);
    tail(0);
  } else {
    bytes.push_back(static_cast<char>(0xF0 | (c >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace

std::optional<std::string> NativePath(TextView path) {
  std::string bytes;
  bytes.reserve(path.size());
  for (std::size_t i = 0; i < path.size(); ++i) {
    char32_t c = path[i];
    if (c == kNul || IsLowSurrogate(path[i])) return std::nullopt;
    if (IsHighSurrogate(path[i])) {
      if (++i == path.size() || !IsLowSurrogate(path[i])) return std::nullopt;
      c = 0x10000 + ((c & 0x3FF) << 10) + (path[i] & 0x3FFu);
    }
    AppendUtf8(bytes, c);
  }
  return bytes;
}

}  // namespace conmuta
