#include "ui/win32/gdi.h"

#include "ui/win32/dpi.h"

namespace conmuta::win32 {

Font MessageFont(UINT dpi) {
  const LOGFONTW font = MessageFontAt(dpi);
  return Font(CreateFontIndirectW(&font));
}

Font FixedPitchFont(int height) {
  return Font(CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                          OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                          FIXED_PITCH | FF_MODERN, L"Courier New"));
}

SIZE MeasureText(HFONT font, TextView text, UINT flags) {
  const HDC dc = GetDC(nullptr);
  RECT bounds{};
  {
    const Selection selected(dc, font);
    DrawTextW(dc, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()),
              &bounds, DT_CALCRECT | flags);
  }
  ReleaseDC(nullptr, dc);
  return {bounds.right, bounds.bottom};
}

}  // namespace conmuta::win32
