// Unicode encodings of text that is not UTF-16 in memory.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace conmuta {

// The text behind a byte order mark: UTF-8, or UTF-16 of either order. Nothing when the bytes
// begin with no mark. What is malformed becomes U+FFFD.
std::optional<Text> FromMarkedUnicode(std::string_view bytes);

// The text behind UTF-8. What is malformed becomes U+FFFD.
Text FromUtf8(std::string_view bytes);

// UTF-8 of a text; nothing when it holds half a surrogate pair.
std::optional<std::string> ToUtf8(TextView text);

// The same into a room, as much as fits there; gives how many bytes the whole has.
std::optional<std::size_t> ToUtf8(TextView text, std::span<char> room);

}  // namespace conmuta
