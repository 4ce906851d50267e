// How a configuration hands its wiring to the cable editor and takes it back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/config_bench.h"
#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::HasWire;
using test::SetWire;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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
  void Edit(std::function<void(frmPuertos&)> user, bool may_edit = true) {
    view.user = std::move(user);
    config.EDConfigSeriales(may_edit, [this] {
      ++made;
      return std::make_unique<test::HandedOutView>(view);
    });
  }
  // Changes the editor's wires and accepts.
  void EditAndAccept(std::function<void(frmPuertos&)> change) {
    Edit([&](frmPuertos& editor) {
      change(editor);
      editor.Accept();
    });
  }

  test::PlayingView view;
  int made = 0;
};

void Cancel(frmPuertos& editor) {
  editor.Cancel();
}
void Accept(frmPuertos& editor) {
  editor.Accept();
}

TEST_F(CableEditing, EditorHasEveryWireOfEveryPair) {
  Wire(emPuertoSerialDB9DB9, 2, 3);
  Wire(emPuertoSerialDB25DB9, 25, 9);
  Wire(emPuertoSerialDB25DB25, 1, 25);
  Wiring expected;
  SetWired(expected.Table(emPuertoSerialDB9DB9), 2, 3, true);
  SetWired(expected.Table(emPuertoSerialDB25DB9), 25, 9, true);
  SetWired(expected.Table(emPuertoSerialDB25DB25), 1, 25, true);
  Edit([&](frmPuertos& editor) {
    EXPECT_EQ(editor.wiring(), expected);
    // The last pins that were told, and the first pair for the user.
    EXPECT_EQ(editor.PuertoActivo(), emPuertoSerialDB9DB9);
    EXPECT_EQ(editor.PinIZQ(), 25);
    EXPECT_EQ(editor.PinDER(), 25);
    EXPECT_FALSE(editor.can_undo()) << "filling it is not the user's doing";
  });
  EXPECT_THAT(view.calls, ElementsAre("Run", "closed"));
}

TEST_F(CableEditing, CaptionNameAndPermissionReachTheEditor) {
  Edit(
      [](frmPuertos& editor) {
        EXPECT_EQ(editor.caption(), u"Configuración de puerto SMDR");
        EXPECT_EQ(editor.etqConmutador(), u"Conmutador\r\nDesconocido");
        EXPECT_FALSE(editor.may_edit());
      },
      false);
  Name();
  Edit([](frmPuertos& editor) {
    EXPECT_EQ(editor.etqConmutador(), u"Conmutador\r\nACME, X1");
    EXPECT_TRUE(editor.may_edit());
  });
}

TEST_F(CableEditing, EveryOpeningHasAViewOfItsOwn) {
  Edit(Cancel);
  Edit(Accept);
  EXPECT_EQ(made, 2);
}

TEST_F(CableEditing, CancelKeepsTheWiring) {
  Wire(emPuertoSerialDB9DB9, 2, 3);
  Save();
  Edit([](frmPuertos& editor) {
    SetWire(editor, 1, 2, 3, false);
    SetWire(editor, 4, 1, 1, true);
  });
  EXPECT_FALSE(config.Modificado());
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
  EXPECT_EQ(config.PinIZQ(), 25);
  EXPECT_EQ(config.PinDER(), 25);
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("2-3"));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), IsEmpty());
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
  EditAndAccept([](frmPuertos& editor) {
    SetWire(editor, 1, 2, 3, false);
    SetWire(editor, 1, 3, 2, true);
    SetWire(editor, 3, 25, 9, true);
    SetWire(editor, 4, 1, 25, true);
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
  EditAndAccept([](frmPuertos& editor) {
    SetWire(editor, 4, 25, 24, true);
    SetWire(editor, 1, 9, 1, true);
  });
  EXPECT_THAT(seen, ElementsAre("1: 9-1 wired", "4: 25-24 wired"));
}

TEST_F(CableEditing, MayBeAcceptedMoreThanOnce) {
  Save();
  Edit([](frmPuertos& editor) {
    SetWire(editor, 1, 1, 1, true);
    editor.Accept();
    editor.Accept();
    SetWire(editor, 1, 1, 1, false);
    SetWire(editor, 1, 1, 2, true);
    editor.Accept();
  });
  EXPECT_THAT(TakeEvents(), SizeIs(3));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), ElementsAre("1-2"));
}

// The right pins of DB9-DB25 that PinDER of the configuration does not take.
TEST_F(CableEditing, RightPinsBehindTheNinthShowTheNinth) {
  Wire(emPuertoSerialDB9DB25, 1, 9);
  Wire(emPuertoSerialDB9DB25, 2, 20);
  Wire(emPuertoSerialDB9DB25, 3, 8);
  Edit([](frmPuertos& editor) {
    for (int right = 1; right <= 25; ++right) {
      EXPECT_EQ(HasWire(editor, 2, 1, right), right >= 9) << right;
      EXPECT_FALSE(HasWire(editor, 2, 2, right)) << right;
      EXPECT_EQ(HasWire(editor, 2, 3, right), right == 8) << right;
    }
  });
}

TEST_F(CableEditing, NinthRightPinEndsAsTheTwentyFifth) {
  Save();
  EditAndAccept([](frmPuertos& editor) { SetWire(editor, 2, 1, 25, true); });
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios"));
  EXPECT_TRUE(config.Modificado());
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("1-9"));
}

TEST_F(CableEditing, NinthRightPinTakesEveryStateOnTheWayToTheTwentyFifth) {
  Save();
  EditAndAccept([](frmPuertos& editor) {
    SetWire(editor, 2, 1, 9, true);   // set at 9, cut at 10
    SetWire(editor, 2, 2, 17, true);  // set at 17, cut at 18
    SetWire(editor, 2, 3, 3, true);
  });
  EXPECT_THAT(TakeEvents(), SizeIs(5));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("3-3"));
}

TEST_F(CableEditing, WiresBehindTheNinthStayUntouched) {
  Wire(emPuertoSerialDB9DB25, 2, 20);
  Save();
  EditAndAccept([](frmPuertos& editor) {
    for (int left = 1; left <= 9; ++left) {
      for (int right = 10; right <= 25; ++right) SetWire(editor, 2, left, right, false);
    }
  });
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), ElementsAre("2-20"));
}

TEST_F(CableEditing, EverythingMayBeWired) {
  EditAndAccept([](frmPuertos& editor) {
    for (int pair = 1; pair <= 4; ++pair) {
      for (int left = 1; left <= LeftPins(test::Pair(pair)); ++left) {
        for (int right = 1; right <= RightPins(test::Pair(pair)); ++right) {
          SetWire(editor, pair, left, right);
        }
      }
    }
  });
  EXPECT_THAT(Wires(emPuertoSerialDB9DB9), SizeIs(9 * 9));
  EXPECT_THAT(Wires(emPuertoSerialDB9DB25), SizeIs(9 * 9));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB9), SizeIs(25 * 9));
  EXPECT_THAT(Wires(emPuertoSerialDB25DB25), SizeIs(25 * 25));
}

}  // namespace
}  // namespace conmuta
