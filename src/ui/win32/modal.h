// What holds while a window of ours is created or open.
#pragma once

#include <windows.h>

#include <vector>

namespace conmuta::win32 {

// The themed controls that the DLL's manifest asks for, while it lives.
class ThemedControls {
 public:
  ThemedControls();
  ~ThemedControls();
  ThemedControls(const ThemedControls&) = delete;
  ThemedControls& operator=(const ThemedControls&) = delete;

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  BOOL active_ = FALSE;
};

// Disables the thread's other windows for as long as it lives.
class OtherWindowsDisabled {
 public:
  explicit OtherWindowsDisabled(HWND ours);
  ~OtherWindowsDisabled();
  OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
  OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

 private:
  void Disable(HWND window);

  HWND ours_;
  HWND active_;
  std::vector<HWND> disabled_;
};

}  // namespace conmuta::win32
