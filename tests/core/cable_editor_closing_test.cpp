// Accepting and cancelling the cable editor.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using testing::ElementsAre;

class CableEditorClosing : public testing::Test, protected EditorBench, protected ifrmPuertos {
 protected:
  CableEditorClosing() { editor.Modificar(true); }
  void Actualizar() override { view.calls.emplace_back("Actualizar"); }

  // Like a real window: the user's part, then closed.
  void Show(std::function<void(frmPuertos&)> user) {
    view.user = std::move(user);
    editor.Show(*this);
  }
};

TEST_F(CableEditorClosing, AcceptedWiringIsHandedOverBeforeTheWindowCloses) {
  Show([](frmPuertos& window) { window.Accept(); });
  EXPECT_THAT(view.calls, ElementsAre("Run", "Actualizar", "Close", "closed"));
}

TEST_F(CableEditorClosing, CancellingHandsNothingOver) {
  Show([](frmPuertos& window) {
    window.ToggleWire(1, 1);
    window.Cancel();
  });
  EXPECT_THAT(view.calls, ElementsAre("Run", "Close", "closed"));
}

TEST_F(CableEditorClosing, ClosingTheWindowHandsNothingOver) {
  Show([](frmPuertos& window) { window.ToggleWire(1, 1); });
  EXPECT_THAT(view.calls, ElementsAre("Run", "closed"));
}

TEST_F(CableEditorClosing, ViewingOffersNothingToAccept) {
  editor.Modificar(false);
  Show([](frmPuertos& window) {
    window.Accept();
    window.Cancel();
  });
  EXPECT_THAT(view.calls, ElementsAre("Run", "Close", "closed"));
}

TEST_F(CableEditorClosing, OnceClosedTheEditorForgetsWhoOpenedIt) {
  Show(nullptr);
  view.calls.clear();
  editor.Accept();
  EXPECT_THAT(view.calls, ElementsAre("Close"));
}

TEST_F(CableEditorClosing, ItMayBeShownAgain) {
  Show([](frmPuertos& window) { window.Cancel(); });
  view.calls.clear();
  Show([](frmPuertos& window) { window.Accept(); });
  EXPECT_THAT(view.calls, ElementsAre("Run", "Actualizar", "Close", "closed"));
}

}  // namespace
}  // namespace conmuta
