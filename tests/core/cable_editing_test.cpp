// How a configuration hands its wiring to the cable editor and takes it back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/config_bench.h"
#include "support/stand_in_editor.h"

namespace conmuta {
namespace {

using test::StandInEditor;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct PairPins {
  emPuertoSerial pair;
  int left;
  int right;
};
constexpr PairPins kPairs[] = {{emPuertoSerialDB9DB9, 9, 9},
                               {emPuertoSerialDB9DB25, 9, 25},
                               {emPuertoSerialDB25DB9, 25, 9},
                               {emPuertoSerialDB25DB25, 25, 25}};

class CableEditing : public testing::Test, protected test::ConfigBench {
 protected:
  void Wire(emPuertoSerial pair, int left, int right) {
    config.PuertoActivo(emPuertoSerialDB25DB25);  // where every pin can be chosen
    config.PinIZQ(static_cast<std::int16_t>(left));
    config.PinDER(static_cast<std::int16_t>(right));
    config.PuertoActivo(pair);
    config.PinesConectados(true);
  }
  // The wires of a pair, as "left-right".
  std::vector<std::string> Wires(emPuertoSerial pair) {
    std::vector<std::string> wires;
    for (std::int16_t left = 1; left <= 25; ++left) {
      for (std::int16_t right = 1; right <= 25; ++right) {
        config.PuertoActivo(emPuertoSerialDB25DB25);
        config.PinIZQ(left);
        config.PinDER(right);
        config.PuertoActivo(pair);
        if (config.PinesConectados()) {
          wires.push_back(std::to_string(left) + "-" + std::to_string(right));
        }
      }
    }
    return wires;
  }
  // Saves, so that the configuration counts as unmodified.
  void Save() {
    Name();
    config.GuardarComo(u"switch.cfg");
    TakeEvents();
  }
  void Edit(StandInEditor::User user, bool may_edit = true) {
    config.EDConfigSeriales(may_edit, StandInEditor::Factory(log, std::move(user)));
  }
  // Changes the editor's wires and accepts.
  void EditAndAccept(std::function<void(StandInEditor&)> change) {
    Edit([&](StandInEditor& editor, ifrmPuertos& client) {
      change(editor);
      client.Actualizar();
    });
  }

  test::EditorLog log;
};

void Cancel(StandInEditor&, ifrmPuertos&) {}
void Accept(StandInEditor&, ifrmPuertos& client) {
  client.Actualizar();
}

TEST_F(CableEditing, TellsTheEditorEverythingInItsOrder) {
  Wire(emPuertoSerialDB9DB9, 2, 3);
  Wire(emPuertoSerialDB25DB9, 25, 9);
  Wire(emPuertoSerialDB25DB25, 1, 25);
  Edit(Cancel);
  std::vector<std::string> expected = {"caption", "name", "may edit"};
  for (const PairPins& pins : kPairs) {
    expected.push_back("pair " + std::to_string(pins.pair));
    for (int left = 1; left <= pins.left; ++left) {
      expected.push_back("left " + std::to_string(left));
      for (int right = 1; right <= pins.right; ++right) {
        expected.push_back("right " + std::to_string(right));
        const bool wired = (pins.pair == 1 && left == 2 && right == 3) ||
                           (pins.pair == 3 && left == 25 && right == 9) ||
                           (pins.pair == 4 && left == 1 && right == 25);
        expected.push_back(wired ? "wired" : "not wired");
      }
    }
  }
  expected.push_back("pair 1");
  expected.push_back("show");
  EXPECT_EQ(log.calls, expected);
}

TEST_F(CableEditing, CaptionNameAndPermissionReachTheEditor) {
  Edit(Cancel, false);
  EXPECT_EQ(log.caption, u"Configuraci\u00F3n de puerto SMDR");
  EXPECT_EQ(log.name, u"Desconocido");
  EXPECT_EQ(log.calls.at(2), "may look");
  Name();
  Edit(Cancel, true);
  EXPECT_EQ(log.name, u"ACME, X1");
  EXPECT_THAT(log.calls, testing::Contains("may edit"));
}

TEST_F(CableEditing, EditorLivesUntilItIsClosed) {
  Edit([&](StandInEditor&, ifrmPuertos&) { EXPECT_EQ(log.open, 1); });
  EXPECT_EQ(log.open, 0);
  Edit(Accept);
  EXPECT_EQ(log.open, 0);
}

TEST_F(CableEditing, CancelKeepsTheWiring) {
  Wire(emPuertoSerialDB9DB9, 2, 3);
  Save();
  Edit([](StandInEditor& editor, ifrmPuertos&) {
    editor.Wire(1, 2, 3) = false;
    editor.Wire(4, 1, 1) = true;
  });
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
  EXPECT_EQ(config.PinIZQ(), 25);
  EXPECT_EQ(config.PinDER(), 25);
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("2-3"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), IsEmpty());
}

TEST_F(CableEditing, AcceptReadsTheEditorInItsOrder) {
  Edit([&](StandInEditor&, ifrmPuertos& client) {
    log.calls.clear();
    client.Actualizar();
  });
  std::vector<std::string> expected;
  for (const PairPins& pins : kPairs) {
    expected.push_back("pair " + std::to_string(pins.pair));
    for (int left = 1; left <= pins.left; ++left) {
      expected.push_back("left " + std::to_string(left));
      for (int right = 1; right <= pins.right; ++right) {
        expected.push_back("right " + std::to_string(right));
        expected.push_back("read");
      }
    }
  }
  EXPECT_EQ(log.calls, expected);
}

TEST_F(CableEditing, AcceptWithoutChangesIsNoChange) {
  Wire(emPuertoSerialDB9DB9, 2, 3);
  Wire(emPuertoSerialDB9DB25, 1, 9);  // pin 9 stands for the pins behind it, too
  Wire(emPuertoSerialDB9DB25, 2, 8);
  Wire(emPuertoSerialDB25DB9, 25, 9);
  Wire(emPuertoSerialDB25DB25, 25, 25);
  Save();
  Edit(Accept);
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
  EXPECT_EQ(config.PinIZQ(), 25);
  EXPECT_EQ(config.PinDER(), 25);
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("1-9", "2-8"));
}

TEST_F(CableEditing, EachChangedWireRaisesCambios) {
  Wire(emPuertoSerialDB9DB9, 2, 3);
  Wire(emPuertoSerialDB25DB25, 25, 25);
  Save();
  EditAndAccept([](StandInEditor& editor) {
    editor.Wire(1, 2, 3) = false;
    editor.Wire(1, 3, 2) = true;
    editor.Wire(3, 25, 9) = true;
    editor.Wire(4, 1, 25) = true;
  });
  EXPECT_TRUE(config.Modificado());
  EXPECT_THAT(TakeEvents(), testing::AllOf(SizeIs(4), Each("Cambios")));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("3-2"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB9), ElementsAre("25-9"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), ElementsAre("1-25", "25-25"));
}

TEST_F(CableEditing, HandlerSeesTheWiresTakenOverSoFar) {
  Save();
  std::vector<std::string> seen;
  listener.On("Cambios", [&] {
    seen.push_back(std::to_string(config.PuertoActivo()) + ": " + std::to_string(config.PinIZQ()) +
                   "-" + std::to_string(config.PinDER()) +
                   (config.PinesConectados() ? " wired" : " cut"));
  });
  EditAndAccept([](StandInEditor& editor) {
    editor.Wire(4, 25, 24) = true;
    editor.Wire(1, 9, 1) = true;
  });
  EXPECT_THAT(seen, ElementsAre("1: 9-1 wired", "4: 25-24 wired"));
}

TEST_F(CableEditing, MayBeAcceptedMoreThanOnce) {
  Save();
  Edit([](StandInEditor& editor, ifrmPuertos& client) {
    editor.Wire(1, 1, 1) = true;
    client.Actualizar();
    client.Actualizar();
    editor.Wire(1, 1, 1) = false;
    editor.Wire(1, 1, 2) = true;
    client.Actualizar();
  });
  EXPECT_THAT(TakeEvents(), SizeIs(3));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("1-2"));
}

// The right pins of DB9-DB25 that PinDER of the configuration does not take.
TEST_F(CableEditing, RightPinsBehindTheNinthShowTheNinth) {
  Wire(emPuertoSerialDB9DB25, 1, 9);
  Wire(emPuertoSerialDB9DB25, 2, 20);
  Wire(emPuertoSerialDB9DB25, 3, 8);
  Edit([](StandInEditor& editor, ifrmPuertos&) {
    for (int right = 1; right <= 25; ++right) {
      EXPECT_EQ(editor.Wire(2, 1, right), right >= 9) << right;
      EXPECT_FALSE(editor.Wire(2, 2, right)) << right;
      EXPECT_EQ(editor.Wire(2, 3, right), right == 8) << right;
    }
  });
}

TEST_F(CableEditing, NinthRightPinEndsAsTheTwentyFifth) {
  Save();
  EditAndAccept([](StandInEditor& editor) { editor.Wire(2, 1, 25) = true; });
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  EXPECT_TRUE(config.Modificado());
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("1-9"));
}

TEST_F(CableEditing, NinthRightPinTakesEveryStateOnTheWayToTheTwentyFifth) {
  Save();
  EditAndAccept([](StandInEditor& editor) {
    editor.Wire(2, 1, 9) = true;   // set at 9, cut at 10
    editor.Wire(2, 2, 17) = true;  // set at 17, cut at 18
    editor.Wire(2, 3, 3) = true;
  });
  EXPECT_THAT(TakeEvents(), SizeIs(5));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("3-3"));
}

TEST_F(CableEditing, WiresBehindTheNinthStayUntouched) {
  Wire(emPuertoSerialDB9DB25, 2, 20);
  Save();
  EditAndAccept([](StandInEditor& editor) {
    for (int left = 1; left <= 9; ++left) {
      for (int right = 10; right <= 25; ++right) editor.Wire(2, left, right) = false;
    }
  });
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("2-20"));
}

TEST_F(CableEditing, EverythingMayBeWired) {
  EditAndAccept([](StandInEditor& editor) {
    for (const PairPins& pins : kPairs) {
      for (int left = 1; left <= pins.left; ++left) {
        for (int right = 1; right <= pins.right; ++right) {
          editor.Wire(pins.pair, left, right) = true;
        }
      }
    }
  });
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), SizeIs(9 * 9));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), SizeIs(9 * 9));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB9), SizeIs(25 * 9));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), SizeIs(25 * 25));
}

// An editor that is asked for one pair and answers with another.
class StubbornEditor final : public CableEditor {
 public:
  void Caption(TextView) override {}
  void Conmutador(TextView) override {}
  void Modificar(bool) override {}
  emPuertoSerial PuertoActivo() const override { return emPuertoSerialDB25DB9; }
  void PuertoActivo(emPuertoSerial) override {}
  void PinIZQ(std::int16_t) override {}
  void PinDER(std::int16_t) override {}
  bool PinesConectados() const override { return true; }
  void PinesConectados(bool) override {}
  void Show(ifrmPuertos& client) override { client.Actualizar(); }
};

TEST_F(CableEditing, PairFollowsTheEditorOnTheWayBack) {
  config.EDConfigSeriales(true, [] { return std::make_unique<StubbornEditor>(); });
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB9);
  EXPECT_THAT(Wires(emPuertoSerialDB25DB9), SizeIs(25 * 9));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), IsEmpty());
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), IsEmpty());
}

}  // namespace
}  // namespace conmuta
