#include "ui/win32/modal.h"

#include <new>

#include "ui/win32/controls.h"

namespace conmuta::win32 {

ThemedControls::ThemedControls() {
  ACTCTXW context{};
  context.cbSize = sizeof context;
  context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  context.hModule = ThisModule();
  context.lpResourceName = MAKEINTRESOURCEW(2);
  context_ = CreateActCtxW(&context);
  if (context_ != INVALID_HANDLE_VALUE) active_ = ActivateActCtx(context_, &cookie_);
}

ThemedControls::~ThemedControls() {
  if (active_) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

OtherWindowsDisabled::OtherWindowsDisabled(HWND ours) : ours_(ours), active_(GetActiveWindow()) {
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM self) CALLBACK -> BOOL {
        reinterpret_cast<OtherWindowsDisabled*>(self)->Disable(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(this));
}

OtherWindowsDisabled::~OtherWindowsDisabled() {
  for (const HWND window : disabled_) {
    if (IsWindow(window)) EnableWindow(window, TRUE);
  }
  if (active_ != nullptr && IsWindow(active_)) SetActiveWindow(active_);
}

void OtherWindowsDisabled::Disable(HWND window) {
  if (window == ours_ || !IsWindowVisible(window) || !IsWindowEnabled(window)) return;
  try {
    disabled_.push_back(window);
  } catch (const std::bad_alloc&) {
    return;  // it could not be enabled again
  }
  EnableWindow(window, FALSE);
}

}  // namespace conmuta::win32
