// The cable editor where it is only for looking.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using testing::ElementsAre;
using testing::IsEmpty;

class CableEditorViewing : public testing::Test, protected EditorBench {
 protected:
  CableEditorViewing() {
    Wire(1, 3, 2);
    Wire(1, 3, 4);
    Wire(4, 3, 25);
    editor.PuertoActivo(emPuertoSerialDB9DB9);
    editor.Modificar(false);
  }
};

TEST_F(CableEditorViewing, LeftPinIsEmphasisedButItsListStaysEmpty) {
  editor.PickLeftPin(3);
  EXPECT_EQ(editor.txtPinIzq(), u"3");
  EXPECT_EQ(editor.PinIZQ(), 3);
  EXPECT_EQ(editor.shown_pin(), 3);
  EXPECT_EQ(editor.txtPinesConectados(), u"");
  EXPECT_FALSE(editor.list_enabled());
}

TEST_F(CableEditorViewing, LookingAroundKeepsTheWires) {
  const Wiring before = editor.wiring();
  for (int pair = 1; pair <= 4; ++pair) {
    editor.ChoosePair(test::Pair(pair));
    for (const TextView text : {u"1", u"3", u"25", u"99", u"", u"x"}) editor.TypeLeftPin(text);
    for (int pin = 0; pin <= 26; ++pin) editor.PickLeftPin(pin);
  }
  EXPECT_EQ(editor.wiring(), before);
}

TEST_F(CableEditorViewing, NoWireIsDrawnOrCut) {
  const Wiring before = editor.wiring();
  for (int left = 1; left <= 9; ++left) {
    for (int right = 1; right <= 9; ++right) editor.ToggleWire(left, right);
  }
  EXPECT_EQ(editor.wiring(), before);
  EXPECT_EQ(editor.txtPinIzq(), u"");
}

// The box is hidden; whatever reaches it must not count.
TEST_F(CableEditorViewing, TypedListChangesNoWire) {
  const Wiring before = editor.wiring();
  editor.PickLeftPin(3);
  editor.TypeConnectedPins(u"9");
  EXPECT_EQ(editor.wiring(), before);
}

TEST_F(CableEditorViewing, ThereIsNothingToAccept) {
  editor.Accept();
  EXPECT_THAT(view.calls, IsEmpty());
  editor.Cancel();
  EXPECT_THAT(view.calls, ElementsAre("Close"));
}

TEST_F(CableEditorViewing, EditingLaterShowsTheWires) {
  editor.Modificar(true);
  editor.PickLeftPin(3);
  EXPECT_EQ(editor.txtPinesConectados(), u"2,4,");
}

}  // namespace
}  // namespace conmuta
