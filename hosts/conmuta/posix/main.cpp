#include <unistd.h>

#include <iostream>

#include "conmuta/program.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::cin.tie(nullptr);
  conmuta::host::Console console{std::cin, std::cout, std::cerr, isatty(STDOUT_FILENO) != 0,
                                 isatty(STDERR_FILENO) != 0};
  return conmuta::host::RunProgram({argv + 1, argv + argc}, console);
}
