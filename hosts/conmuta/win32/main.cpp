#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "conmuta/program.h"
#include "conmuta/utf8.h"

namespace {

using conmuta::host::Console;

bool IsConsole(DWORD handle) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(handle), &mode) != 0;
}

// The console shows UTF-8 while this lives.
class Utf8Console {
 public:
  Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
  ~Utf8Console() { SetConsoleOutputCP(before_); }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  const UINT before_ = GetConsoleOutputCP();
};

// Consoles before Windows 10 have none.
bool HasColours(DWORD handle) {
  constexpr DWORD kVirtualTerminal = 4;
  DWORD mode = 0;
  const HANDLE console = GetStdHandle(handle);
  return GetConsoleMode(console, &mode) != 0 && SetConsoleMode(console, mode | kVirtualTerminal);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  const Utf8Console utf8;
  for (std::FILE* file : {stdin, stdout, stderr}) _setmode(_fileno(file), _O_BINARY);
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) {
    const std::wstring_view wide = argv[i];
    arguments.push_back(conmuta::host::Utf8(conmuta::Text(wide.begin(), wide.end())));
  }
  std::ios::sync_with_stdio(false);
  std::cin.tie(nullptr);
  Console console{std::cin,
                  std::cout,
                  std::cerr,
                  IsConsole(STD_OUTPUT_HANDLE),
                  IsConsole(STD_ERROR_HANDLE),
                  HasColours(STD_OUTPUT_HANDLE) && _wgetenv(L"NO_COLOR") == nullptr};
  return conmuta::host::RunProgram(arguments, console);
}
