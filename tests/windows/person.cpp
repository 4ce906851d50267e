#include "person.h"

#include <algorithm>
#include <array>

namespace conmuta::test {
namespace {

constexpr TextView kOurClass = u"Conmuta.Window";
constexpr TextView kDialogClass = u"#32770";
constexpr int kMessageText = 0xFFFF;  // of a message box

std::string Narrow(TextView text) {
  return {text.begin(), text.end()};
}

// The one button of a message box that stands for leaving it be.
int WayOut(HWND dialog) {
  for (const int button : {IDCANCEL, IDNO, IDOK}) {
    if (const HWND control = GetDlgItem(dialog, button); control != nullptr && IsShown(control)) {
      return button;
    }
  }
  return IDCANCEL;
}

}  // namespace

LRESULT Send(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  DWORD_PTR result = 0;
  if (!SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, kPatience, &result)) {
    throw Stuck("no answer to message " + std::to_string(message));
  }
  return static_cast<LRESULT>(result);
}

Text TextOf(HWND window) {
  Text text(static_cast<std::size_t>(Send(window, WM_GETTEXTLENGTH)) + 1, kNul);
  text.resize(static_cast<std::size_t>(Send(window, WM_GETTEXT, text.size(), text.data())));
  return text;
}

Text ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return {name.begin(), name.begin() + length};
}

bool HasStyle(HWND window, LONG_PTR style) {
  return (GetWindowLongPtrW(window, GWL_STYLE) & style) == style;
}

bool IsShown(HWND window) {
  return IsWindowVisible(window) != 0;
}

bool IsUsable(HWND window) {
  return IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0;
}

RECT PlaceOf(HWND control) {
  RECT place{};
  GetWindowRect(control, &place);
  MapWindowPoints(HWND_DESKTOP, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

SIZE ClientSizeOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

SIZE OuterSizeOf(HWND window) {
  RECT outer{};
  GetWindowRect(window, &outer);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

LOGFONTW FontOf(HWND window) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HFONT>(Send(window, WM_GETFONT)), sizeof font, &font);
  return font;
}

int LineHeightOf(HWND control) {
  const HDC dc = GetDC(control);
  const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(Send(control, WM_GETFONT)));
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  SelectObject(dc, before);
  ReleaseDC(control, dc);
  return static_cast<int>(metrics.tmHeight);
}

std::vector<HWND> ChildrenOf(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM list) CALLBACK -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  return children;
}

COLORREF PixelOf(HWND window, int x, int y) {
  const HDC dc = GetDC(window);
  const COLORREF color = GetPixel(dc, x, y);
  ReleaseDC(window, dc);
  return color;
}

std::vector<COLORREF> PixelsOf(HWND window) {
  const SIZE size = ClientSizeOf(window);
  POINT origin{};
  ClientToScreen(window, &origin);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.cx;
  info.bmiHeader.biHeight = -size.cy;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, size.cx, size.cy, screen, origin.x, origin.y, SRCCOPY);
  GdiFlush();
  const auto* first = static_cast<const COLORREF*>(bits);
  std::vector<COLORREF> pixels(first, first + size.cx * size.cy);
  for (COLORREF& pixel : pixels) pixel &= 0xFFFFFF;
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return pixels;
}

Text NameOf(HWND control) {
  const Text kind = ClassOf(control);
  if (kind == u"Button" || kind == u"Static" || kind == u"Conmuta.Diagram") return TextOf(control);
  const HWND label = GetWindow(control, GW_HWNDPREV);
  return label != nullptr && ClassOf(label) == u"Static" ? TextOf(label) : Text();
}

Text ToolTipOf(HWND control) {
  struct Search {
    HWND control;
    Text text;
  } search{control, {}};
  EnumThreadWindows(
      GetWindowThreadProcessId(control, nullptr),
      [](HWND window, LPARAM wanted) CALLBACK -> BOOL {
        if (ClassOf(window) != u"tooltips_class32") return TRUE;
        auto& search = *reinterpret_cast<Search*>(wanted);
        std::array<wchar_t, 400> text{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.hwnd = GetParent(search.control);
        tool.uId = reinterpret_cast<UINT_PTR>(search.control);
        tool.lpszText = text.data();
        Send(window, TTM_GETTEXTW, text.size(), &tool);
        const std::wstring_view shown(text.data());
        if (!shown.empty()) search.text.assign(shown.begin(), shown.end());
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.text;
}

std::vector<TreeItem> ItemsOf(HWND tree) {
  std::vector<TreeItem> items;
  const auto next = [&](WPARAM relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        Send(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
  };
  const auto walk = [&](const auto& self, HTREEITEM first, int depth) -> void {
    for (HTREEITEM item = first; item != nullptr; item = next(TVGN_NEXT, item)) {
      std::array<wchar_t, 300> text{};
      TVITEMW asked{};
      asked.mask = TVIF_TEXT | TVIF_STATE | TVIF_HANDLE;
      asked.hItem = item;
      asked.stateMask = TVIS_EXPANDED;
      asked.pszText = text.data();
      asked.cchTextMax = static_cast<int>(text.size());
      Send(tree, TVM_GETITEMW, 0, &asked);
      const std::wstring_view shown(text.data());
      items.push_back(
          {item, depth, Text(shown.begin(), shown.end()), (asked.state & TVIS_EXPANDED) != 0});
      self(self, next(TVGN_CHILD, item), depth + 1);
    }
  };
  walk(walk, next(TVGN_ROOT, nullptr), 0);
  return items;
}

std::string OutlineOf(HWND tree) {
  std::string outline;
  for (const TreeItem& item : ItemsOf(tree)) {
    outline.append(2 * static_cast<std::size_t>(item.depth), ' ');
    outline.append(Narrow(item.text)).append("\n");
  }
  return outline;
}

// --- Person ---

HWND Person::Find(bool ours, TextView caption) const {
  struct Search {
    bool ours;
    TextView caption;
    HWND found;
  } search{ours, caption, nullptr};
  EnumThreadWindows(
      host_.id(),
      [](HWND window, LPARAM wanted) CALLBACK -> BOOL {
        auto& search = *reinterpret_cast<Search*>(wanted);
        if (!IsUsable(window)) return TRUE;
        if (ClassOf(window) != (search.ours ? kOurClass : kDialogClass)) return TRUE;
        if (TextOf(window) != search.caption) return TRUE;
        search.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND Person::WaitForWindow(TextView caption) const {
  HWND window = nullptr;
  WaitUntil("window " + Narrow(caption), [&] { return (window = Find(true, caption)) != nullptr; });
  host_.Drain();
  return window;
}

HWND Person::WaitForDialog(TextView title) const {
  HWND window = nullptr;
  WaitUntil("dialog " + Narrow(title), [&] { return (window = Find(false, title)) != nullptr; });
  host_.Drain();
  return window;
}

void Person::WaitUntilClosed(HWND window) const {
  WaitUntil("window closes", [&] { return !IsWindow(window); });
}

HWND Person::Focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(host_.id(), &info);
  return info.hwndFocus;
}

void Person::SetFocusTo(HWND control) const {
  host_.Run([&] { SetFocus(control); });
}

void Person::Press(HWND button) const {
  if (!IsUsable(button)) throw Stuck("a button cannot be pressed");
  PostMessageW(button, BM_CLICK, 0, 0);
  host_.Drain();
}

void Person::PostKey(HWND to, WORD key) const {
  const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16;
  PostMessageW(to, WM_KEYDOWN, key, scan | 1);
  PostMessageW(to, WM_KEYUP, key, scan | static_cast<LPARAM>(0xC0000001));
  host_.Drain();
}

void Person::Key(WORD key) const {
  const HWND focus = Focus();
  if (focus == nullptr) throw Stuck("nothing has the focus");
  PostKey(focus, key);
}

void Person::KeyWith(WORD modifier, WORD key) const {
  const auto hold = [&](BYTE state) {
    host_.Run([&] {
      std::array<BYTE, 256> keys{};
      GetKeyboardState(keys.data());
      keys[modifier] = state;
      SetKeyboardState(keys.data());
    });
  };
  hold(0x80);
  Key(key);
  hold(0);
}

void Person::Alt(wchar_t letter) const {
  const HWND focus = Focus();
  if (focus == nullptr) throw Stuck("nothing has the focus");
  PostMessageW(focus, WM_SYSCHAR, letter, LPARAM{1} << 29);
  host_.Drain();
}

void Person::Type(HWND edit, TextView text) const {
  if (!IsUsable(edit)) throw Stuck("a field takes no input");
  SetFocusTo(edit);
  Send(edit, EM_SETSEL, 0, LPARAM{-1});
  PostMessageW(edit, WM_CHAR, VK_BACK, 1);
  for (const char16_t c : text) PostMessageW(edit, WM_CHAR, c, 1);
  host_.Drain();
}

void Person::Click(HWND control, POINT at) const {
  Drag(control, at, at);
}

void Person::Drag(HWND control, POINT from, POINT to) const {
  const auto place = [](POINT at) { return MAKELPARAM(at.x, at.y); };
  const POINT middle = {(from.x + to.x) / 2, (from.y + to.y) / 2};
  PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, place(from));
  PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, place(middle));
  PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, place(to));
  PostMessageW(control, WM_LBUTTONUP, 0, place(to));
  host_.Drain();
}

void Person::PressCloseBox(HWND window) const {
  PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
  host_.Drain();
}

void Person::Resize(HWND window, int width, int height) const {
  SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  host_.Drain();
}

void Person::DragCorner(HWND window, int dx, int dy) const {
  RECT place{};
  GetWindowRect(window, &place);
  const auto button = [](DWORD event) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = event;
    SendInput(1, &input, sizeof input);
  };
  BOOL shows_contents = FALSE;
  SystemParametersInfoW(SPI_GETDRAGFULLWINDOWS, 0, &shows_contents, 0);
  SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, TRUE, nullptr, 0);
  const POINT corner{place.right - 2, place.bottom - 2};
  SetCursorPos(corner.x, corner.y);
  button(MOUSEEVENTF_LEFTDOWN);
  constexpr int kSteps = 8;
  for (int step = 1; step <= kSteps; ++step) {
    Sleep(15);
    SetCursorPos(corner.x + dx * step / kSteps, corner.y + dy * step / kSteps);
  }
  Sleep(15);
  button(MOUSEEVENTF_LEFTUP);
  host_.Rest();
  SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, static_cast<UINT>(shows_contents), nullptr, 0);
}

void Person::Repaint(HWND window) const {
  host_.Run([&] {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  });
  host_.Rest();
}

Person::Said Person::Answer(TextView title, int button) const {
  const HWND box = WaitForDialog(title);
  Said said{TextOf(GetDlgItem(box, kMessageText)), {}, nullptr};
  for (const HWND child : ChildrenOf(box)) {
    if (!IsShown(child)) continue;
    if (ClassOf(child) == u"Button") said.buttons.push_back(GetDlgCtrlID(child));
    if (ClassOf(child) == u"Static" && said.icon == nullptr) {
      said.icon = reinterpret_cast<HICON>(Send(child, STM_GETICON));
    }
  }
  std::sort(said.buttons.begin(), said.buttons.end());
  Press(GetDlgItem(box, button));
  WaitUntilClosed(box);
  return said;
}

void Person::LeaveAll() const {
  PostThreadMessageW(host_.id(), WM_NULL, 0, 0);  // a loop may not have noticed its end
  EnumThreadWindows(
      host_.id(),
      [](HWND window, LPARAM) CALLBACK -> BOOL {
        if (!IsUsable(window)) return TRUE;
        if (ClassOf(window) == kOurClass) PostMessageW(window, WM_CLOSE, 0, 0);
        if (ClassOf(window) == kDialogClass) {
          PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(WayOut(window)), 0);
        }
        return TRUE;
      },
      0);
}

}  // namespace conmuta::test
