#include "ui/win32/window.h"

#include <commctrl.h>

#include <algorithm>
#include <new>
#include <utility>

#include "ui/win32/dpi.h"

namespace conmuta::win32 {
namespace {

constexpr wchar_t kClassName[] = L"Conmuta.Window";

// The themed controls that the DLL's manifest asks for, while it lives.
class ThemedControls {
 public:
  ThemedControls() {
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = ThisModule();
    context.lpResourceName = MAKEINTRESOURCEW(2);
    context_ = CreateActCtxW(&context);
    if (context_ != INVALID_HANDLE_VALUE) active_ = ActivateActCtx(context_, &cookie_);
  }
  ~ThemedControls() {
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
  }
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
  explicit OtherWindowsDisabled(HWND ours) : ours_(ours), active_(GetActiveWindow()) {
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM self) CALLBACK -> BOOL {
          reinterpret_cast<OtherWindowsDisabled*>(self)->Disable(window);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(this));
  }
  ~OtherWindowsDisabled() {
    for (const HWND window : disabled_) {
      if (IsWindow(window)) EnableWindow(window, TRUE);
    }
    if (active_ != nullptr && IsWindow(active_)) SetActiveWindow(active_);
  }
  OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
  OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

 private:
  void Disable(HWND window) {
    if (window == ours_ || !IsWindowVisible(window) || !IsWindowEnabled(window)) return;
    EnableWindow(window, FALSE);
    disabled_.push_back(window);
  }

  HWND ours_;
  HWND active_;
  std::vector<HWND> disabled_;
};

bool IsMultiLineEdit(HWND control) {
  wchar_t name[8] = L"";
  GetClassNameW(control, name, 8);
  return lstrcmpiW(name, L"Edit") == 0 &&
         (GetWindowLongPtrW(control, GWL_STYLE) & ES_MULTILINE) != 0;
}

}  // namespace

HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
}

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
    RegisterClassExW(&window_class);
  }
  ~WindowClass() { UnregisterClassW(kClassName, ThisModule()); }
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;
};

Window::~Window() {
  if (handle_ != nullptr) DestroyWindow(handle_);
}

void Window::Create(const Frame& frame) {
  static const WindowClass window_class;
  const ThemedControls themed;
  const UINT dpi = SystemDpi();
  const auto scaled = [&](LONG pixels) { return MulDiv(pixels, static_cast<int>(dpi), 96); };
  const int width = scaled(frame.size.cx);
  const int height = scaled(frame.size.cy);
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  least_size_ = frame.least;
  CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, Wide(frame.caption),
                  WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  std::max(area.left, (area.left + area.right - width) / 2),
                  std::max(area.top, (area.top + area.bottom - height) / 2), width, height, nullptr,
                  nullptr, ThisModule(), this);
  if (handle_ == nullptr) throw std::bad_alloc();
  MakeControls();
  UseDpi(DpiOf(handle_));
}

HWND Window::AddControl(const wchar_t* window_class, TextView text, DWORD style, int id,
                        DWORD extended_style) {
  const HWND control = CreateWindowExW(
      extended_style, window_class, Wide(Text(text)), style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
      handle_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ThisModule(), nullptr);
  if (control == nullptr) throw std::bad_alloc();
  return control;
}

void Window::UseDpi(UINT dpi) {
  dpi_ = dpi;
  Font font = MessageFont(dpi);
  EnumChildWindows(
      handle_,
      [](HWND child, LPARAM f) CALLBACK -> BOOL {
        SendMessageW(child, WM_SETFONT, static_cast<WPARAM>(f), TRUE);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(font.get()));
  font_ = std::move(font);
  LayoutNow();
}

void Window::LayoutNow() {
  RECT client{};
  GetClientRect(handle_, &client);
  if (client.right > 0 && client.bottom > 0) Layout({client.right, client.bottom});
}

void Window::RunModal() {
  const ThemedControls themed;
  bool quit = false;
  WPARAM exit_code = 0;
  {
    const OtherWindowsDisabled others(handle_);
    open_ = true;
    ShowWindow(handle_, SW_SHOWNORMAL);
    SetForegroundWindow(handle_);
    if (const HWND first = GetNextDlgTabItem(handle_, nullptr, FALSE)) SetFocus(first);

    MSG message;
    while (open_) {
      const BOOL got = GetMessageW(&message, nullptr, 0, 0);
      if (got <= 0) {
        quit = got == 0;
        exit_code = message.wParam;
        break;
      }
      if (TranslateKey(message) || IsDialogMessageW(handle_, &message)) continue;
      TranslateMessage(&message);
      DispatchMessageW(&message);
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

// The keys that a multi-line text would keep for itself.
bool Window::TranslateKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || !IsMultiLineEdit(message.hwnd) ||
      !IsChild(handle_, message.hwnd)) {
    return false;
  }
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

LRESULT Window::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_SIZE:
      LayoutNow();
      return 0;
    case WM_GETMINMAXINFO: {
      auto& limits = *reinterpret_cast<MINMAXINFO*>(lparam);
      limits.ptMinTrackSize = {Scale(least_size_.cx), Scale(least_size_.cy)};
      return 0;
    }
    case WM_DPICHANGED: {
      const RECT& place = *reinterpret_cast<const RECT*>(lparam);
      SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
      UseDpi(HIWORD(wparam));
      return 0;
    }
    case WM_SETTINGCHANGE:
      UseDpi(dpi_);
      return 0;
    case DM_GETDEFID:
      return default_button_ != 0 ? MAKELONG(default_button_, DC_HASDEFID) : 0;
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
    default: {
      LRESULT result = 0;
      if (OnMessage(message, wparam, lparam, result)) return result;
      return DefWindowProcW(handle_, message, wparam, lparam);
    }
  }
}

Text TextOf(HWND control) {
  Text text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, kNul);
  const int length = GetWindowTextW(control, reinterpret_cast<wchar_t*>(text.data()),
                                    static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void SetText(HWND control, TextView text) {
  if (TextOf(control) != text) SetWindowTextW(control, Wide(Text(text)));
}

void SetEnabled(HWND control, bool enabled) {
  if ((IsWindowEnabled(control) != 0) != enabled) EnableWindow(control, enabled);
}

void SetVisible(HWND control, bool visible) {
  const bool is_visible = (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
  if (is_visible != visible) ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
}

void Place(HWND control, int x, int y, int width, int height) {
  SetWindowPos(control, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace conmuta::win32
