#include "ui/win32/gdi.h"

#include "ui/win32/dpi.h"

namespace conmuta::win32 {

Font MessageFont(UINT dpi) {
  const LOGFONTW font = MessageFontAt(dpi);
  return Font(CreateFontIndirectW(&font));
}

Font FixedPitchFont(UINT dpi) {
  LOGFONTW font = MessageFontAt(dpi);
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  font.lfWeight = FW_NORMAL;
  lstrcpyW(font.lfFaceName, L"Courier New");
  return Font(CreateFontIndirectW(&font));
}

SIZE MeasureText(HFONT font, TextView text) {
  const HDC dc = GetDC(nullptr);
  RECT bounds{};
  {
    const Selection selected(dc, font);
    DrawTextW(dc, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()),
              &bounds, DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS);
  }
  ReleaseDC(nullptr, dc);
  return {bounds.right, bounds.bottom};
}

}  // namespace conmuta::win32
