// The report in an information window of any size.
#include <string>

#include "info_window.h"

namespace conmuta::test {
namespace {

struct Fit {
  bool down;    // the vertical bar shows
  bool across;  // the horizontal one
  double rows;  // of the text to those that have room
  double columns;
};

Fit FitOf(HWND text) {
  SIZE cell{};
  const HDC dc = GetDC(text);
  const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(Send(text, WM_GETFONT)));
  GetTextExtentPoint32W(dc, L"M", 1, &cell);
  SelectObject(dc, before);
  ReleaseDC(text, dc);
  std::size_t longest = 0;
  const Text shown = TextOf(text);
  int lines = 0;
  for (std::size_t from = 0, end; (end = shown.find(kLineBreak, from)) != Text::npos;
       from = end + 2) {
    longest = std::max(longest, end - from);
    ++lines;
  }
  const SIZE client = ClientSizeOf(text);
  return {
      HasStyle(text, WS_VSCROLL), HasStyle(text, WS_HSCROLL),
      static_cast<double>(lines * cell.cy) / static_cast<double>(client.cy),
      static_cast<double>(longest) * static_cast<double>(cell.cx) / static_cast<double>(client.cx)};
}

TEST_F(InfoWindowTest, ScrollBarsShowOnlyWhenNeeded) {
  for (const auto& config : {NewConfig(), TypicalConfig(), CrowdedConfig()}) {
    WhileShown(config, [](const Person& person, HWND window, HWND text, HWND close) {
      for (int width = 300; width <= 900; width += 150) {
        for (int height = 200; height <= 1000; height += 200) {
          person.Resize(window, Scaled(width), Scaled(height));
          const Fit fit = FitOf(text);
          SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height) + ": " +
                       std::to_string(fit.rows) + " rows, " + std::to_string(fit.columns) +
                       " columns");
          if (fit.rows > 1) {
            EXPECT_TRUE(fit.down);
          }
          if (fit.columns > 1) {
            EXPECT_TRUE(fit.across);
          }
          // A bar takes some room of its own; well below that, none is needed.
          if (fit.rows < 0.8 && !fit.across) {
            EXPECT_FALSE(fit.down);
          }
          if (fit.columns < 0.9 && !fit.down) {
            EXPECT_FALSE(fit.across);
          }
        }
      }
      person.Press(close);
    });
  }
}

TEST_F(InfoWindowTest, TextTakesWhatTheWindowGains) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    const SIZE client = ClientSizeOf(window);
    const RECT text_before = PlaceOf(text);
    const RECT close_before = PlaceOf(close);
    const SIZE outer = OuterSizeOf(window);
    person.Resize(window, outer.cx + 120, outer.cy + 70);
    EXPECT_EQ(ClientSizeOf(window).cx, client.cx + 120);
    const RECT text_after = PlaceOf(text);
    const RECT close_after = PlaceOf(close);
    EXPECT_EQ(text_after.left, text_before.left);
    EXPECT_EQ(text_after.top, text_before.top);
    EXPECT_EQ(text_after.right, text_before.right + 120);
    EXPECT_EQ(text_after.bottom, text_before.bottom + 70);
    EXPECT_EQ(close_after.left, close_before.left + 120);
    EXPECT_EQ(close_after.top, close_before.top + 70);
    EXPECT_LT(text_after.bottom, close_after.top);
    EXPECT_LT(close_after.bottom, ClientSizeOf(window).cy);
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, HasALeastSize) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    MINMAXINFO limits{};
    Send(window, WM_GETMINMAXINFO, 0, &limits);
    EXPECT_GE(limits.ptMinTrackSize.x, Scaled(200));
    person.Resize(window, limits.ptMinTrackSize.x, limits.ptMinTrackSize.y);
    EXPECT_GT(ClientSizeOf(text).cx, 0);
    EXPECT_GT(ClientSizeOf(text).cy, 0);
    EXPECT_GE(PlaceOf(close).left, 0);
    EXPECT_GE(PlaceOf(close).top, PlaceOf(text).bottom);
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, FollowsTheScreensResolution) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    const LONG font_before = FontOf(text).lfHeight;
    const SIZE close_before = OuterSizeOf(close);
    RECT place{};
    GetWindowRect(window, &place);
    const UINT twice = 2 * static_cast<UINT>(Scaled(96));
    place.right = place.left + 2 * (place.right - place.left);
    place.bottom = place.top + 2 * (place.bottom - place.top);
    Send(window, WM_DPICHANGED, MAKEWPARAM(twice, twice), &place);
    // Fonts come in whole pixels.
    EXPECT_NEAR(static_cast<double>(FontOf(text).lfHeight), 2.0 * font_before, 2);
    EXPECT_NEAR(static_cast<double>(OuterSizeOf(close).cx), 2.0 * close_before.cx, 8);
    EXPECT_EQ(OuterSizeOf(window).cx, 2 * Scaled(567));
    person.Press(close);
  });
}

}  // namespace
}  // namespace conmuta::test
