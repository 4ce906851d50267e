// Integer arithmetic in a stated width: a result that does not fit raises, it never wraps.
#pragma once

#include <concepts>
#include <utility>

#include "platform/errors.h"

namespace conmuta {

template <std::integral To, std::integral From>
constexpr To Narrow(From value) {
  if (!std::in_range<To>(value)) throw OverflowError();
  return static_cast<To>(value);
}

}  // namespace conmuta
