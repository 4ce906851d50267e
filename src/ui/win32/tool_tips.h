// What controls say when the pointer rests on them: mostly the whole of a text that they cut.
#pragma once

#include <windows.h>

#include <map>

#include "platform/text.h"

namespace conmuta::win32 {

class ToolTips {
 public:
  // For the controls of a window, which takes the tool tips along when it goes.
  void Attach(HWND window);

  // An empty text says nothing.
  void Set(HWND control, TextView text);

 private:
  HWND window_ = nullptr;
  HWND tips_ = nullptr;
  std::map<HWND, Text> texts_;
};

}  // namespace conmuta::win32
