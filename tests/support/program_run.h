// The command, run in memory: its arguments, what it reads, all that it answers.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "conmuta/program.h"

namespace conmuta::test {

struct ProgramRun {
  int code = -1;
  std::string out;
  std::string err;
};

struct Terminals {
  bool out = false;
  bool err = false;
};

inline ProgramRun RunConmuta(const std::vector<std::string>& arguments,
                             const std::string& input = {}, Terminals terminals = {}) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  host::Console console{in, out, err, terminals.out, terminals.err, terminals.out};
  const int code = host::RunProgram(arguments, console);
  return {code, out.str(), err.str()};
}

// The folder of a switch, and its capture.
inline std::string SwitchFolder(const std::string& name) {
  return CONMUTA_SOURCES "/switches/" + name;
}
inline std::string CaptureOf(const std::string& name) {
  return SwitchFolder(name) + "/capture.txt";
}

}  // namespace conmuta::test
