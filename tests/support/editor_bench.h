// The cable editor before a view that writes down what it is told and plays the user.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cable/frmPuertos.h"
#include "support/connector_pair.h"

namespace conmuta {

// The wires of each pair.
inline void PrintTo(const Wiring& wiring, std::ostream* out) {
  for (int pair = 1; pair <= kConnectorPairs; ++pair) {
    const auto code = static_cast<emPuertoSerial>(pair);
    *out << "pair " << pair << ":";
    for (int left = 1; left <= LeftPins(code); ++left) {
      for (int right = 1; right <= 25; ++right) {
        if (IsWired(wiring.Table(code), left, right)) *out << ' ' << left << '-' << right;
      }
    }
    *out << '\n';
  }
}

namespace test {

// Runs the user's part while the window is open.
class PlayingView final : public frmPuertos::View {
 public:
  void Update() override {
    ++updates;
    if (updated) updated();
  }
  void Run(frmPuertos& editor) override {
    calls.emplace_back("Run");
    if (user) user(editor);
    calls.emplace_back("closed");
  }
  void Close() override { calls.emplace_back("Close"); }

  std::function<void(frmPuertos&)> user;
  std::function<void()> updated;
  std::vector<std::string> calls;
  int updates = 0;
};

// A view that a factory can give away while the test keeps the one that it stands for.
class HandedOutView final : public frmPuertos::View {
 public:
  explicit HandedOutView(frmPuertos::View& view) : view_(view) {}
  void Update() override { view_.Update(); }
  void Run(frmPuertos& editor) override { view_.Run(editor); }
  void Close() override { view_.Close(); }

 private:
  frmPuertos::View& view_;
};

inline ViewFactory<frmPuertos> FactoryOf(frmPuertos::View& view) {
  return [&view] { return std::make_unique<HandedOutView>(view); };
}

// Wires as a configuration would.
inline void SetWire(frmPuertos& editor, int pair, int left, int right, bool wired = true) {
  editor.PuertoActivo(Pair(pair));
  editor.PinIZQ(static_cast<std::int16_t>(left));
  editor.PinDER(static_cast<std::int16_t>(right));
  editor.PinesConectados(wired);
}
inline bool HasWire(const frmPuertos& editor, int pair, int left, int right) {
  return IsWired(editor.wiring().Table(Pair(pair)), left, right);
}

class EditorBench {
 public:
  void Wire(int pair, int left, int right, bool wired = true) {
    SetWire(editor, pair, left, right, wired);
  }
  WiringMask Mask(int pair, int left) const {
    return editor.wiring().Table(Pair(pair))[static_cast<std::size_t>(left)];
  }
  // The mask of a list of right pins.
  static WiringMask Pins(std::initializer_list<int> pins) {
    WiringMask mask = 0;
    for (const int pin : pins) mask |= PinMask(pin);
    return mask;
  }

  PlayingView view;
  frmPuertos editor{view};
};

}  // namespace test
}  // namespace conmuta
