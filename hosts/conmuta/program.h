// The program: its arguments, less its name, and where it reads and writes.
#pragma once

#include <string>
#include <vector>

#include "conmuta/console.h"

namespace conmuta::host {

// Does what is asked and gives the exit code. Nothing is thrown: what fails is one or more lines on
// the console's `err`.
int RunProgram(const std::vector<std::string>& arguments, Console& console);

}  // namespace conmuta::host
