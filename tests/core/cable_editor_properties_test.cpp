// The cable editor as the configuration fills and reads it.
#include <gtest/gtest.h>

#include <limits>

#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using test::Pair;

class CableEditorProperties : public testing::Test, protected EditorBench {};

TEST_F(CableEditorProperties, StartsWithTheSmallestPairAndNoWire) {
  EXPECT_EQ(editor.PuertoActivo(), emPuertoSerialDB9DB9);
  EXPECT_EQ(editor.opcPuerto(), emPuertoSerialDB9DB9);
  EXPECT_EQ(editor.wiring(), Wiring());
  EXPECT_EQ(editor.txtPinIzq(), u"");
  EXPECT_EQ(editor.txtPinesConectados(), u"");
  EXPECT_FALSE(editor.list_enabled());
  EXPECT_EQ(editor.shown_pin(), 0);
  EXPECT_FALSE(editor.PinesConectados());
}

TEST_F(CableEditorProperties, CaptionAndSwitchNameAreShown) {
  editor.Caption(u"Caption");
  EXPECT_EQ(editor.caption(), u"Caption");
  editor.Conmutador(u"ACME, X1");
  EXPECT_EQ(editor.etqConmutador(), u"Conmutador\r\nACME, X1");
  editor.Conmutador(u"");
  EXPECT_EQ(editor.etqConmutador(), u"Conmutador\r\n");
  EXPECT_EQ(view.updates, 3);
}

TEST_F(CableEditorProperties, EditingShowsItselfInTheButtons) {
  EXPECT_FALSE(editor.may_edit());
  EXPECT_EQ(editor.btnCancelar(), u"&Cerrar");
  editor.Modificar(true);
  EXPECT_TRUE(editor.may_edit());
  EXPECT_EQ(editor.btnCancelar(), u"&Cancelar");
  editor.Modificar(false);
  EXPECT_FALSE(editor.may_edit());
  EXPECT_EQ(editor.btnCancelar(), u"&Cerrar");
  EXPECT_EQ(view.updates, 2);
}

TEST_F(CableEditorProperties, PinsAreStoredAsTheyCome) {
  for (const std::int16_t pin :
       {std::numeric_limits<std::int16_t>::min(), std::int16_t{-1}, std::int16_t{0},
        std::int16_t{26}, std::numeric_limits<std::int16_t>::max(), std::int16_t{7}}) {
    editor.PinIZQ(pin);
    editor.PinDER(pin);
    EXPECT_EQ(editor.PinIZQ(), pin);
    EXPECT_EQ(editor.PinDER(), pin);
  }
}

TEST_F(CableEditorProperties, EveryWireIsItsOwn) {
  for (int pair = 1; pair <= 4; ++pair) {
    for (int left = 1; left <= LeftPins(Pair(pair)); ++left) {
      for (int right = 1; right <= RightPins(Pair(pair)); ++right) {
        if ((left * 7 + right * 3 + pair) % 5 < 2) Wire(pair, left, right);
      }
    }
  }
  int wrong = 0;
  for (int pair = 1; pair <= 4; ++pair) {
    editor.PuertoActivo(Pair(pair));
    for (int left = 1; left <= LeftPins(Pair(pair)); ++left) {
      for (int right = 1; right <= RightPins(Pair(pair)); ++right) {
        editor.PinIZQ(static_cast<std::int16_t>(left));
        editor.PinDER(static_cast<std::int16_t>(right));
        wrong += editor.PinesConectados() != ((left * 7 + right * 3 + pair) % 5 < 2);
      }
    }
  }
  EXPECT_EQ(wrong, 0);
  Wire(4, 25, 25, true);
  EXPECT_TRUE(editor.PinesConectados());
  Wire(4, 25, 25, false);
  EXPECT_FALSE(editor.PinesConectados());
}

TEST_F(CableEditorProperties, PinsThatThePairLacksAreNotWired) {
  const int pins[] = {std::numeric_limits<std::int16_t>::min(), -1, 0, 1, 9, 10, 25, 26, 32, 33,
                      std::numeric_limits<std::int16_t>::max()};
  for (int pair = 1; pair <= 4; ++pair) {
    for (const int left : pins) {
      for (const int right : pins) {
        SCOPED_TRACE(testing::Message() << "pair " << pair << ": " << left << "-" << right);
        const bool exists = left >= 1 && left <= (pair <= 2 ? 9 : 25) && right >= 1 &&
                            right <= (pair == 1 || pair == 3 ? 9 : 25);
        const Wiring before = editor.wiring();
        Wire(pair, left, right);
        EXPECT_EQ(editor.PinesConectados(), exists);
        EXPECT_EQ(editor.wiring() != before, exists);
        editor.PinesConectados(false);
        EXPECT_EQ(editor.wiring(), before);
      }
    }
  }
}

TEST_F(CableEditorProperties, WithoutAPairNothingIsWired) {
  Wire(4, 1, 1);
  const Wiring before = editor.wiring();
  for (const int pair : {0, 5, -1, 2147483647, -2147483647 - 1}) {
    SCOPED_TRACE(pair);
    editor.PuertoActivo(Pair(pair));
    EXPECT_EQ(editor.PuertoActivo(), pair);
    EXPECT_EQ(editor.opcPuerto(), emPuertoSerialDB25DB25);
    EXPECT_FALSE(editor.PinesConectados());
    editor.PinesConectados(false);
    editor.PinesConectados(true);
    EXPECT_EQ(editor.wiring(), before);
  }
}

TEST_F(CableEditorProperties, WithoutAPairTypingIsHarmless) {
  Wire(1, 3, 3);
  const Wiring before = editor.wiring();
  editor.Modificar(true);
  editor.PuertoActivo(emNoPuerto);
  editor.TypeLeftPin(u"3");
  EXPECT_EQ(editor.txtPinesConectados(), u"");
  editor.TypeConnectedPins(u"1,2");
  editor.ToggleWire(3, 3);
  EXPECT_EQ(editor.wiring(), before);
}

TEST_F(CableEditorProperties, SettingThePairChoosesItsOption) {
  editor.Modificar(true);
  for (int pair = 1; pair <= 4; ++pair) {
    editor.TypeLeftPin(u"3");
    const int updates = view.updates;
    editor.PuertoActivo(Pair(pair));
    EXPECT_EQ(editor.PuertoActivo(), pair);
    EXPECT_EQ(editor.opcPuerto(), pair);
    EXPECT_EQ(editor.txtPinIzq(), u"");
    EXPECT_FALSE(editor.list_enabled());
    EXPECT_EQ(view.updates, updates + 1);
  }
}

TEST_F(CableEditorProperties, SelectingAPairKeepsTheWiringOfAll) {
  for (int pair = 1; pair <= 4; ++pair) Wire(pair, pair, pair + 1);
  for (int pair = 1; pair <= 4; ++pair) {
    for (int left = 1; left <= LeftPins(Pair(pair)); ++left) {
      EXPECT_EQ(Mask(pair, left), left == pair ? PinMask(pair + 1) : 0);
    }
  }
}

}  // namespace
}  // namespace conmuta
