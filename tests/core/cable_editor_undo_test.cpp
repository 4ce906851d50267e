// Usual cables, cutting wires, and taking steps back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "cable/wiring_text.h"
#include "support/config_snapshot.h"
#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using test::Pair;
using test::Shown;

class CableEditorSteps : public testing::Test, protected EditorBench {
 protected:
  CableEditorSteps() { editor.Modificar(true); }

  std::string Wires() const { return Shown(WiringList(editor.opcPuerto(), editor.table())); }
  const UsualCable& Named(TextView name) const {
    for (const UsualCable& cable : UsualCables()) {
      if (cable.name == name) return cable;
    }
    throw std::invalid_argument("no such cable");
  }
};

TEST_F(CableEditorSteps, UsualCablesAreWiredAsTheirNamesSay) {
  const struct {
    TextView name;
    int pair;
    TextView wires;
  } rows[] = {
      {u"Módem nulo completo", 1,
       u"1 - 4\r\n2 - 3\r\n3 - 2\r\n4 - 1, 6\r\n5 - 5\r\n6 - 4\r\n7 - 8\r\n8 - 7\r\n"},
      {u"Directo", 1,
       u"1 - 1\r\n2 - 2\r\n3 - 3\r\n4 - 4\r\n5 - 5\r\n6 - 6\r\n7 - 7\r\n8 - 8\r\n9 - 9\r\n"},
      {u"De tres hilos", 1, u"2 - 3\r\n3 - 2\r\n5 - 5\r\n"},
      {u"A puerto de impresora", 2, u"2 - 2\r\n3 - 3\r\n5 - 7\r\n6 - 20\r\n8 - 20\r\n"},
      {u"Módem nulo con ocupado por DTR", 4, u"2 - 3\r\n3 - 2\r\n5 - 20\r\n6 - 20\r\n7 - 7\r\n"},
      {u"Directo a módem", 4,
       u"2 - 2\r\n3 - 3\r\n4 - 4\r\n5 - 5\r\n6 - 6\r\n7 - 7\r\n8 - 8\r\n20 - 20\r\n"},
  };
  EXPECT_EQ(UsualCables().size(), std::size(rows));
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.name));
    editor.ChoosePair(Pair(row.pair));
    editor.ToggleWire(9, 1);  // goes
    editor.UseCable(Named(row.name));
    EXPECT_EQ(Wires(), Shown(row.wires));
  }
}

TEST_F(CableEditorSteps, CableOfAnotherPairIsNotUsed) {
  editor.ChoosePair(emPuertoSerialDB25DB9);
  for (const UsualCable& cable : UsualCables()) editor.UseCable(cable);
  EXPECT_EQ(editor.wiring(), Wiring());
  EXPECT_FALSE(editor.can_undo());
}

TEST_F(CableEditorSteps, ListOfTheCurrentPinFollows) {
  editor.TypeLeftPin(u"4");
  editor.UseCable(Named(u"Módem nulo completo"));
  EXPECT_EQ(editor.txtPinesConectados(), u"1,6,");
  editor.CutAllWires();
  EXPECT_EQ(editor.txtPinesConectados(), u"");
  editor.Undo();
  EXPECT_EQ(editor.txtPinesConectados(), u"1,6,");
}

TEST_F(CableEditorSteps, WiresOfAPinAreCutOnEitherSide) {
  editor.UseCable(Named(u"Módem nulo completo"));
  editor.CutWires({Side::kRight, 4});
  EXPECT_EQ(Wires(), Shown(u"2 - 3\r\n3 - 2\r\n4 - 1, 6\r\n5 - 5\r\n7 - 8\r\n8 - 7\r\n"));
  editor.CutWires({Side::kLeft, 4});
  EXPECT_EQ(Wires(), Shown(u"2 - 3\r\n3 - 2\r\n5 - 5\r\n7 - 8\r\n8 - 7\r\n"));
  const Wiring before = editor.wiring();
  for (const Pin pin :
       {Pin{Side::kLeft, 0}, {Side::kLeft, 10}, {Side::kRight, 26}, {Side::kRight, -1}}) {
    editor.CutWires(pin);
  }
  EXPECT_EQ(editor.wiring(), before);
}

TEST_F(CableEditorSteps, CuttingAllSparesTheOtherPairs) {
  for (int pair = 1; pair <= 4; ++pair) {
    editor.ChoosePair(Pair(pair));
    editor.ToggleWire(1, 2);
  }
  editor.ChoosePair(emPuertoSerialDB9DB25);
  editor.CutAllWires();
  for (int pair = 1; pair <= 4; ++pair) EXPECT_EQ(Mask(pair, 1), pair == 2 ? 0 : PinMask(2));
}

TEST_F(CableEditorSteps, EveryStepIsTakenBackInTurn) {
  std::vector<Wiring> states = {editor.wiring()};
  const auto then = [&](auto&& step) {
    step();
    ASSERT_NE(editor.wiring(), states.back());
    states.push_back(editor.wiring());
  };
  then([&] { editor.ToggleWire(1, 2); });
  then([&] { editor.ToggleWire(1, 3); });
  then([&] { editor.UseCable(Named(u"Directo")); });
  then([&] { editor.CutWires({Side::kLeft, 5}); });
  then([&] {
    editor.ChoosePair(emPuertoSerialDB25DB25);
    editor.ToggleWire(20, 25);
  });
  then([&] { editor.CutAllWires(); });
  for (std::size_t i = states.size() - 1; i > 0; --i) {
    EXPECT_EQ(editor.wiring(), states[i]);
    EXPECT_TRUE(editor.can_undo());
    editor.Undo();
    EXPECT_EQ(editor.wiring(), states[i - 1]) << i;
  }
  EXPECT_FALSE(editor.can_undo());
  editor.Undo();
  EXPECT_EQ(editor.wiring(), Wiring());
}

TEST_F(CableEditorSteps, StepBackShowsThePairWhereItHappened) {
  editor.ChoosePair(emPuertoSerialDB25DB9);
  editor.ToggleWire(20, 4);
  editor.ChoosePair(emPuertoSerialDB9DB9);
  editor.Undo();
  EXPECT_EQ(editor.opcPuerto(), emPuertoSerialDB25DB9);
  EXPECT_EQ(editor.wiring(), Wiring());
}

TEST_F(CableEditorSteps, WhatIsTypedForOnePinIsOneStep) {
  editor.TypeLeftPin(u"3");
  for (const TextView text : {u"1", u"1,", u"1,2", u"1,25,", u"1,2,5"}) {
    editor.TypeConnectedPins(text);
  }
  editor.TypeLeftPin(u"4");
  editor.TypeConnectedPins(u"6");
  editor.Undo();
  EXPECT_EQ(Wires(), Shown(u"3 - 1, 2, 5\r\n"));
  editor.Undo();
  EXPECT_EQ(Wires(), "");
  EXPECT_FALSE(editor.can_undo());
}

TEST_F(CableEditorSteps, NothingChangedIsNoStep) {
  editor.TypeLeftPin(u"3");
  editor.TypeConnectedPins(u"x");
  editor.CutAllWires();
  editor.CutWires({Side::kLeft, 3});
  EXPECT_FALSE(editor.can_undo());
}

TEST_F(CableEditorSteps, ViewingChangesNothing) {
  editor.ToggleWire(2, 3);
  editor.Modificar(false);
  const Wiring before = editor.wiring();
  editor.UseCable(Named(u"Directo"));
  editor.CutAllWires();
  editor.CutWires({Side::kLeft, 2});
  editor.Undo();
  EXPECT_EQ(editor.wiring(), before);
}

TEST_F(CableEditorSteps, NoticeBelongsToThePairThatDoesNotKeepAll) {
  for (int pair = 1; pair <= 4; ++pair) {
    editor.ChoosePair(Pair(pair));
    EXPECT_EQ(editor.notice().empty(), pair != 2);
  }
}

}  // namespace
}  // namespace conmuta
