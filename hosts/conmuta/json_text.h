// JSON for programs that may well be read on a terminal.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace conmuta::host {

// In one line, with what would steer a terminal escaped: all characters beyond ASCII, and DEL.
inline std::string JsonLine(const nlohmann::ordered_json& json) {
  std::string line = json.dump(-1, ' ', true, nlohmann::ordered_json::error_handler_t::replace);
  for (std::size_t at = 0; (at = line.find('\x7F', at)) != std::string::npos;) {
    line.replace(at, 1, "\\u007f");
  }
  return line + "\n";
}

}  // namespace conmuta::host
