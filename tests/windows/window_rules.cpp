#include "window_rules.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <map>
#include <set>

#include "cable/palette.h"
#include "person.h"
#include "ui/win32/control_ids.h"

namespace conmuta::test {
namespace {

using Flaws = std::vector<std::string>;

std::string Narrow(TextView text) {
  return {text.begin(), text.end()};
}

std::string NumberOf(HWND control) {
  return std::to_string(GetDlgCtrlID(control));
}

LONG_PTR StyleOf(HWND control) {
  return GetWindowLongPtrW(control, GWL_STYLE);
}

bool IsButtonOfType(HWND control, std::initializer_list<LONG_PTR> types) {
  return ClassOf(control) == u"Button" &&
         std::find(types.begin(), types.end(), StyleOf(control) & BS_TYPEMASK) != types.end();
}
bool IsFrame(HWND control) {
  return IsButtonOfType(control, {BS_GROUPBOX});
}
bool IsPushButton(HWND control) {
  return IsButtonOfType(control, {BS_PUSHBUTTON, BS_DEFPUSHBUTTON});
}
bool HasMark(HWND control) {
  return IsButtonOfType(control, {BS_RADIOBUTTON, BS_AUTORADIOBUTTON});
}

// What a control consists of is its own business.
std::vector<HWND> ShownIn(HWND window) {
  std::vector<HWND> shown = ChildrenOf(window);
  std::erase_if(shown, [window](HWND control) {
    return !IsShown(control) || GetAncestor(control, GA_PARENT) != window;
  });
  return shown;
}

// Windows that are larger than their screen are seen in parts.
bool IsScrolled(HWND window) {
  return (StyleOf(window) & (WS_HSCROLL | WS_VSCROLL)) != 0;
}

Flaws Clipped(HWND window, UINT) {
  Flaws flaws = ClippedTextsOf(window);
  for (std::string& flaw : flaws) flaw = "cuts " + flaw;
  return flaws;
}

Flaws Beyond(HWND window, UINT) {
  Flaws flaws;
  const SIZE client = ClientSizeOf(window);
  for (const HWND control : ShownIn(window)) {
    const RECT place = PlaceOf(control);
    if (place.right <= place.left || place.bottom <= place.top) {
      flaws.push_back(NumberOf(control) + " has no room");
    }
    if (!IsScrolled(window) &&
        (place.left < 0 || place.top < 0 || place.right > client.cx || place.bottom > client.cy)) {
      flaws.push_back(NumberOf(control) + " lies beyond the window");
    }
  }
  return flaws;
}

// Only a frame may have others in it, and has the whole of them.
Flaws Overlapping(HWND window, UINT) {
  Flaws flaws;
  const std::vector<HWND> controls = ShownIn(window);
  for (const HWND one : controls) {
    for (const HWND other : controls) {
      if (one == other) break;
      const RECT place = PlaceOf(one);
      const RECT others = PlaceOf(other);
      RECT common{};
      if (!IntersectRect(&common, &place, &others)) continue;
      const bool frames = (IsFrame(one) && EqualRect(&common, &others)) ||
                          (IsFrame(other) && EqualRect(&common, &place));
      if (!frames) flaws.push_back(NumberOf(one) + " lies over " + NumberOf(other));
    }
  }
  return flaws;
}

// Push buttons keep off each other and off the edges, by lengths that grow with the font.
Flaws Crowded(HWND window, UINT) {
  Flaws flaws;
  const HWND cancel = GetDlgItem(window, IDCANCEL);
  const int line = LineHeightOf(cancel);
  const int gap = MulDiv(6, line, 15);
  const int margin = MulDiv(9, line, 15);
  std::vector<HWND> buttons = ShownIn(window);
  std::erase_if(buttons, [](HWND control) { return !IsPushButton(control); });
  for (const HWND one : buttons) {
    LONG apart = LONG_MAX;  // from the next one to the right
    for (const HWND other : buttons) {
      const LONG by = PlaceOf(other).left - PlaceOf(one).right;
      if (PlaceOf(other).top == PlaceOf(one).top && by >= 0) apart = std::min(apart, by);
    }
    if (apart != LONG_MAX && apart != gap && apart != 2 * gap) {
      flaws.push_back(NumberOf(one) + " is " + std::to_string(apart) + " pixels from the next one");
    }
  }
  const SIZE client = ClientSizeOf(window);
  const RECT last = PlaceOf(cancel);
  if (!IsScrolled(window) &&
      (client.cx - last.right != margin || client.cy - last.bottom != margin)) {
    flaws.push_back(NumberOf(cancel) + " is not at the margin");
  }
  return flaws;
}

// One goes with Tab as one reads: to the right or downwards.
Flaws Jumping(HWND window, UINT) {
  Flaws flaws;
  std::vector<HWND> stops = ShownIn(window);
  std::erase_if(stops, [](HWND control) { return !HasStyle(control, WS_TABSTOP); });
  for (std::size_t i = 1; i < stops.size(); ++i) {
    const RECT from = PlaceOf(stops[i - 1]);
    const RECT to = PlaceOf(stops[i]);
    if (to.top < from.bottom && to.left < from.right) {
      flaws.push_back("Tab jumps back from " + NumberOf(stops[i - 1]) + " to " +
                      NumberOf(stops[i]));
    }
  }
  return flaws;
}

// The letter that an ampersand marks; two of them are one that is to be seen.
char16_t KeyOf(HWND control) {
  const Text kind = ClassOf(control);
  const bool marks = kind == u"Button" || (kind == u"Static" && !HasStyle(control, SS_NOPREFIX));
  if (!marks) return kNul;
  const Text caption = TextOf(control);
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return ToUpper(caption.substr(i + 1, 1)).front();
    ++i;
  }
  return kNul;
}

Flaws Keyless(HWND window, UINT) {
  Flaws flaws;
  std::map<char16_t, HWND> owners;
  HWND before = nullptr;
  for (const HWND control : ShownIn(window)) {
    const char16_t key = KeyOf(control);
    if (key != kNul) {
      const auto [owner, is_new] = owners.try_emplace(key, control);
      if (!is_new) {
        flaws.push_back(NumberOf(control) + " has the key of " + NumberOf(owner->second));
      }
    }
    // A button that bears a name is reached by the key of the label before it.
    const bool labelled =
        before != nullptr && ClassOf(before) == u"Static" && KeyOf(before) != kNul;
    if (IsPushButton(control) && key == kNul && !labelled) {
      flaws.push_back(NumberOf(control) + " has no key");
    }
    before = control;
  }
  return flaws;
}

// Controls of the themed library; scroll bars are the system's own.
Flaws Unthemed(HWND window, UINT) {
  Flaws flaws;
  const std::set<Text> themed = {u"Button", u"Edit", u"Static", u"SysTreeView32"};
  for (const HWND control : ChildrenOf(window)) {
    if (!themed.contains(ClassOf(control))) continue;
    HMODULE library = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(GetClassLongPtrW(control, GCLP_WNDPROC)), &library);
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(library, path.data(), MAX_PATH);
    if (std::wstring_view(path.data()).find(L"common-controls_6595b64144ccf1df_6.") ==
        std::wstring_view::npos) {
      flaws.push_back(NumberOf(control) + " is not themed");
    }
  }
  return flaws;
}

// The user's message font; bold where it stresses, and of fixed pitch in a report.
Flaws MisprintedFonts(HWND window, UINT dpi) {
  Flaws flaws;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const HDC screen = GetDC(nullptr);
  const LONG height = MulDiv(metrics.lfMessageFont.lfHeight, static_cast<int>(dpi),
                             GetDeviceCaps(screen, LOGPIXELSY));
  ReleaseDC(nullptr, screen);
  for (const HWND control : ShownIn(window)) {
    const Text kind = ClassOf(control);
    if (kind == u"ScrollBar" || kind == u"Conmuta.Diagram") continue;
    const LOGFONTW font = FontOf(control);
    const bool is_report = GetDlgCtrlID(control) == win32::kTxtInfo;
    const bool is_right =
        is_report ? (font.lfPitchAndFamily & 3) == FIXED_PITCH && font.lfHeight >= height
                  : font.lfHeight == height &&
                        std::wstring_view(font.lfFaceName) == metrics.lfMessageFont.lfFaceName;
    if (!is_right) {
      flaws.push_back(NumberOf(control) + " has a font of height " + std::to_string(font.lfHeight) +
                      " for " + std::to_string(height));
    }
  }
  return flaws;
}

using Rule = Flaws (*)(HWND window, UINT dpi);
constexpr Rule kRules[] = {Clipped, Beyond,  Overlapping, Crowded,
                           Jumping, Keyless, Unthemed,    MisprintedFonts};

}  // namespace

std::vector<std::string> FlawsOf(HWND window, UINT dpi) {
  Flaws flaws;
  for (const Rule rule : kRules) {
    const Flaws found = rule(window, dpi);
    flaws.insert(flaws.end(), found.begin(), found.end());
  }
  return flaws;
}

std::vector<std::string> MisplacedOf(HWND window) {
  Flaws flaws = Beyond(window, 0);
  const Flaws overlapping = Overlapping(window, 0);
  flaws.insert(flaws.end(), overlapping.begin(), overlapping.end());
  return flaws;
}

std::vector<std::string> ClippedTextsOf(HWND window) {
  Flaws clipped;
  for (const HWND control : ShownIn(window)) {
    const bool is_button = ClassOf(control) == u"Button";
    const bool is_edit = ClassOf(control) == u"Edit";
    if (!is_button && !is_edit && ClassOf(control) != u"Static") continue;
    const LONG_PTR style = StyleOf(control);
    // These shorten their texts themselves, or scroll them.
    if (IsFrame(control)) continue;
    if (!is_button && !is_edit && (style & SS_ELLIPSISMASK) != 0) continue;
    const Text text = is_edit ? Text(u"X") : TextOf(control);
    RECT needed{};
    const SIZE room = ClientSizeOf(control);
    const HDC dc = GetDC(control);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(Send(control, WM_GETFONT)));
    needed.right = room.cx;
    const bool plain = !is_button && (style & SS_NOPREFIX) != 0;
    const bool wraps =
        !is_button && !is_edit && (style & SS_TYPEMASK) == SS_LEFT && (style & SS_CENTERIMAGE) == 0;
    DrawTextW(
        dc, reinterpret_cast<const wchar_t*>(text.c_str()), static_cast<int>(text.size()), &needed,
        static_cast<UINT>(DT_CALCRECT | (plain ? DT_NOPREFIX : 0) | (wraps ? DT_WORDBREAK : 0)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, before);
    ReleaseDC(control, dc);
    // What a button has around its text: a border, or a mark before it.
    if (is_button) needed.right += HasMark(control) ? metrics.tmHeight + 4 : 8;
    if (needed.right > room.cx || needed.bottom > room.cy) {
      clipped.push_back(NumberOf(control) + " " + Narrow(text));
    }
  }
  return clipped;
}

std::vector<std::string> ForeignColorsOf(HWND window) {
  const auto color_of = [](Color color) {
    return static_cast<COLORREF>(color.red << 16 | color.green << 8 | color.blue);
  };
  std::set<COLORREF> known;
  for (int index = 0; index <= COLOR_MENUBAR; ++index) {
    const COLORREF color = GetSysColor(index);
    known.insert(color_of({GetRValue(color), GetGValue(color), GetBValue(color)}));
  }
  for (const Color color : {kWhite, kInk, kMuted, kThin}) known.insert(color_of(color));
  for (const int pins : {9, 25}) {
    for (int pin = 1; pin <= pins; ++pin) known.insert(color_of(ColorOfPin(pins, pin)));
  }

  const std::vector<COLORREF> pixels = PixelsOf(window);
  const SIZE size = ClientSizeOf(window);
  const auto at = [&](LONG x, LONG y) { return pixels[static_cast<std::size_t>(y * size.cx + x)]; };
  // What the theme paints has colours of the theme's.
  std::vector<RECT> themed;
  for (const HWND control : ShownIn(window)) {
    const Text kind = ClassOf(control);
    if ((kind == u"Button" && !IsFrame(control)) || kind == u"ScrollBar") {
      themed.push_back(PlaceOf(control));
    }
    for (const LONG bar : {OBJID_HSCROLL, OBJID_VSCROLL}) {
      SCROLLBARINFO info{};
      info.cbSize = sizeof info;
      if (!GetScrollBarInfo(control, bar, &info)) continue;
      MapWindowPoints(HWND_DESKTOP, window, reinterpret_cast<POINT*>(&info.rcScrollBar), 2);
      themed.push_back(info.rcScrollBar);
    }
  }
  std::map<COLORREF, POINT> foreign;
  for (LONG y = 1; y + 1 < size.cy; ++y) {
    for (LONG x = 1; x + 1 < size.cx; ++x) {
      const COLORREF color = at(x, y);
      if (known.contains(color) || color != at(x - 1, y) || color != at(x + 1, y) ||
          color != at(x, y - 1) || color != at(x, y + 1)) {
        continue;
      }
      const POINT point{x, y};
      const bool is_themed = std::any_of(themed.begin(), themed.end(), [&](const RECT& place) {
        return PtInRect(&place, point) != 0;
      });
      if (!is_themed) foreign.try_emplace(color, point);
    }
  }
  Flaws flaws;
  for (const auto& [color, point] : foreign) {
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "#%06lX", static_cast<unsigned long>(color));
    flaws.push_back(std::string(name.data()) + " at " + std::to_string(point.x) + "," +
                    std::to_string(point.y));
  }
  return flaws;
}

}  // namespace conmuta::test
