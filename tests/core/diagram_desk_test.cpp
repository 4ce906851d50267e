// Mouse and keyboard in the diagram of a cable.
#include "cable/diagram_desk.h"

#include <gtest/gtest.h>

#include <cmath>

#include "cable/wiring_text.h"
#include "support/config_snapshot.h"
#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using test::Shown;
using Key = DiagramDesk::Key;

class Desk : public testing::Test, protected EditorBench {
 protected:
  Desk() {
    editor.Modificar(true);
    desk.Resize(600, 550, 1);
    repainted.clear();
  }
  void SetUp() override {
    // As a window would.
    view.updated = [this] { desk.Refresh(); };
  }

  Point At(Side side, int pin) const {
    const Point center = desk.diagram().Find(side, pin)->center;
    return {desk.origin().x + center.x * desk.scale(), desk.origin().y + center.y * desk.scale()};
  }
  void Drag(Point from, Point to) {
    desk.Press(from);
    desk.Move({(from.x + to.x) / 2, (from.y + to.y) / 2});
    desk.Move(to);
    desk.Release(to);
  }
  std::string Wires() const { return Shown(WiringList(editor.opcPuerto(), editor.table())); }
  void Press(std::initializer_list<Key> keys) {
    for (const Key key : keys) desk.Press(key);
  }
  std::vector<int> Emphasised() const {
    std::vector<int> lefts;
    for (const WireShape& wire : desk.diagram().wires) {
      if (wire.emphasised) lefts.push_back(wire.left);
    }
    return lefts;
  }
  int Caret(Side side) const {
    for (const PinShape& pin : desk.diagram().pins) {
      if (pin.marked) return pin.side == side ? pin.number : 0;
    }
    return -1;
  }
  double RepaintedArea() {
    double area = 0;
    for (const Box& box : repainted) area += (box.right - box.left) * (box.bottom - box.top);
    repainted.clear();
    return area;
  }

  std::vector<Box> repainted;
  DiagramDesk desk{editor, [this](const std::vector<Box>& boxes) {
                     repainted.insert(repainted.end(), boxes.begin(), boxes.end());
                   }};
};

// --- the mouse ---

TEST_F(Desk, WireIsDrawnFromEitherSide) {
  Drag(At(Side::kLeft, 2), At(Side::kRight, 3));
  EXPECT_EQ(Wires(), Shown(u"2 - 3\r\n"));
  Drag(At(Side::kRight, 4), At(Side::kLeft, 6));
  EXPECT_EQ(Wires(), Shown(u"2 - 3\r\n6 - 4\r\n"));
  Drag(At(Side::kRight, 3), At(Side::kLeft, 2));
  EXPECT_EQ(Wires(), Shown(u"6 - 4\r\n")) << "drawn again, it is cut";
}

TEST_F(Desk, WireThatEndsOnNoPinOfTheOtherSideIsNone) {
  for (const Point end : {At(Side::kLeft, 5), Point{300, 5}, Point{-400, 9000}}) {
    Drag(At(Side::kLeft, 1), end);
    EXPECT_FALSE(desk.loose());
    EXPECT_FALSE(desk.is_dragging());
  }
  Drag(At(Side::kRight, 1), At(Side::kRight, 2));
  EXPECT_EQ(Wires(), "");
}

TEST_F(Desk, LooseWireFollowsThePointer) {
  desk.Press(At(Side::kLeft, 3));
  EXPECT_TRUE(desk.is_dragging());
  desk.Move({300, 200});
  ASSERT_TRUE(desk.loose());
  const Point end = desk.loose()->end;
  EXPECT_NEAR(desk.origin().x + end.x * desk.scale(), 300, 1e-9);
  EXPECT_NEAR(desk.origin().y + end.y * desk.scale(), 200, 1e-9);
  desk.Interrupt();
  EXPECT_FALSE(desk.loose());
  EXPECT_FALSE(desk.is_dragging());
  desk.Release(At(Side::kRight, 3));
  EXPECT_EQ(Wires(), "");
}

TEST_F(Desk, PinUnderThePointerShowsItsWires) {
  Wire(1, 1, 4);
  Wire(1, 6, 4);
  Wire(1, 2, 3);
  editor.PuertoActivo(emPuertoSerialDB9DB9);
  desk.Move(At(Side::kRight, 4));
  EXPECT_EQ(Emphasised(), (std::vector<int>{1, 6}));
  EXPECT_EQ(Shown(desk.hint()), "Conmutador 4: 1, 6");
  desk.Move(At(Side::kLeft, 2));
  EXPECT_EQ(Emphasised(), std::vector<int>{2});
  EXPECT_EQ(Shown(desk.hint()), "Computadora 2 (RXD): 3");
  desk.Leave();
  EXPECT_TRUE(Emphasised().empty());
}

TEST_F(Desk, ClickOnALeftPinTypesIt) {
  Drag(At(Side::kLeft, 7), At(Side::kLeft, 7));
  EXPECT_EQ(editor.txtPinIzq(), u"7");
  Drag(At(Side::kRight, 3), At(Side::kRight, 3));
  EXPECT_EQ(editor.txtPinIzq(), u"7");
}

TEST_F(Desk, ViewingShowsButDrawsNothing) {
  editor.Modificar(false);
  Drag(At(Side::kLeft, 2), At(Side::kRight, 3));
  Drag(At(Side::kRight, 3), At(Side::kLeft, 2));
  EXPECT_FALSE(desk.is_dragging());
  EXPECT_FALSE(desk.Takes(Key::kAct));
  EXPECT_FALSE(desk.Takes(Key::kDelete));
  Press({Key::kAct, Key::kRight, Key::kAct, Key::kDelete});
  EXPECT_EQ(editor.wiring(), Wiring());
  desk.Focus(true);
  Press({Key::kLeft, Key::kHome, Key::kDown});
  EXPECT_EQ(Shown(desk.hint()), "Computadora 2 (RXD): sin cables");
}

// --- the keyboard ---

TEST_F(Desk, ArrowsWalkThePins) {
  desk.Focus(true);
  EXPECT_EQ(Caret(Side::kLeft), 1);
  Press({Key::kDown, Key::kDown});
  EXPECT_EQ(Caret(Side::kLeft), 3);
  EXPECT_EQ(editor.txtPinIzq(), u"3");
  Press({Key::kEnd, Key::kDown});
  EXPECT_EQ(Caret(Side::kLeft), 9);
  Press({Key::kHome, Key::kUp});
  EXPECT_EQ(Caret(Side::kLeft), 1);
  Press({Key::kRight});
  EXPECT_EQ(Caret(Side::kRight), 1) << "level with it";
  EXPECT_EQ(editor.txtPinIzq(), u"1");
  Press({Key::kDown, Key::kRight});
  EXPECT_EQ(Caret(Side::kRight), 2);
  desk.Focus(false);
  EXPECT_EQ(Caret(Side::kRight), -1);
}

TEST_F(Desk, WireIsDrawnWithTheKeyboard) {
  desk.Focus(true);
  Press({Key::kDown, Key::kAct, Key::kRight, Key::kDown});
  EXPECT_TRUE(desk.loose());
  EXPECT_EQ(Shown(desk.hint()), "Cable desde Computadora 2; termina en un pin del otro lado");
  Press({Key::kAct});
  EXPECT_FALSE(desk.loose());
  EXPECT_EQ(Wires(), Shown(u"2 - 3\r\n"));
  Press({Key::kAct, Key::kLeft, Key::kHome, Key::kAct});
  EXPECT_EQ(Wires(), Shown(u"1 - 3\r\n2 - 3\r\n")) << "from the switch's side, too";
  Press({Key::kRight, Key::kHome, Key::kDown, Key::kDown, Key::kDelete});
  EXPECT_EQ(Wires(), "") << "both ended there";
}

TEST_F(Desk, BeginningAgainOnTheSameSideMovesTheBeginning) {
  desk.Focus(true);
  Press({Key::kAct, Key::kDown, Key::kAct, Key::kRight, Key::kAct});
  EXPECT_EQ(Wires(), Shown(u"2 - 2\r\n"));
  Press({Key::kAct, Key::kAct});
  EXPECT_FALSE(desk.loose()) << "twice on one pin is a change of mind";
}

TEST_F(Desk, EscapeDropsTheWireFirst) {
  EXPECT_FALSE(desk.Escape());
  desk.Press(At(Side::kLeft, 3));
  desk.Move({300, 200});
  EXPECT_TRUE(desk.Escape());
  EXPECT_FALSE(desk.loose());
  EXPECT_FALSE(desk.Escape()) << "the second one is for the window";
  desk.Release(At(Side::kRight, 3));
  desk.Focus(true);
  Press({Key::kAct, Key::kRight});
  EXPECT_TRUE(desk.Escape());
  Press({Key::kAct});
  EXPECT_TRUE(desk.Escape()) << "what was dropped does not end here";
  EXPECT_EQ(Wires(), "");
}

TEST_F(Desk, LeavingTheDiagramDropsTheWire) {
  desk.Focus(true);
  Press({Key::kAct, Key::kRight});
  desk.Focus(false);
  EXPECT_FALSE(desk.loose());
  EXPECT_FALSE(desk.Escape());
}

TEST_F(Desk, EveryWireOfEveryPairCanBeDrawnWithTheKeyboard) {
  desk.Focus(true);
  for (int pair = 1; pair <= 4; ++pair) {
    const auto code = test::Pair(pair);
    editor.ChoosePair(code);
    for (int left = 1; left <= LeftPins(code); ++left) {
      const int right = 1 + left % RightPins(code);
      Press({Key::kLeft, Key::kHome});
      for (int i = 1; i < left; ++i) desk.Press(Key::kDown);
      Press({Key::kAct, Key::kRight, Key::kHome});
      for (int i = 1; i < right; ++i) desk.Press(Key::kDown);
      Press({Key::kAct});
      ASSERT_TRUE(IsWired(editor.table(), left, right)) << pair << ": " << left;
    }
  }
}

// --- what is in view ---

TEST_F(Desk, PictureGrowsWithTheViewUpToAComfortableSize) {
  double before = 0;
  for (const double size : {450.0, 600.0, 700.0, 800.0}) {
    desk.Resize(size, size, 1);
    EXPECT_GT(desk.scale(), before) << size;
    before = desk.scale();
  }
  desk.Resize(4000, 4000, 1);
  EXPECT_EQ(desk.scale(), 1.75);
  desk.Resize(4000, 4000, 2);
  EXPECT_EQ(desk.scale(), 3.5);
  EXPECT_GT(desk.origin().x, 0) << "it stands in the middle";
  desk.Resize(200, 4000, 1);
  EXPECT_LE(desk.diagram().width * desk.scale(), 200 + 1e-9) << "never cut at the side";
}

TEST_F(Desk, CaretIsScrolledIntoView) {
  editor.ChoosePair(emPuertoSerialDB25DB25);
  desk.Resize(600, 200, 1);
  EXPECT_GT(desk.range(), 0);
  desk.Focus(true);
  for (int i = 0; i < 30; ++i) {
    desk.Press(Key::kDown);
    for (const PinShape& pin : desk.diagram().pins) {
      if (!pin.marked) continue;
      const double y = desk.origin().y + pin.center.y * desk.scale();
      EXPECT_GT(y - pin.radius, 0);
      EXPECT_LT(y + pin.radius, 200);
    }
  }
  desk.ScrollTo(1e9);
  EXPECT_EQ(desk.scrolled(), desk.range());
  desk.ScrollTo(-5);
  EXPECT_EQ(desk.scrolled(), 0);
}

TEST_F(Desk, OnlyWhatChangesIsPainted) {
  Wire(1, 1, 4);
  Wire(1, 2, 3);
  Wire(1, 5, 5);
  editor.PuertoActivo(emPuertoSerialDB9DB9);
  RepaintedArea();
  const double whole = 600 * 550;
  desk.Move({3, 3});
  EXPECT_EQ(RepaintedArea(), 0) << "nothing is there";
  desk.Press(At(Side::kLeft, 5));
  RepaintedArea();
  desk.Move({300, 300});
  desk.Move({305, 302});
  EXPECT_GT(repainted.size(), 0u);
  EXPECT_LT(RepaintedArea(), whole / 4);
  desk.Refresh();
  EXPECT_EQ(RepaintedArea(), 0) << "nothing has changed";
  editor.ChoosePair(emPuertoSerialDB25DB25);
  EXPECT_GE(RepaintedArea(), whole);
}

}  // namespace
}  // namespace conmuta
