#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "conmuta/program.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::cin.tie(nullptr);
  const bool is_terminal = isatty(STDOUT_FILENO) != 0;
  conmuta::host::Console console{std::cin,
                                 std::cout,
                                 std::cerr,
                                 is_terminal,
                                 isatty(STDERR_FILENO) != 0,
                                 is_terminal && std::getenv("NO_COLOR") == nullptr};
  return conmuta::host::RunProgram({argv + 1, argv + argc}, console);
}
