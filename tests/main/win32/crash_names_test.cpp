#include "main/crash_names_test.h"

#include <windows.h>

#include <csignal>
#include <cstdio>

#include "main/running_test.h"

namespace conmuta::test {
namespace {

constexpr UINT kCrashed = 3;

LONG WINAPI Crashed(EXCEPTION_POINTERS* what) {
  char reason[80];
  std::snprintf(reason, sizeof reason, "exception %08lX at %p",
                what->ExceptionRecord->ExceptionCode, what->ExceptionRecord->ExceptionAddress);
  PrintRunningTest(reason);
  TerminateProcess(GetCurrentProcess(), kCrashed);
  return EXCEPTION_EXECUTE_HANDLER;
}

void Aborted(int) {
  PrintRunningTest("abort");
  TerminateProcess(GetCurrentProcess(), kCrashed);
}

}  // namespace

void CrashesNameTheirTest() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  SetUnhandledExceptionFilter(Crashed);
  std::signal(SIGABRT, Aborted);
}

}  // namespace conmuta::test
