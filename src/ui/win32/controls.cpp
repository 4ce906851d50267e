#include "ui/win32/controls.h"

#include <algorithm>

#include "ui/win32/gdi.h"

namespace conmuta::win32 {
namespace {

LONG_PTR StyleOf(HWND control) {
  return GetWindowLongPtrW(control, GWL_STYLE);
}

bool IsOfClass(HWND control, const wchar_t* wanted) {
  wchar_t name[8] = L"";
  GetClassNameW(control, name, 8);
  return lstrcmpiW(name, wanted) == 0;
}

}  // namespace

HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
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
  const bool is_visible = (StyleOf(control) & WS_VISIBLE) != 0;
  if (is_visible != visible) ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
}

bool CanTakeFocus(HWND control) {
  return IsWindowVisible(control) && IsWindowEnabled(control);
}

bool IsMultiLineEdit(HWND control) {
  return IsOfClass(control, L"Edit") && (StyleOf(control) & ES_MULTILINE) != 0;
}

bool IsPushButton(HWND control) {
  const LONG_PTR type = StyleOf(control) & BS_TYPEMASK;
  return IsOfClass(control, L"Button") && (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON);
}

Measures::Measures(HFONT font) : font_(font) {
  const HDC dc = GetDC(nullptr);
  {
    const Selection selected(dc, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    line_ = std::max(static_cast<int>(metrics.tmHeight), 1);
    letter_ = std::max(static_cast<int>(metrics.tmAveCharWidth), 1);
  }
  ReleaseDC(nullptr, dc);
}

SIZE Measures::Label(TextView text) const {
  return MeasureText(font_, text, DT_EXPANDTABS);
}

SIZE Measures::Button(TextView caption) const {
  const SIZE text = Label(caption);
  return {std::max<LONG>(text.cx + 2 * Scale(10), Scale(80)), line_ + 2 * Scale(6)};
}

SIZE Measures::Option(TextView caption) const {
  const SIZE text = Label(caption);
  // The mark is about as large as a line, and never smaller than the system's.
  const int mark = std::max(line_, GetSystemMetrics(SM_CXMENUCHECK)) + Scale(6);
  return {text.cx + mark, std::max<LONG>(text.cy + Scale(4), mark)};
}

SIZE Measures::Field(int letters) const {
  const int border = 2 * GetSystemMetrics(SM_CYEDGE);
  return {letters * letter_ + Scale(10) + border, line_ + Scale(4) + border};
}

Text Measures::Shortened(TextView text, int width) const {
  if (MeasureText(font_, text, DT_NOPREFIX).cx <= width) return Text(text);
  // The system may write up to four characters more than the text has.
  Text shortened(text);
  shortened.resize(text.size() + 4, kNul);
  RECT room{0, 0, std::max(width, 0), line_};
  const HDC dc = GetDC(nullptr);
  {
    const Selection selected(dc, font_);
    DrawTextW(dc, reinterpret_cast<wchar_t*>(shortened.data()), static_cast<int>(text.size()),
              &room, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS | DT_MODIFYSTRING);
  }
  ReleaseDC(nullptr, dc);
  shortened.resize(std::min(shortened.find(kNul), shortened.size()));
  return shortened;
}

Text WithVisibleAmpersands(TextView text) {
  Text shown;
  for (const char16_t c : text) shown.append(c == u'&' ? 2u : 1u, c);
  return shown;
}

}  // namespace conmuta::win32
