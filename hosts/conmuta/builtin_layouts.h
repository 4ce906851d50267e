// The catalogue that the program carries with it.
#pragma once

#include <span>
#include <string_view>

namespace conmuta::host {

struct BuiltinLayout {
  std::string_view name;  // of its folder in switches/
  std::string_view toml;  // its layout.toml
};

// By name.
std::span<const BuiltinLayout> BuiltinLayouts();

}  // namespace conmuta::host
