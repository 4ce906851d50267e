// The diagram of a large cable in a small window.
#include "cable_editor.h"

namespace conmuta::test {
namespace {

using win32::kBtnAceptar;
using win32::kBtnCancelar;
using win32::kDiagram;

// Chosen for lines 15 pixels high: wide enough that wires are told apart, and no wider.
TEST_F(CableWindowTest, OpensWithRoomForTheDiagram) {
  Edit(NamedConfig(), [](const Editor& editor) {
    EXPECT_EQ(ClientSizeOf(editor.At(kDiagram)).cx, MulDiv(560, editor.LineHeight(), 15));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, BarIsDisabledWhenAllFits) {
  Edit(NamedConfig(), [](const Editor& editor) {
    EXPECT_TRUE(IsShown(editor.scroll()));
    EXPECT_FALSE(IsUsable(editor.scroll()));
    editor.Choose(4);
    EXPECT_FALSE(IsUsable(editor.scroll())) << "all of a DB25 is seen";
    const SIZE outer = OuterSizeOf(editor.window());
    editor.MakeLow();
    EXPECT_TRUE(IsUsable(editor.scroll()));
    editor.person().Resize(editor.window(), static_cast<int>(outer.cx), static_cast<int>(outer.cy));
    EXPECT_FALSE(IsUsable(editor.scroll()));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, BarScrollsTheDiagram) {
  Edit(NamedConfig(), [](const Editor& editor) {
    editor.Choose(4);
    editor.MakeLow();
    const auto scroll = [&](WPARAM how) {
      PostMessageW(editor.window(), WM_VSCROLL, how, reinterpret_cast<LPARAM>(editor.scroll()));
      editor.person().host().Drain();
      return editor.Scrolled();
    };
    EXPECT_EQ(editor.Scrolled(), 0);
    const int line = scroll(SB_LINEDOWN);
    EXPECT_GT(line, 0);
    editor.ClickPin(Side::kLeft, 2);
    EXPECT_EQ(TextOf(editor.pin()), u"2") << "pins are where they are seen";
    EXPECT_EQ(editor.Scrolled(), line);
    const int end = scroll(SB_BOTTOM);
    EXPECT_GT(end, line);
    editor.ClickPin(Side::kLeft, 13);
    EXPECT_EQ(TextOf(editor.pin()), u"13");
    EXPECT_EQ(scroll(SB_PAGEDOWN), end) << "not beyond the end";
    EXPECT_EQ(scroll(SB_LINEUP), end - line);
    EXPECT_EQ(scroll(SB_TOP), 0);
    EXPECT_EQ(scroll(SB_PAGEUP), 0);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    Send(editor.scroll(), SBM_GETSCROLLINFO, 0, &info);
    EXPECT_NEAR(static_cast<double>(end), info.nMax - static_cast<int>(info.nPage) + 1, 1);
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, BarWorksByKeyboardAndWheel) {
  Edit(NamedConfig(), [](const Editor& editor) {
    editor.Choose(4);
    editor.MakeLow();
    editor.person().SetFocusTo(editor.scroll());
    editor.person().Key(VK_DOWN);
    const int line = editor.Scrolled();
    EXPECT_GT(line, 0);
    editor.person().Key(VK_END);
    EXPECT_GT(editor.Scrolled(), line);
    editor.person().Key(VK_HOME);
    EXPECT_EQ(editor.Scrolled(), 0);
    PostMessageW(editor.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    editor.person().host().Drain();
    EXPECT_GT(editor.Scrolled(), 0);
    PostMessageW(editor.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, 10 * WHEEL_DELTA), 0);
    editor.person().host().Drain();
    EXPECT_EQ(editor.Scrolled(), 0);
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, EnlargingScrollsBackWhatIsNoLongerHidden) {
  Edit(NamedConfig(), [](const Editor& editor) {
    editor.Choose(4);
    editor.MakeLow();
    Send(editor.window(), WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(editor.scroll()));
    const SIZE outer = OuterSizeOf(editor.window());
    editor.person().Resize(editor.window(), outer.cx, outer.cy + 400);
    EXPECT_EQ(editor.Scrolled(), 0);
    editor.ClickPin(Side::kLeft, 25);
    EXPECT_EQ(TextOf(editor.pin()), u"25");
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, DiagramTakesWhatTheWindowGains) {
  Edit(NamedConfig(), [](const Editor& editor) {
    const RECT diagram = PlaceOf(editor.At(kDiagram));
    const RECT accept = PlaceOf(editor.At(kBtnAceptar));
    const RECT cancel = PlaceOf(editor.At(kBtnCancelar));
    const RECT list = PlaceOf(editor.list());
    const SIZE outer = OuterSizeOf(editor.window());
    editor.person().Resize(editor.window(), outer.cx + 200, outer.cy + 100);
    EXPECT_EQ(PlaceOf(editor.At(kDiagram)).right, diagram.right + 200);
    EXPECT_EQ(PlaceOf(editor.At(kDiagram)).bottom, diagram.bottom + 100);
    EXPECT_EQ(PlaceOf(editor.At(kDiagram)).top, diagram.top);
    EXPECT_EQ(PlaceOf(editor.At(kBtnAceptar)).left, accept.left + 200);
    EXPECT_EQ(PlaceOf(editor.At(kBtnCancelar)).top, cancel.top + 100);
    EXPECT_EQ(PlaceOf(editor.list()).right, list.right + 200);
    editor.ClickPin(Side::kLeft, 3);
    editor.DragWire(3, 7);
    EXPECT_EQ(editor.List(), u"7,");
    editor.Cancel();
  });
}

}  // namespace
}  // namespace conmuta::test
