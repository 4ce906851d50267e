#include "ui/win32/frame_control.h"

#include <new>

#include "ui/win32/controls.h"
#include "ui/win32/gdi.h"

namespace conmuta::win32 {
namespace {

void Paint(HWND frame, HDC dc) {
  const auto font = reinterpret_cast<HFONT>(SendMessageW(frame, WM_GETFONT, 0, 0));
  const Measures measures(font);
  RECT all{};
  GetClientRect(frame, &all);
  FillRect(dc, &all, GetSysColorBrush(COLOR_BTNFACE));
  RECT border = all;
  border.top += measures.line() / 2;
  FrameRect(dc, &border, GetSysColorBrush(COLOR_BTNSHADOW));

  const Text caption = TextOf(frame);
  if (caption.empty()) return;
  const Selection with_font(dc, font);
  SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  const int indent = measures.Scale(9);
  RECT room{all.left + indent, all.top, all.right - indent, all.top + measures.line()};
  DrawTextW(dc, Wide(caption), static_cast<int>(caption.size()), &room,
            DT_SINGLELINE | DT_END_ELLIPSIS);
}

LRESULT CALLBACK Procedure(HWND frame, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const Painting painting(frame);
      try {
        Paint(frame, painting.dc());
      } catch (const std::bad_alloc&) {  // a frame without its caption
      }
      return 0;
    }
    case WM_SETTEXT: {
      const LRESULT result = DefWindowProcW(frame, message, wparam, lparam);
      InvalidateRect(frame, nullptr, FALSE);
      return result;
    }
    case WM_NCHITTEST:
      return HTCLIENT;  // for the tool tip
    default: {
      const auto original = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(frame, GWLP_USERDATA));
      return CallWindowProcW(original, frame, message, wparam, lparam);
    }
  }
}

}  // namespace

void MakeFrame(HWND group_box) {
  SetWindowLongPtrW(group_box, GWLP_USERDATA, GetWindowLongPtrW(group_box, GWLP_WNDPROC));
  SetWindowLongPtrW(group_box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  SetWindowPos(group_box, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace conmuta::win32
