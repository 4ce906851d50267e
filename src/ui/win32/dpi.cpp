#include "ui/win32/dpi.h"

namespace conmuta::win32 {
namespace {

template <class Function>
Function* UserFunction(const char* name) {
  return reinterpret_cast<Function*>(
      reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

}  // namespace

UINT SystemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return static_cast<UINT>(dpi);
}

UINT DpiOf(HWND window) {
  static const auto get_dpi = UserFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
  const UINT dpi = get_dpi != nullptr ? get_dpi(window) : 0;
  return dpi != 0 ? dpi : SystemDpi();
}

RECT WorkAreaOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (!GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor)) {
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &monitor.rcWork, 0);
  }
  return monitor.rcWork;
}

LOGFONTW MessageFontAt(UINT dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW font = metrics.lfMessageFont;
  font.lfHeight = MulDiv(font.lfHeight, static_cast<int>(dpi), static_cast<int>(SystemDpi()));
  return font;
}

}  // namespace conmuta::win32
