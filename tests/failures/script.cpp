#include "script.h"

#include <commctrl.h>

#include "ui/win32/control_ids.h"

namespace conmuta::test {
namespace {

constexpr UINT kNext = WM_APP + 1;
constexpr wchar_t kClassName[] = L"Conmuta.Tests.Script";
constexpr wchar_t kOurClass[] = L"Conmuta.Window";

// The one of ours that can be used; null when there is none.
HWND OpenWindow() {
  HWND found = nullptr;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM place) CALLBACK -> BOOL {
        wchar_t name[32] = L"";
        GetClassNameW(window, name, 32);
        if (lstrcmpW(name, kOurClass) != 0 || !IsWindowVisible(window) ||
            !IsWindowEnabled(window)) {
          return TRUE;
        }
        *reinterpret_cast<HWND*>(place) = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace

Script::Script(std::vector<Step> steps) : steps_(std::move(steps)) {
  WNDCLASSW window_class{};
  window_class.lpfnWndProc = &Procedure;
  window_class.hInstance = GetModuleHandleW(nullptr);
  window_class.lpszClassName = kClassName;
  RegisterClassW(&window_class);  // fails from the second time on
  window_ = CreateWindowExW(0, kClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                            window_class.hInstance, nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Script::~Script() {
  DestroyWindow(window_);
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void Script::Begin() {
  done_ = 0;
  PostMessageW(window_, kNext, 0, 0);
}

void Script::Next() {
  PostMessageW(window_, kNext, 0, 0);  // for whoever waits next, within what this step opens
  const HWND window = OpenWindow();
  if (done_ < steps_.size()) {
    steps_[done_++](window);
  } else if (window != nullptr) {
    SendMessageW(window, WM_CLOSE, 0, 0);
  }
}

LRESULT CALLBACK Script::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* script = reinterpret_cast<Script*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message != kNext || script == nullptr) return DefWindowProcW(window, message, wparam, lparam);
  script->Next();
  return 0;
}

Script::Step Press(int id) {
  return [id](HWND window) {
    const HWND button = GetDlgItem(window, id);
    if (button != nullptr && IsWindowEnabled(button)) SendMessageW(button, BM_CLICK, 0, 0);
  };
}

Script::Step Type(int id, const wchar_t* text) {
  return [id, text](HWND window) {
    const HWND field = GetDlgItem(window, id);
    if (field == nullptr) return;
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text));
  };
}

Script::Step SelectModel(int number) {
  return [number](HWND window) {
    const HWND tree = GetDlgItem(window, win32::kTvConmutadores);
    if (tree == nullptr) return;
    // Root, brand, and its models.
    HTREEITEM item = TreeView_GetChild(tree, TreeView_GetRoot(tree));
    item = TreeView_GetChild(tree, item);
    for (int i = 1; i < number && item != nullptr; ++i) item = TreeView_GetNextSibling(tree, item);
    if (item != nullptr) TreeView_SelectItem(tree, item);
  };
}

Script::Step Repaint() {
  return [](HWND window) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  };
}

Script::Step Resize(int width, int height) {
  return [=](HWND window) {
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
  };
}

Script::Step Leave() {
  return [](HWND window) { SendMessageW(window, WM_CLOSE, 0, 0); };
}

}  // namespace conmuta::test
