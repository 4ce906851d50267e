#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "main/crash_names_test.h"
#include "main/win32/without_window_manager.h"

namespace {

constexpr wchar_t kAgain[] = L"CONMUTA_TALLER_TESTS_AGAIN";

// What Wine is told of windows counts from the next start on: the library of themed controls looks
// at the screen before a program begins.
int RunAgain() {
  SetEnvironmentVariableW(kAgain, L"1");
  std::wstring command = GetCommandLineW();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                      &startup, &process)) {
    return 2;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 2;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(code);
}

}  // namespace

int main(int argc, char** argv) {
  conmuta::test::ManageWindowsWithoutManager();
  if (GetEnvironmentVariableW(kAgain, nullptr, 0) == 0) return RunAgain();
  ::testing::InitGoogleTest(&argc, argv);
  conmuta::test::CrashesNameTheirTest();
  return RUN_ALL_TESTS();
}
