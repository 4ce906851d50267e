#include "taller/win32/splitter.h"

#include <windowsx.h>

#include <new>

#include "ui/win32/controls.h"

namespace conmuta::taller {
namespace {

constexpr wchar_t kClassName[] = L"Conmuta.Splitter";

class SplitterClass {
 public:
  explicit SplitterClass(WNDPROC procedure) {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = win32::ThisModule();
    window_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    window_class.lpszClassName = kClassName;
    if (RegisterClassExW(&window_class) == 0) throw std::bad_alloc();
  }
};

}  // namespace

const wchar_t* Splitter::ClassName() {
  static const SplitterClass registered(Procedure);
  return kClassName;
}

Splitter::~Splitter() {
  if (control_ != nullptr) SetWindowLongPtrW(control_, GWLP_USERDATA, 0);
}

void Splitter::Attach(HWND control) {
  control_ = control;
  SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

LRESULT CALLBACK Splitter::Procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* splitter = reinterpret_cast<Splitter*>(GetWindowLongPtrW(control, GWLP_USERDATA));
  if (splitter == nullptr) return DefWindowProcW(control, message, wparam, lparam);
  const bool across = splitter->direction_ == Direction::kAcross;
  const LONG at = across ? GET_X_LPARAM(lparam) : GET_Y_LPARAM(lparam);
  switch (message) {
    case WM_SETCURSOR:
      SetCursor(LoadCursorW(nullptr, across ? IDC_SIZEWE : IDC_SIZENS));
      return TRUE;
    case WM_LBUTTONDOWN:
      splitter->held_ = at;
      SetCapture(control);
      return 0;
    case WM_MOUSEMOVE:
      // It moves along, so that the pointer stays where it took hold.
      if (GetCapture() == control && at != splitter->held_ && splitter->Pulled) {
        splitter->Pulled(static_cast<int>(at - splitter->held_));
      }
      return 0;
    case WM_LBUTTONUP:
      ReleaseCapture();
      return 0;
    default:
      return DefWindowProcW(control, message, wparam, lparam);
  }
}

}  // namespace conmuta::taller
