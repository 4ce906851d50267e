// The mouse draws wires in the cable editor.
#include "cable_editor.h"
#include "replaced_import.h"

namespace conmuta::test {
namespace {

using win32::kDiagram;

TEST_F(CableWindowTest, ClickOnALeftPinChoosesIt) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Edit(config, [](const Editor& editor) {
    editor.ClickPin(Side::kLeft, 4);
    EXPECT_EQ(TextOf(editor.pin()), u"4");
    EXPECT_EQ(editor.List(), u"1,6,");
    editor.ClickPin(Side::kLeft, 9);
    EXPECT_EQ(TextOf(editor.pin()), u"9");
    editor.ClickPin(Side::kRight, 4);
    EXPECT_EQ(TextOf(editor.pin()), u"9") << "a right pin is none";
    editor.person().Click(editor.At(kDiagram), {3, 3});
    EXPECT_EQ(TextOf(editor.pin()), u"9") << "beside the connectors is none";
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, DragFromLeftToRightTogglesAWire) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Edit(config, [](const Editor& editor) {
    editor.DragWire(9, 9);
    EXPECT_EQ(TextOf(editor.pin()), u"9");
    EXPECT_EQ(editor.List(), u"9,");
    editor.DragWire(4, 6);
    EXPECT_EQ(editor.List(), u"1,");
    editor.DragWire(9, 1);
    EXPECT_EQ(editor.List(), u"1,9,");
    editor.Accept();
  });
  Wires expected = NullModem(1);
  expected.erase({1, 4, 6});
  expected.insert({{1, 9, 9}, {1, 9, 1}});
  EXPECT_EQ(WiresOf(config), expected);
}

TEST_F(CableWindowTest, DragThatEndsOnNoRightPinWiresNothing) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    const HWND view = editor.At(kDiagram);
    const POINT from = editor.PinAt(Side::kLeft, 1);
    editor.person().Drag(view, from, editor.PinAt(Side::kLeft, 5));
    editor.person().Drag(view, from, {from.x + 80, from.y});
    editor.person().Drag(view, from, {-50, -50});
    editor.person().Drag(view, editor.PinAt(Side::kRight, 1), editor.PinAt(Side::kRight, 2));
    EXPECT_EQ(editor.List(), u"");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), Wires());
}

TEST_F(CableWindowTest, DragThatIsInterruptedWiresNothing) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    const HWND view = editor.At(kDiagram);
    const POINT from = editor.PinAt(Side::kLeft, 1);
    const POINT to = editor.PinAt(Side::kRight, 1);
    PostMessageW(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
    editor.person().host().Drain();
    editor.person().host().Run([] { ReleaseCapture(); });
    PostMessageW(view, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
    editor.person().host().Drain();
    EXPECT_EQ(editor.List(), u"");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), Wires());
}

TEST_F(CableWindowTest, EveryPinOfEveryPairCanBeClickedAndWired) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    for (int pair = 1; pair <= 4; ++pair) {
      editor.Choose(pair);
      const int left_pins = pair <= 2 ? 9 : 25;
      const int right_pins = pair % 2 == 1 ? 9 : 25;
      for (int left = 1; left <= left_pins; ++left) {
        const int right = std::min(left, right_pins);
        // The farther half of a long connector has to be scrolled into view.
        Send(editor.window(), WM_VSCROLL, static_cast<WPARAM>(left > 13 ? SB_BOTTOM : SB_TOP),
             reinterpret_cast<LPARAM>(editor.scroll()));
        editor.DragWire(left, right);
        EXPECT_EQ(TextOf(editor.pin()), ToText(left));
        EXPECT_EQ(editor.List(), ToText(right) + u",") << pair << ':' << left;
      }
    }
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, DiagramIsPainted) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Edit(config, [](const Editor& editor) {
    const HWND view = editor.At(kDiagram);
    const auto colors = [&] {
      RedrawWindow(view, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
      editor.person().host().Drain();
      const POINT pin = editor.PinAt(Side::kLeft, 4);
      return std::pair(PixelOf(view, pin.x, pin.y - editor.LineHeight() / 2 + 1),
                       PixelOf(view, 1, 1));
    };
    const auto before = colors();
    EXPECT_EQ(before.second, RGB(255, 255, 255));
    editor.TypePin(u"4");
    EXPECT_NE(colors().first, before.first) << "the current pin is filled";
    editor.Cancel();
  });
}

std::set<std::string> faces;

HFONT WINAPI RecordFace(int height, int width, int escapement, int orientation, int weight,
                        DWORD italic, DWORD underline, DWORD strike_out, DWORD charset,
                        DWORD precision, DWORD clipping, DWORD quality, DWORD pitch, LPCSTR face) {
  faces.insert(face);
  return CreateFontA(height, width, escapement, orientation, weight, italic, underline, strike_out,
                     charset, precision, clipping, quality, pitch, face);
}

TEST_F(CableWindowTest, DiagramIsLabelledInArial) {
  faces.clear();
  const auto config = NamedConfig();
  const ReplacedImport recorded("CreateFontA", reinterpret_cast<void*>(&RecordFace));
  Edit(config, [](const Editor& editor) {
    editor.person().Repaint(editor.window());
    editor.Cancel();
  });
  EXPECT_EQ(faces, std::set<std::string>{"Arial"});
}

}  // namespace
}  // namespace conmuta::test
