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

template <std::integral T>
constexpr T CheckedAdd(T a, T b) {
  T sum{};
  if (__builtin_add_overflow(a, b, &sum)) throw OverflowError();
  return sum;
}

template <std::integral T>
constexpr T CheckedMultiply(T a, T b) {
  T product{};
  if (__builtin_mul_overflow(a, b, &product)) throw OverflowError();
  return product;
}

}  // namespace conmuta
