// Working on the cable in its diagram: the same as typing.
#include <gtest/gtest.h>

#include "support/config_snapshot.h"
#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using test::Pair;

class CableEditorDiagram : public testing::Test, protected EditorBench {
 protected:
  CableEditorDiagram() {
    editor.Modificar(true);
    editor.PuertoActivo(emPuertoSerialDB25DB25);
  }
};

TEST_F(CableEditorDiagram, PickedPinIsTyped) {
  for (int pin = 1; pin <= 25; ++pin) {
    editor.PickLeftPin(pin);
    EXPECT_EQ(editor.txtPinIzq(), ToText(pin));
    EXPECT_EQ(editor.PinIZQ(), pin);
    EXPECT_EQ(editor.shown_pin(), pin);
    EXPECT_TRUE(editor.list_enabled());
  }
}

TEST_F(CableEditorDiagram, PickedPinShowsItsList) {
  Wire(4, 12, 2);
  Wire(4, 12, 25);
  editor.PickLeftPin(12);
  EXPECT_EQ(editor.txtPinesConectados(), u"2,25,");
}

TEST_F(CableEditorDiagram, PinThatThePairLacksIsNotPicked) {
  editor.PuertoActivo(emPuertoSerialDB9DB9);
  editor.PickLeftPin(2);
  for (const int pin : {0, -1, 10, 26, 2147483647}) {
    editor.PickLeftPin(pin);
    EXPECT_FALSE(editor.list_enabled()) << pin;
    EXPECT_EQ(editor.shown_pin(), 0) << pin;
    EXPECT_EQ(editor.PinIZQ(), 2) << pin;
  }
}

TEST_F(CableEditorDiagram, DrawnWireIsAddedToTheList) {
  editor.ToggleWire(7, 3);
  EXPECT_EQ(editor.txtPinIzq(), u"7");
  EXPECT_EQ(editor.txtPinesConectados(), u"3,");
  EXPECT_EQ(editor.PinDER(), 3);
  editor.ToggleWire(7, 25);
  EXPECT_EQ(editor.txtPinesConectados(), u"3,25,");
  EXPECT_EQ(Mask(4, 7), EditorBench::Pins({3, 25}));
  editor.ToggleWire(8, 3);
  EXPECT_EQ(editor.txtPinIzq(), u"8");
  EXPECT_EQ(editor.txtPinesConectados(), u"3,");
  EXPECT_EQ(Mask(4, 7), EditorBench::Pins({3, 25}));
}

TEST_F(CableEditorDiagram, WireDrawnAgainIsCut) {
  editor.ToggleWire(7, 3);
  editor.ToggleWire(7, 1);
  editor.ToggleWire(7, 3);
  EXPECT_EQ(editor.txtPinesConectados(), u"1,");
  editor.ToggleWire(7, 1);
  EXPECT_EQ(editor.txtPinesConectados(), u"");
  EXPECT_TRUE(editor.list_enabled());
  EXPECT_EQ(editor.wiring(), Wiring());
}

TEST_F(CableEditorDiagram, EveryWireOfEveryPairCanBeDrawn) {
  for (int pair = 1; pair <= 4; ++pair) {
    editor.ChoosePair(Pair(pair));
    for (int left = 1; left <= LeftPins(Pair(pair)); ++left) {
      for (int right = 1; right <= RightPins(Pair(pair)); ++right) {
        editor.ToggleWire(left, right);
        ASSERT_TRUE(IsWired(editor.wiring().Table(Pair(pair)), left, right));
      }
      ASSERT_EQ(Mask(pair, left), PinMask(RightPins(Pair(pair)) + 1) - 1);
    }
  }
}

TEST_F(CableEditorDiagram, WireToAPinThatTheRightSideLacksChangesNothing) {
  editor.ChoosePair(emPuertoSerialDB25DB9);
  editor.ToggleWire(7, 3);
  for (const int right : {10, 25, 26}) {
    editor.ToggleWire(7, right);
    EXPECT_EQ(Mask(3, 7), EditorBench::Pins({3})) << right;
  }
}

TEST_F(CableEditorDiagram, WireFromAPinThatTheLeftSideLacksChangesNothing) {
  editor.ChoosePair(emPuertoSerialDB9DB25);
  editor.ToggleWire(7, 3);
  const Wiring before = editor.wiring();
  for (const int left : {-1, 0, 10, 25, 26, 1000000}) {
    editor.ToggleWire(left, 5);
    EXPECT_EQ(editor.wiring(), before) << left;
  }
}

}  // namespace
}  // namespace conmuta
