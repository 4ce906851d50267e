// What a person has to put right: a file, an argument, a layout.
#pragma once

#include <stdexcept>
#include <string>

namespace conmuta::host {

// One or more whole sentences in Spanish, as UTF-8; ends the command with kUsage.
class UserError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace conmuta::host
