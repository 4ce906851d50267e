#include "ui/win32/tool_tips.h"

#include <commctrl.h>

#include "ui/win32/controls.h"

namespace conmuta::win32 {
namespace {

constexpr int kLongestLine = 600;  // pixels; longer ones are broken

}  // namespace

void ToolTips::Attach(HWND window) {
  window_ = window;
  tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                          WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, window, nullptr,
                          ThisModule(), nullptr);
  SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, kLongestLine);
}

void ToolTips::Set(HWND control, TextView text) {
  const auto [entry, is_new] = texts_.try_emplace(control, text);
  if (!is_new && entry->second == text) return;
  entry->second = text;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = const_cast<wchar_t*>(Wide(entry->second));
  SendMessageW(tips_, is_new ? TTM_ADDTOOLW : TTM_UPDATETIPTEXTW, 0,
               reinterpret_cast<LPARAM>(&tool));
}

}  // namespace conmuta::win32
