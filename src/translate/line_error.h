// How a line can fail. Errors are values on the road through a line, which most broken captures
// have thousands of; an exception is raised at its end, for callers who want one.
#pragma once

#include <cstdint>

#include "platform/errors.h"

namespace conmuta {

enum class LineError : std::uint8_t {
  kNone,
  kOverflow,         // a number beyond its width, or a slot whose position plus size exceed 255
  kInvalidArgument,  // a date beyond the calendar, or an event line too short for its prefix
};

// Raises what the error stands for; nothing when there is none.
inline void Raise(LineError error) {
  if (error == LineError::kNone) [[likely]]
    return;
  if (error == LineError::kOverflow) throw OverflowError();
  throw InvalidArgumentError();
}

}  // namespace conmuta
