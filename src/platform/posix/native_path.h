#pragma once

#include <optional>
#include <string>

#include "platform/text.h"

namespace conmuta {

// The path in UTF-8; nothing when it holds a NUL or half a surrogate pair, which name no file.
std::optional<std::string> NativePath(TextView path);

}  // namespace conmuta
