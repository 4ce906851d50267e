// Running a program as the build does.
#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/source_files.h"

namespace conmuta::test {

struct ProgramRun {
  int status;        // the exit code; -1 when it did not exit
  std::string said;  // on both outputs
};

inline ProgramRun RunProgram(const std::string& command, const std::filesystem::path& folder) {
  const std::string log = (folder / "log").string();
  const int status = std::system((command + " >" + log + " 2>&1").c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadWhole(log)};
}

}  // namespace conmuta::test
