#include "progress.h"

#include <atomic>
#include <cstdio>
#include <cstring>

namespace conmuta::test {
namespace {

char round_name[512] = "";         // where no memory is needed to read it
std::atomic<ULONGLONG> began = 0;  // 0: there is no round

DWORD WINAPI Watch(void*) {
  for (;;) {
    Sleep(200);
    const ULONGLONG since = began;
    if (since != 0 && GetTickCount64() - since > kMostForARound) EndOfProgram("this hangs");
  }
}

LONG WINAPI Broken(EXCEPTION_POINTERS* exception) {
  char why[64];
  std::snprintf(why, sizeof why, "exception %08lx crossed the border",
                exception->ExceptionRecord->ExceptionCode);
  EndOfProgram(why);
}

}  // namespace

void BeginRound(const std::string& what) {
  std::strncpy(round_name, what.c_str(), sizeof round_name - 1);
  began = GetTickCount64();
}

void EndRound() {
  began = 0;
}

void EndOfProgram(const char* why) {
  std::fprintf(stderr, "%s: %s; the program ends here\n", round_name, why);
  std::fflush(stderr);
  TerminateProcess(GetCurrentProcess(), 3);
  for (;;) Sleep(INFINITE);
}

void WatchRounds() {
  SetUnhandledExceptionFilter(&Broken);
  CloseHandle(CreateThread(nullptr, 0, &Watch, nullptr, 0, nullptr));
}

}  // namespace conmuta::test
