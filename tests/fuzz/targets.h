// What is fuzzed. Each target takes any bytes, checks what must hold whatever they are, and aborts
// when it does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace conmuta::fuzz {

// The bytes are a configuration file.
void Open(std::string_view bytes);

// The bytes are a text exchange file.
void Import(std::string_view bytes);

// The first byte chooses a layout, the rest are lines that a PBX printed.
void Lines(std::string_view bytes);

struct Target {
  const char* name;  // of its folder in corpus/, too
  void (*run)(std::string_view bytes);
};
inline constexpr Target kTargets[] = {{"open", Open}, {"import", Import}, {"lines", Lines}};

// Stops the program with what was expected.
void Require(bool holds, const char* what);

}  // namespace conmuta::fuzz
