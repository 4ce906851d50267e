#include "ui/win32/window.h"

#include <commctrl.h>

#include <algorithm>
#include <new>
#include <utility>

#include "ui/win32/dpi.h"
#include "ui/win32/modal.h"

namespace conmuta::win32 {
namespace {

constexpr wchar_t kClassName[] = L"Conmuta.Window";

SIZE SizeOf(const RECT& place) {
  return {place.right - place.left, place.bottom - place.top};
}

// In the client area of the control's parent.
RECT PlaceOf(HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(HWND_DESKTOP, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

template <class Function>
void ForEachChild(HWND window, Function function) {
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    function(child);
  }
}

}  // namespace

// Registered with the first window; gone with the DLL, which holds the procedure.
class WindowClass {
 public:
  WindowClass() {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = Window::Procedure;
    window_class.hInstance = ThisModule();
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    window_class.lpszClassName = kClassName;
    if (RegisterClassExW(&window_class) == 0) throw std::bad_alloc();
  }
  ~WindowClass() { UnregisterClassW(kClassName, ThisModule()); }
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;
};

// What derived classes were is gone by now: their members must not be called any more.
Window::~Window() {
  if (handle_ == nullptr) return;
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  DestroyWindow(handle_);
}

void Window::Create(const Text& caption) {
  static const WindowClass window_class;
  const ThemedControls themed;
  CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, Wide(caption),
                  WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 0, 0, nullptr, nullptr, ThisModule(),
                  this);
  if (handle_ == nullptr) throw std::bad_alloc();
  scroll_.Attach(handle_);
  tips_.Attach(handle_);
  MakeControls();
  UseDpi(DpiOf(handle_));
  const SIZE size = Clamped(OuterOf(OpeningSize(MostSize())));
  const RECT area = WorkAreaOf(handle_);
  SetWindowPos(handle_, nullptr, std::max(area.left, (area.left + area.right - size.cx) / 2),
               std::max(area.top, (area.top + area.bottom - size.cy) / 2), size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

HWND Window::AddControl(const wchar_t* window_class, TextView text, DWORD style, int id,
                        DWORD extended_style) {
  const HWND control = CreateWindowExW(
      extended_style, window_class, Wide(Text(text)), style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
      handle_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ThisModule(), nullptr);
  if (control == nullptr) throw std::bad_alloc();
  return control;
}

// --- size ---

SIZE Window::OuterOf(SIZE client) const {
  RECT outer{0, 0, client.cx, client.cy};
  AdjustWindowRectEx(&outer, WS_OVERLAPPEDWINDOW, GetMenu(handle_) != nullptr, WS_EX_CONTROLPARENT);
  return SizeOf(outer);
}

// The largest client area that the screen has room for.
SIZE Window::MostSize() const {
  const SIZE area = SizeOf(WorkAreaOf(handle_));
  const SIZE frame = OuterOf({0, 0});
  return {area.cx - frame.cx, area.cy - frame.cy};
}

SIZE Window::Clamped(SIZE outer) {
  const SIZE least = OuterOf(LeastSize(MostSize()));
  const SIZE area = SizeOf(WorkAreaOf(handle_));
  return {std::min(std::max(outer.cx, least.cx), area.cx),
          std::min(std::max(outer.cy, least.cy), area.cy)};
}

void Window::ClampToScreen() {
  if (IsZoomed(handle_) || IsIconic(handle_)) return;
  RECT place{};
  GetWindowRect(handle_, &place);
  const RECT area = WorkAreaOf(handle_);
  const SIZE size = Clamped(SizeOf(place));
  const LONG x = std::clamp(place.left, area.left, std::max(area.right - size.cx, area.left));
  const LONG y = std::clamp(place.top, area.top, std::max(area.bottom - size.cy, area.top));
  SetWindowPos(handle_, nullptr, x, y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::UseDpi(UINT dpi) {
  dpi_ = dpi;
  Font font = MessageFont(dpi);
  EnumChildWindows(
      handle_,
      [](HWND child, LPARAM f) CALLBACK -> BOOL {
        SendMessageW(child, WM_SETFONT, static_cast<WPARAM>(f), FALSE);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(font.get()));
  font_ = std::move(font);
  measures_ = Measures(font_.get());
}

// A control that has moved is painted as a whole: bits copied over from where it was may be those
// of another.
void Window::Place(HWND control, int x, int y, SIZE size) {
  const POINT offset = scroll_.offset();
  const RECT place{x - offset.x, y - offset.y, x - offset.x + std::max(size.cx, 0L),
                   y - offset.y + std::max(size.cy, 0L)};
  const RECT before = PlaceOf(control);
  if (EqualRect(&place, &before)) return;
  SetWindowPos(control, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void Window::LayoutNow() {
  RECT client{};
  GetClientRect(handle_, &client);
  if (laying_out_ || client.right <= 0 || client.bottom <= 0) return;
  laying_out_ = true;  // bars that come and go change the size
  Layout(scroll_.Fit(LeastSize(MostSize())));
  laying_out_ = false;
  RedrawWindow(handle_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN);
  RedrawWindow(handle_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// Texts have other sizes, or the screen has.
void Window::MeasureAnew() {
  ClampToScreen();
  LayoutNow();
  RedrawWindow(handle_, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

bool Window::Scroll(UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_MOUSEWHEEL) {
    const int delta = GET_WHEEL_DELTA_WPARAM(wparam);
    if (scroll_.ScrollBy(SB_VERT, -delta * 3 * measures_.line() / WHEEL_DELTA)) LayoutNow();
    return true;
  }
  if (lparam != 0) return false;  // a bar of its own
  if (scroll_.Scroll(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wparam))) LayoutNow();
  return true;
}

// --- the modal loop ---

void Window::RunModal() {
  const ThemedControls themed;
  bool quit = false;
  WPARAM exit_code = 0;
  {
    const OtherWindowsDisabled others(handle_);
    open_ = !failure_;  // there may be one from before, of a message that was sent
    ShowWindow(handle_, SW_SHOWNORMAL);
    SetForegroundWindow(handle_);
    if (const HWND first = GetNextDlgTabItem(handle_, nullptr, FALSE)) SetFocus(first);
    Safely([this] { KeepFocus(); });

    MSG message;
    while (open_) {
      const BOOL got = GetMessageW(&message, nullptr, 0, 0);
      if (got <= 0) {
        quit = got == 0;
        exit_code = message.wParam;
        break;
      }
      if (!TranslateKey(message) && !IsDialogMessageW(handle_, &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
      Safely([this] { KeepFocus(); });
    }
    open_ = false;
  }
  if (handle_ != nullptr) DestroyWindow(handle_);
  if (quit) PostQuitMessage(static_cast<int>(exit_code));  // the host's loop wants to end, too
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void Window::Close() {
  open_ = false;
  // A message that somebody sent does not end the wait for the next one that is posted.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

// Our own keys, and those that a multi-line text would keep for itself.
bool Window::TranslateKey(const MSG& message) {
  if (message.message != WM_KEYDOWN ||
      (message.hwnd != handle_ && !IsChild(handle_, message.hwnd))) {
    return false;
  }
  if (Safely([&] { return message.wParam == VK_ESCAPE ? OnEscape() : OnKey(message); }))
    return true;
  if (!IsMultiLineEdit(message.hwnd)) return false;
  switch (message.wParam) {
    case VK_ESCAPE:
      SendMessageW(handle_, WM_COMMAND, IDCANCEL, 0);
      return true;
    case VK_RETURN:
      SendMessageW(handle_, WM_COMMAND, static_cast<WPARAM>(default_button_), 0);
      return true;
    case VK_TAB:
      MoveFocus(GetKeyState(VK_SHIFT) < 0 ? 1 : 0, false);
      return true;
    case 'A':
      if (GetKeyState(VK_CONTROL) >= 0) return false;
      SendMessageW(message.hwnd, EM_SETSEL, 0, -1);
      return true;
    default:
      return false;
  }
}

// --- focus ---

// To a control, or to the next one (the one before, when `where` is not 0).
void Window::MoveFocus(WPARAM where, bool is_control) {
  const HWND next = is_control ? reinterpret_cast<HWND>(where)
                               : GetNextDlgTabItem(handle_, GetFocus(), where != 0);
  if (next == nullptr) return;
  SetFocus(next);
  // A field's text is selected for what is typed next.
  if ((SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0 && !IsMultiLineEdit(next)) {
    SendMessageW(next, EM_SETSEL, 0, -1);
  }
}

// What a command disables or hides may have had the focus; nobody could type then.
void Window::KeepFocus() {
  if (handle_ == nullptr || !open_ || GetActiveWindow() != handle_) return;
  HWND focus = GetFocus();
  if (focus == nullptr || focus == handle_ || (IsChild(handle_, focus) && !CanTakeFocus(focus))) {
    const bool was_usable = focus_ != nullptr && IsChild(handle_, focus_) && CanTakeFocus(focus_);
    SetFocus(was_usable ? focus_ : GetNextDlgTabItem(handle_, nullptr, FALSE));
    focus = GetFocus();
  }
  if (focus == focus_ || focus == nullptr) return;
  focus_ = focus;
  ShowDefaultButton();
  if (IsChild(handle_, focus) && scroll_.Show(PlaceOf(focus))) LayoutNow();
}

void Window::SetDefaultButton(int id) {
  default_button_ = id;
  ShowDefaultButton();
}

// The push button with the focus, else the window's own.
int Window::DefaultButton() const {
  return focus_ != nullptr && IsPushButton(focus_) ? GetDlgCtrlID(focus_) : default_button_;
}

// Enter presses the button that looks so.
void Window::ShowDefaultButton() {
  const int id = DefaultButton();
  ForEachChild(handle_, [&](HWND child) {
    if (!IsPushButton(child)) return;
    const WPARAM wanted = GetDlgCtrlID(child) == id ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    const LONG_PTR shown = GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK;
    if (shown != static_cast<LONG_PTR>(wanted)) SendMessageW(child, BM_SETSTYLE, wanted, TRUE);
  });
}

// --- messages ---

LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lparam);
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    static_cast<Window*>(creation->lpCreateParams)->handle_ = handle;
  }
  auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (window == nullptr) return DefWindowProcW(handle, message, wparam, lparam);
  return window->Safely([&] { return window->Handle(message, wparam, lparam); });
}

LRESULT Window::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  LRESULT result = 0;
  switch (message) {
    case WM_SIZE:
      LayoutNow();
      return 0;
    case WM_GETMINMAXINFO: {
      if (font_.get() == nullptr) break;  // it is being created
      const SIZE least = Clamped({0, 0});
      reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {least.cx, least.cy};
      return 0;
    }
    case WM_DPICHANGED: {
      const RECT& place = *reinterpret_cast<const RECT*>(lparam);
      UseDpi(HIWORD(wparam));
      SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
      MeasureAnew();
      return 0;
    }
    case WM_SETTINGCHANGE:
    case WM_DISPLAYCHANGE:
      UseDpi(dpi_);
      MeasureAnew();
      return 0;
    case WM_ACTIVATE:
      // Back to where one was, which the system would not know of.
      if (LOWORD(wparam) != WA_INACTIVE && HIWORD(wparam) == 0 && focus_ != nullptr) {
        SetFocus(focus_);
        return 0;
      }
      break;
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
      if (OnMessage(message, wparam, lparam, result)) return result;
      if (Scroll(message, wparam, lparam)) return 0;
      break;
    case DM_GETDEFID: {
      const int id = DefaultButton();
      return id != 0 ? MAKELONG(id, DC_HASDEFID) : 0;
    }
    case WM_NEXTDLGCTL:
      MoveFocus(wparam, LOWORD(lparam) != 0);
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(wparam), HIWORD(wparam));
      return 0;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<const NMHDR*>(lparam));
    case WM_CLOSE:
      OnCommand(IDCANCEL, 0);
      return 0;
    case WM_NCDESTROY: {
      const HWND handle = std::exchange(handle_, nullptr);
      SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
      Close();
      return DefWindowProcW(handle, message, wparam, lparam);
    }
    default:
      if (OnMessage(message, wparam, lparam, result)) return result;
      break;
  }
  return DefWindowProcW(handle_, message, wparam, lparam);
}

}  // namespace conmuta::win32
