// What typing pins into the cable editor does to the wiring.
#include <gtest/gtest.h>

#include "support/config_snapshot.h"
#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using test::Pair;
using test::Shown;

class CableEditorTyping : public testing::Test, protected EditorBench {
 protected:
  CableEditorTyping() { editor.Modificar(true); }

  void ExpectNoList() {
    EXPECT_EQ(editor.txtPinesConectados(), u"");
    EXPECT_FALSE(editor.list_enabled());
    EXPECT_EQ(editor.shown_pin(), 0);
  }
};

TEST_F(CableEditorTyping, LeftPinShowsTheListOfItsWires) {
  const struct {
    int pair;
    std::initializer_list<int> pins;
    TextView list;
  } rows[] = {
      {1, {}, u""},
      {1, {1}, u"1,"},
      {1, {3, 5}, u"3,5,"},
      {1, {9, 2}, u"2,9,"},
      {2, {10, 25, 9}, u"9,10,25,"},
      {3, {1, 2, 3, 4, 5, 6, 7, 8, 9}, u"1,2,3,4,5,6,7,8,9,"},
      {4, {25}, u"25,"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.list));
    EditorBench bench;
    bench.editor.Modificar(true);
    for (const int right : row.pins) bench.Wire(row.pair, 7, right);
    bench.editor.PuertoActivo(Pair(row.pair));
    bench.editor.TypeLeftPin(u"7");
    EXPECT_EQ(Shown(bench.editor.txtPinesConectados()), Shown(row.list));
    EXPECT_TRUE(bench.editor.list_enabled());
    EXPECT_EQ(bench.editor.PinIZQ(), 7);
    EXPECT_EQ(bench.editor.shown_pin(), 7);
    EXPECT_EQ(bench.Mask(row.pair, 7), EditorBench::Pins(row.pins));
  }
}

TEST_F(CableEditorTyping, LeftPinIsTakenWithinItsConnector) {
  const struct {
    TextView text;
    int pin;    // 0: refused everywhere
    bool wide;  // needs a DB25
  } rows[] = {
      {u"1", 1, false},     {u"9", 9, false},
      {u"10", 10, true},    {u"25", 25, true},
      {u"26", 0, false},    {u"0", 0, false},
      {u"-1", 0, false},    {u"", 0, false},
      {u"x", 0, false},     {u"1x", 0, false},
      {u"1,", 0, false},    {u" 3 ", 3, false},
      {u"+3", 3, false},    {u"03", 3, false},
      {u"3.", 3, false},    {u"99999999999999999999", 0, false},
      {u"65537", 0, false}, {u"4294967297", 0, false},
      {u"1 2", 0, false},   {u"0x3", 0, false},
      {u"\t3", 0, false},   {u"３", 0, false},
  };
  for (const auto& row : rows) {
    for (int pair = 1; pair <= 4; ++pair) {
      SCOPED_TRACE(Shown(row.text) + " for pair " + std::to_string(pair));
      editor.PuertoActivo(Pair(pair));
      editor.TypeLeftPin(u"2");
      editor.TypeLeftPin(row.text);
      EXPECT_EQ(Shown(editor.txtPinIzq()), Shown(row.text));
      const bool taken = row.pin != 0 && (!row.wide || pair >= 3);
      EXPECT_EQ(editor.list_enabled(), taken);
      EXPECT_EQ(editor.PinIZQ(), taken ? row.pin : 2);
      EXPECT_EQ(editor.shown_pin(), taken ? row.pin : 0);
    }
  }
}

TEST_F(CableEditorTyping, RefusedLeftPinEmptiesTheListAndKeepsTheWires) {
  Wire(2, 3, 4);
  editor.TypeLeftPin(u"3");
  EXPECT_EQ(editor.txtPinesConectados(), u"4,");
  for (const TextView text : {u"10", u"0", u"", u"x"}) {
    editor.TypeLeftPin(text);
    ExpectNoList();
    EXPECT_EQ(Mask(2, 3), test::EditorBench::Pins({4}));
    editor.TypeLeftPin(u"3");
    EXPECT_EQ(editor.txtPinesConectados(), u"4,");
  }
}

TEST_F(CableEditorTyping, ListReplacesTheWiresOfTheLeftPin) {
  const struct {
    int pair;
    TextView list;
    std::initializer_list<int> pins;
    int last;  // PinDER afterwards
  } rows[] = {
      {1, u"3,5,", {3, 5}, 5},
      {1, u"3,5", {3, 5}, 5},
      {1, u"5,3", {3, 5}, 3},
      {1, u"9,10", {9}, 9},
      {1, u"", {}, 7},
      {1, u",", {}, 7},
      {1, u",,,", {}, 7},
      {1, u"x", {}, 7},
      {1, u"0,-1,1", {1}, 1},
      {1, u" 4 , 5", {4, 5}, 5},
      {1, u"4 5", {}, 7},
      {1, u"4;5", {}, 7},
      {2, u"3,3,x,30,", {3}, 3},
      {2, u"25,26", {25}, 25},
      {3, u"10,9,25", {9}, 9},
      {4, u"26,25", {25}, 25},
      {4, u"99999999999999999999,1", {1}, 1},
      {4, u"4294967297,65537,2", {2}, 2},
      {4, u"1.,+2,03", {1, 2, 3}, 3},
      {4,
       u"1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25",
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25},
       25},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.list) + " for pair " + std::to_string(row.pair));
    EditorBench bench;
    bench.editor.Modificar(true);
    bench.Wire(row.pair, 2, 8);
    bench.Wire(row.pair, 3, 7);
    bench.editor.TypeLeftPin(u"2");
    bench.editor.TypeConnectedPins(row.list);
    EXPECT_EQ(bench.Mask(row.pair, 2), EditorBench::Pins(row.pins));
    EXPECT_EQ(bench.Mask(row.pair, 3), EditorBench::Pins({7}));
    EXPECT_EQ(bench.editor.PinDER(), row.last);
    // What was typed stays as it is, so that the caret does not jump.
    EXPECT_EQ(Shown(bench.editor.txtPinesConectados()), Shown(row.list));
    EXPECT_TRUE(bench.editor.list_enabled());
    for (int other = 1; other <= 4; ++other) {
      if (other != row.pair) {
        EXPECT_EQ(bench.Mask(other, 2), 0);
      }
    }
  }
}

TEST_F(CableEditorTyping, EveryKeyStrokeCounts) {
  editor.PuertoActivo(emPuertoSerialDB25DB25);
  editor.TypeLeftPin(u"7");
  const struct {
    TextView list;
    std::initializer_list<int> pins;
  } strokes[] = {{u"1", {1}},          {u"12", {12}},      {u"12,", {12}}, {u"12,2", {2, 12}},
                 {u"12,25", {12, 25}}, {u"12,2", {2, 12}}, {u"12", {12}},  {u"", {}}};
  for (const auto& stroke : strokes) {
    const int updates = view.updates;
    editor.TypeConnectedPins(stroke.list);
    EXPECT_EQ(Mask(4, 7), EditorBench::Pins(stroke.pins)) << Shown(stroke.list);
    EXPECT_EQ(view.updates, updates + 1);
  }
}

TEST_F(CableEditorTyping, AnotherLeftPinShowsItsOwnList) {
  editor.TypeLeftPin(u"1");
  editor.TypeConnectedPins(u"2,3");
  editor.TypeLeftPin(u"2");
  EXPECT_EQ(editor.txtPinesConectados(), u"");
  editor.TypeConnectedPins(u"3");
  editor.TypeLeftPin(u"1");
  EXPECT_EQ(editor.txtPinesConectados(), u"2,3,");
  EXPECT_EQ(Mask(1, 2), EditorBench::Pins({3}));
}

TEST_F(CableEditorTyping, ListWithoutALeftPinWiresNothing) {
  const Wiring before = editor.wiring();
  editor.TypeConnectedPins(u"1,2");
  EXPECT_EQ(editor.wiring(), before);
}

// The box takes no input then; whatever reaches it must not touch the pin that was shown before.
TEST_F(CableEditorTyping, DisabledListWiresNothing) {
  editor.TypeLeftPin(u"3");
  editor.TypeConnectedPins(u"4");
  editor.TypeLeftPin(u"99");
  editor.TypeConnectedPins(u"5");
  EXPECT_EQ(Mask(1, 3), EditorBench::Pins({4}));
}

TEST_F(CableEditorTyping, ListOfAPinThatThePairLacksWiresNothing) {
  Wire(4, 25, 1);  // leaves PinIZQ at 25
  editor.ChoosePair(emPuertoSerialDB9DB9);
  const Wiring before = editor.wiring();
  editor.TypeConnectedPins(u"1,2");
  EXPECT_EQ(editor.wiring(), before);
}

TEST_F(CableEditorTyping, ChoosingAPairEmptiesTheFieldsAndKeepsTheWires) {
  editor.ChoosePair(emPuertoSerialDB9DB25);
  editor.TypeLeftPin(u"3");
  editor.TypeConnectedPins(u"4,25");
  for (int pair = 4; pair >= 1; --pair) {
    const int updates = view.updates;
    editor.ChoosePair(Pair(pair));
    EXPECT_EQ(editor.opcPuerto(), pair);
    EXPECT_EQ(editor.PuertoActivo(), pair);
    EXPECT_EQ(editor.txtPinIzq(), u"");
    ExpectNoList();
    EXPECT_EQ(view.updates, updates + 1);
    EXPECT_EQ(Mask(2, 3), EditorBench::Pins({4, 25}));
  }
  editor.ChoosePair(emPuertoSerialDB9DB25);
  editor.TypeLeftPin(u"3");
  EXPECT_EQ(editor.txtPinesConectados(), u"4,25,");
}

}  // namespace
}  // namespace conmuta
