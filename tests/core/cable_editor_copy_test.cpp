// The whole way of a wiring: configuration, editor, user, and back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/config_bench.h"
#include "support/config_snapshot.h"
#include "support/editor_bench.h"
#include "support/full_config.h"

namespace conmuta {
namespace {

using test::ConfigBench;
using test::PlayingView;
using test::Snapshot;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CableCopy : public testing::Test, protected ConfigBench {
 protected:
  void Edit(bool may_edit, std::function<void(frmPuertos&)> user) {
    view.user = std::move(user);
    config.EDConfigSeriales(may_edit, test::FactoryOf(view));
  }
  // Reaches every pin that PinesConectados knows.
  void Address(int pair, int left, int right) {
    config.PuertoActivo(emPuertoSerialDB25DB25);
    config.PinIZQ(static_cast<std::int16_t>(left));
    config.PinDER(static_cast<std::int16_t>(right));
    config.PuertoActivo(test::Pair(pair));
  }
  void Wire(int pair, int left, int right) {
    Address(pair, left, right);
    config.PinesConectados(true);
  }
  bool IsWiredTo(int pair, int left, int right) {
    Address(pair, left, right);
    return config.PinesConectados();
  }

  PlayingView view;
};

TEST_F(CableCopy, EditorOpensOnTheFirstPairWithNameAndCaption) {
  Name();
  Edit(true, [&](frmPuertos& editor) {
    EXPECT_EQ(editor.caption(), u"Configuración de puerto SMDR");
    EXPECT_EQ(editor.etqConmutador(), u"Conmutador\r\nACME, X1");
    EXPECT_EQ(editor.opcPuerto(), emPuertoSerialDB9DB9);
    EXPECT_EQ(editor.PuertoActivo(), emPuertoSerialDB9DB9);
    EXPECT_EQ(editor.txtPinIzq(), u"");
    EXPECT_EQ(editor.txtPinesConectados(), u"");
    EXPECT_FALSE(editor.list_enabled());
    EXPECT_EQ(editor.shown_pin(), 0);
    EXPECT_TRUE(editor.may_edit());
  });
  EXPECT_THAT(view.calls, ElementsAre("Run", "closed"));
  Edit(false, [&](frmPuertos& editor) { EXPECT_FALSE(editor.may_edit()); });
}

TEST_F(CableCopy, EditorOfAnUnnamedSwitchSaysSo) {
  Edit(false, [&](frmPuertos& editor) {
    EXPECT_EQ(editor.etqConmutador(), u"Conmutador\r\nDesconocido");
  });
}

TEST_F(CableCopy, AcceptedAtOnceItChangesNothing) {
  auto file = test::FullFile();
  // Pair 2 as the editor can show it: pins 10 to 25 like pin 9.
  for (std::uint32_t& mask : file.db9_db25) {
    mask = (mask & 0x1FF) | ((mask & 0x100) != 0 ? 0x1FFFE00u : 0);
  }
  Fill(config, file);
  const auto before = Snapshot::OfContent(config);
  TakeEvents();
  Edit(true, [](frmPuertos& editor) { editor.Accept(); });
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_EQ(Snapshot::OfContent(config), before);
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
}

TEST_F(CableCopy, CancelledWorkIsLost) {
  Wire(1, 3, 2);
  const auto before = Snapshot::OfContent(config);
  TakeEvents();
  Edit(true, [](frmPuertos& editor) {
    for (int pair = 1; pair <= 4; ++pair) {
      editor.ChoosePair(test::Pair(pair));
      editor.TypeLeftPin(u"3");
      editor.TypeConnectedPins(u"1,7");
    }
    editor.Cancel();
  });
  EXPECT_THAT(TakeEvents(), IsEmpty());
  EXPECT_EQ(Snapshot::OfContent(config), before);
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
}

TEST_F(CableCopy, AcceptedWorkRaisesOneChangeForEachWire) {
  Wire(1, 3, 2);
  Wire(4, 25, 25);
  TakeEvents();
  Edit(true, [](frmPuertos& editor) {
    editor.TypeLeftPin(u"3");
    editor.TypeConnectedPins(u"2,5,9");  // two more
    editor.ChoosePair(emPuertoSerialDB25DB9);
    editor.ToggleWire(10, 9);  // one more
    editor.ChoosePair(emPuertoSerialDB25DB25);
    editor.TypeLeftPin(u"25");
    editor.TypeConnectedPins(u"");  // one less
    editor.Accept();
  });
  EXPECT_TRUE(config.Modificado());
  const auto events = TakeEvents();
  EXPECT_THAT(events, SizeIs(4));
  EXPECT_THAT(events, Each("Cambios"));
  EXPECT_EQ(config.PuertoActivo(), emPuertoSerialDB25DB25);
  EXPECT_EQ(config.PinIZQ(), 25);
  EXPECT_EQ(config.PinDER(), 25);
  EXPECT_TRUE(IsWiredTo(1, 3, 2));
  EXPECT_TRUE(IsWiredTo(1, 3, 5));
  EXPECT_TRUE(IsWiredTo(1, 3, 9));
  EXPECT_TRUE(IsWiredTo(3, 10, 9));
  EXPECT_FALSE(IsWiredTo(4, 25, 25));
}

TEST_F(CableCopy, AcceptedWiresOfEveryPairArrive) {
  Edit(true, [](frmPuertos& editor) {
    for (int pair = 1; pair <= 4; ++pair) {
      editor.ChoosePair(test::Pair(pair));
      for (int left = 1; left <= LeftPins(test::Pair(pair)); ++left) {
        editor.PickLeftPin(left);
        editor.TypeConnectedPins(ToText(1 + left % 9));
      }
    }
    editor.Accept();
  });
  for (int pair = 1; pair <= 4; ++pair) {
    for (int left = 1; left <= LeftPins(test::Pair(pair)); ++left) {
      for (int right = 1; right <= RightPins(test::Pair(pair)); ++right) {
        // Of pair 2, pin 9 comes back as the editor's pin 25 is.
        const bool expected = right == 1 + left % 9 && !(pair == 2 && right == 9);
        ASSERT_EQ(IsWiredTo(pair, left, right), expected) << pair << ": " << left << "-" << right;
      }
    }
  }
}

TEST_F(CableCopy, EditorShowsPinNineForThoseBeyondItOfPairTwo) {
  Wire(2, 1, 9);
  Wire(2, 2, 25);
  Edit(true, [](frmPuertos& editor) {
    editor.ChoosePair(emPuertoSerialDB9DB25);
    editor.TypeLeftPin(u"1");
    EXPECT_EQ(editor.txtPinesConectados(), u"9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,");
    editor.TypeLeftPin(u"2");
    EXPECT_EQ(editor.txtPinesConectados(), u"");
  });
}

TEST_F(CableCopy, LastPinOfPairTwoComesBackAsPinNine) {
  Edit(true, [](frmPuertos& editor) {
    editor.ChoosePair(emPuertoSerialDB9DB25);
    editor.TypeLeftPin(u"1");
    editor.TypeConnectedPins(u"25");
    editor.TypeLeftPin(u"2");
    editor.TypeConnectedPins(u"9,10");
    editor.Accept();
  });
  for (int right = 1; right <= 25; ++right) {
    EXPECT_EQ(IsWiredTo(2, 1, right), right == 9) << right;
    EXPECT_FALSE(IsWiredTo(2, 2, right)) << right;
  }
}

TEST_F(CableCopy, NoWireLeavesTheSmallestPair) {
  Name();
  Edit(true, [](frmPuertos& editor) {
    for (int left = 1; left <= 9; ++left) {
      editor.PickLeftPin(left);
      editor.TypeConnectedPins(u"1,2,3,4,5,6,7,8,9,10,11,25");
    }
    editor.Accept();
  });
  config.GuardarComo(u"a.cfg");
  test::SwitchFile expected;
  expected.db9_db9.fill(0x1FF);
  expected.db9_db9[0] = 0;
  EXPECT_EQ(files.entries[u"a.cfg"].bytes, expected.Bytes());
}

TEST_F(CableCopy, HandlerMayEditOnceMore) {
  int rounds = 0;
  listener.On("Cambios", [&] {
    ++rounds;
    Edit(false, [](frmPuertos& editor) { editor.Cancel(); });
  });
  Edit(true, [](frmPuertos& editor) {
    editor.TypeLeftPin(u"3");
    editor.TypeConnectedPins(u"2");
    editor.Accept();
  });
  EXPECT_EQ(rounds, 1);
  EXPECT_TRUE(IsWiredTo(1, 3, 2));
}

}  // namespace
}  // namespace conmuta
