// Accepting and cancelling the cable editor.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/editor_bench.h"

namespace conmuta {
namespace {

using test::EditorBench;
using testing::ElementsAre;

class CableEditorClosing : public testing::Test, protected EditorBench {
 protected:
  CableEditorClosing() {
    editor.Modificar(true);
    editor.Actualizar = [this] { view.calls.emplace_back("Actualizar"); };
  }

  // Like a real window: the user's part, then closed.
  void Show(std::function<void(frmPuertos&)> user) {
    view.user = std::move(user);
    editor.Show();
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

TEST_F(CableEditorClosing, NobodyNeedListen) {
  editor.Actualizar = nullptr;
  Show([](frmPuertos& window) { window.Accept(); });
  EXPECT_THAT(view.calls, ElementsAre("Run", "Close", "closed"));
}

TEST_F(CableEditorClosing, ItMayBeShownAgain) {
  Show([](frmPuertos& window) { window.Cancel(); });
  view.calls.clear();
  Show([](frmPuertos& window) { window.Accept(); });
  EXPECT_THAT(view.calls, ElementsAre("Run", "Actualizar", "Close", "closed"));
}

}  // namespace
}  // namespace conmuta
