// All windows at every size, font and resolution: nothing is cut, nothing is left over on the
// screen, and the focus is where one can type.
#include "every_window.h"
#include "message_font.h"
#include "window_rules.h"

namespace conmuta::test {
namespace {

using NoFlaws = std::vector<std::string>;

void UseDpi(HWND window, UINT dpi) {
  RECT place{};
  GetWindowRect(window, &place);
  Send(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), &place);
}

void ExpectPaintedAsFresh(const Person& person, HWND window) {
  const auto seen = PixelsOf(window);
  person.Repaint(window);
  const auto fresh = PixelsOf(window);
  ASSERT_EQ(seen.size(), fresh.size());
  std::size_t different = 0;
  for (std::size_t i = 0; i < seen.size(); ++i) different += seen[i] != fresh[i] ? 1 : 0;
  EXPECT_EQ(different, 0u) << "pixels of " << seen.size();
}

class LayoutTest : public EveryWindowTest {};

TEST_F(LayoutTest, DraggedBorderLeavesNothingBehind) {
  InEach([](const Person& person, HWND window) {
    SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    for (const POINT by : {POINT{140, 90}, POINT{-170, -120}, POINT{60, 40}, POINT{-25, 80}}) {
      const SIZE before = OuterSizeOf(window);
      person.DragCorner(window, by.x, by.y);
      const SIZE after = OuterSizeOf(window);
      EXPECT_TRUE(after.cx != before.cx || after.cy != before.cy) << "the border does not move";
      SCOPED_TRACE(std::to_string(after.cx) + "x" + std::to_string(after.cy));
      ExpectPaintedAsFresh(person, window);
    }
  });
}

TEST_F(LayoutTest, MaximisingAndRestoringLeavesNothingBehind) {
  InEach([](const Person& person, HWND window) {
    for (const WPARAM how : {SC_MAXIMIZE, SC_RESTORE}) {
      PostMessageW(window, WM_SYSCOMMAND, how, 0);
      person.host().Rest();
      ExpectPaintedAsFresh(person, window);
    }
  });
}

TEST_F(LayoutTest, NothingIsWrongWithAnyFontAtAnyResolution) {
  for (const int percent : {100, 125, 150, 175, 225}) {
    SCOPED_TRACE("message font of " + std::to_string(percent) + " %");
    const MessageFontOf font(percent);
    InEach([](const Person& person, HWND window) {
      for (const UINT dpi : {96u, 120u, 144u, 192u}) {
        SCOPED_TRACE(dpi);
        UseDpi(window, dpi);
        EXPECT_EQ(FlawsOf(window, dpi), NoFlaws());
        // As small as one can make it.
        person.Resize(window, 1, 1);
        EXPECT_EQ(FlawsOf(window, dpi), NoFlaws());
      }
    });
  }
}

TEST_F(LayoutTest, ColoursAreTheSystemsOrTheCables) {
  InEach([](const Person& person, HWND window) {
    SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    person.Repaint(window);
    EXPECT_EQ(ForeignColorsOf(window), NoFlaws());
  });
}

TEST_F(LayoutTest, FontThatChangesMeanwhileIsFollowed) {
  InEach([](const Person& person, HWND window) {
    const LONG before = FontOf(GetDlgItem(window, IDCANCEL)).lfHeight;
    const MessageFontOf font(175);
    Send(window, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS);
    person.host().Rest();
    EXPECT_LT(FontOf(GetDlgItem(window, IDCANCEL)).lfHeight, before) << "heights are negative";
    EXPECT_EQ(ClippedTextsOf(window), NoFlaws());
    ExpectPaintedAsFresh(person, window);
  });
}

TEST_F(LayoutTest, WindowsStayOnTheScreen) {
  InEach([](const Person& person, HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    for (const UINT dpi : {96u, 144u, 192u, 288u}) {
      SCOPED_TRACE(dpi);
      RECT place{500, 400, 500 + 3000, 400 + 2000};
      Send(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), &place);
      person.host().Rest();
      RECT outer{};
      GetWindowRect(window, &outer);
      RECT common{};
      IntersectRect(&common, &outer, &monitor.rcWork);
      EXPECT_TRUE(EqualRect(&common, &outer));
    }
  });
}

// Where a screen has no room for a window, one gets to everything with the keyboard all the same.
TEST_F(LayoutTest, WhatHasNoRoomIsScrolledIntoView) {
  const MessageFontOf font(225);
  InEach([](const Person& person, HWND window) {
    UseDpi(window, 288);
    person.host().Rest();
    const HWND first = person.Focus();
    do {
      const RECT place = PlaceOf(person.Focus());
      const SIZE client = ClientSizeOf(window);
      SCOPED_TRACE(GetDlgCtrlID(person.Focus()));
      EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.left < client.cx &&
                  place.top < client.cy);
      if (place.right - place.left <= client.cx && place.bottom - place.top <= client.cy) {
        EXPECT_TRUE(place.right <= client.cx && place.bottom <= client.cy);
      }
      person.Key(VK_TAB);
      person.host().Rest();
    } while (person.Focus() != first && !testing::Test::HasFailure());
    ExpectPaintedAsFresh(person, window);
  });
}

TEST_F(LayoutTest, BarsOfAWindowReachItsEnds) {
  const MessageFontOf font(225);
  int bars = 0;
  InEach([&](const Person& person, HWND window) {
    UseDpi(window, 288);
    person.host().Rest();
    for (const int bar : {SB_HORZ, SB_VERT}) {
      if (!HasStyle(window, bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL)) continue;
      ++bars;
      SCOPED_TRACE(bar == SB_HORZ ? "across" : "down");
      const auto place_after = [&](WPARAM how) {
        Send(window, bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL, how);
        const RECT place = PlaceOf(GetDlgItem(window, IDCANCEL));
        return bar == SB_HORZ ? place.left : place.top;
      };
      const LONG begin = place_after(SB_TOP);
      EXPECT_LT(place_after(SB_LINEDOWN), begin);
      const LONG range = begin - place_after(SB_BOTTOM);
      SCROLLINFO info{};
      info.cbSize = sizeof info;
      info.fMask = SIF_ALL;
      GetScrollInfo(window, bar, &info);
      EXPECT_EQ(info.nPos, range);
      EXPECT_EQ(info.nMax + 1 - static_cast<int>(info.nPage), range);
      EXPECT_GT(place_after(SB_LINEUP), begin - range);
      EXPECT_EQ(place_after(SB_TOP), begin);
    }
  });
  EXPECT_GT(bars, 0);
}

TEST_F(LayoutTest, EveryControlHasAName) {
  InEach([](const Person&, HWND window) {
    for (const HWND control : ChildrenOf(window)) {
      if (!IsShown(control)) continue;
      const Text name = NameOf(control);
      // An empty label or frame has nothing to name.
      const bool may_be_empty =
          GetDlgCtrlID(control) == win32::kFrame1 || ClassOf(control) == u"Static";
      EXPECT_TRUE(!name.empty() || may_be_empty) << GetDlgCtrlID(control);
    }
  });
}

TEST_F(LayoutTest, ButtonThatEnterPressesIsTheOneThatLooksSo) {
  InEach([](const Person& person, HWND window) {
    const HWND first = person.Focus();
    do {
      std::vector<int> ringed;
      for (const HWND control : ChildrenOf(window)) {
        if (ClassOf(control) == u"Button" &&
            (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON) {
          ringed.push_back(GetDlgCtrlID(control));
        }
      }
      const LRESULT pressed = Send(window, DM_GETDEFID);
      std::vector<int> expected;
      if (HIWORD(pressed) == DC_HASDEFID) expected.push_back(LOWORD(pressed));
      EXPECT_EQ(ringed, expected) << "with the focus on " << GetDlgCtrlID(person.Focus());
      person.Key(VK_TAB);
    } while (person.Focus() != first);
  });
}

TEST_F(LayoutTest, FocusComesBackWithTheWindow) {
  InEach([](const Person& person, HWND window) {
    person.Key(VK_TAB);
    const HWND focus = person.Focus();
    HWND other = nullptr;
    person.host().Run([&] {
      other = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100,
                              100, nullptr, nullptr, nullptr, nullptr);
      SetForegroundWindow(other);
      SetFocus(other);
    });
    person.host().Run([&] {
      SetForegroundWindow(window);
      DestroyWindow(other);
    });
    person.host().Rest();
    EXPECT_EQ(person.Focus(), focus);
  });
}

class LongNamesTest : public EveryWindowTest {
 protected:
  LongNamesTest() : EveryWindowTest(Text(50, u'M'), Text(50, u'W')) {}
  const Text name_ = Text(50, u'M') + u", " + Text(50, u'W');
};

TEST_F(LongNamesTest, AreShortenedAndSaidWholeByTheToolTip) {
  While([&] { Open("manager"); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kManagerCaption);
          const HWND button = GetDlgItem(window, win32::kBtnDesinstalar);
          EXPECT_TRUE(TextOf(button).ends_with(u"..."));
          EXPECT_EQ(ToolTipOf(button), u"Conmutador predeterminado\r\n" + name_);
          EXPECT_EQ(ToolTipOf(GetDlgItem(window, win32::kFrame1)),
                    TextOf(GetDlgItem(window, win32::kFrame1)));
          EXPECT_EQ(ToolTipOf(GetDlgItem(window, win32::kEtqArch)), folder_.Path(u"cnm1.cfg"));
          EXPECT_EQ(ClippedTextsOf(window), NoFlaws());
          PostMessageW(window, WM_CLOSE, 0, 0);
        });
  While([&] { Open("edited cable"); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kCableCaption);
          const HWND label = GetDlgItem(window, win32::kEtqConmutador);
          EXPECT_TRUE(TextOf(label).ends_with(u"..."));
          EXPECT_EQ(ToolTipOf(label), u"Conmutador\r\n" + name_);
          EXPECT_EQ(ClippedTextsOf(window), NoFlaws());
          PostMessageW(window, WM_CLOSE, 0, 0);
        });
}

// What a command takes away may have had the focus.
TEST_F(LayoutTest, DeletedModelLeavesTheFocusWhereOneCanType) {
  While([&] { Open("manager"); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kManagerCaption);
          const HWND tree = GetDlgItem(window, win32::kTvConmutadores);
          person.SetFocusTo(GetDlgItem(window, win32::kBtnEliminar));
          person.Key(VK_SPACE);
          person.Answer(u"Advertencia", IDYES);
          person.host().Rest();
          EXPECT_EQ(person.Focus(), tree);
          person.Key(VK_TAB);
          EXPECT_EQ(person.Focus(), GetDlgItem(window, win32::kBtnBuscar));
          person.Key(VK_ESCAPE);
          person.WaitUntilClosed(window);
        });
}

TEST_F(LayoutTest, RemovedDefaultSwitchLeavesNoMark) {
  While([&] { Open("manager"); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kManagerCaption);
          const HWND button = GetDlgItem(window, win32::kBtnDesinstalar);
          const HWND frame = GetDlgItem(window, win32::kFrame1);
          const HWND tree = GetDlgItem(window, win32::kTvConmutadores);
          for (const std::size_t item : {0u, 2u}) {
            Send(tree, TVM_SELECTITEM, TVGN_CARET,
                 reinterpret_cast<LPARAM>(ItemsOf(tree).at(item).item));
          }
          EXPECT_EQ(TextOf(frame), u">> Panasonic, KX-TD1232 <<");
          person.Press(button);
          person.Answer(u"Conmutadores", IDYES);
          person.Answer(u"Conmutadores", IDOK);
          person.host().Rest();
          EXPECT_EQ(TextOf(frame), u"Panasonic, KX-TD1232");
          EXPECT_LT(FontOf(button).lfWeight, FW_BOLD);
          PostMessageW(window, WM_CLOSE, 0, 0);
        });
}

TEST_F(LayoutTest, ConfigurationReportShowsAllItsColumnsAtItsStatedSize) {
  While([&] { Do(TypicalConfig(), &Cfg::MostrarInformacionConfiguracion); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kInfoCaption);
          const HWND text = GetDlgItem(window, win32::kTxtInfo);
          EXPECT_FALSE(HasStyle(text, WS_HSCROLL));
          const Text shown = TextOf(text);
          const auto heading = shown.find(u"T-DATO");
          ASSERT_NE(heading, Text::npos);
          const auto end = static_cast<short>(LOWORD(Send(text, EM_POSFROMCHAR, heading + 5)));
          EXPECT_LT(end, ClientSizeOf(text).cx - 5);
          person.Press(GetDlgItem(window, win32::kBtnCerrar));
        });
}

}  // namespace
}  // namespace conmuta::test
