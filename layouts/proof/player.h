// Playing lines to the translator, as a host does.
#pragma once

#include "layouts/expected_calls.h"
#include "layouts/layout.h"
#include "platform/clock.h"
#include "translate/clsTradEST.h"

namespace conmuta::layouts {

// The day on which everything is proven: later than any capture was taken, and printed in none, so
// that a date that was not read is seen.
inline constexpr CivilDate kPresent{2026, 11, 21};

// The configuration that a layout makes.
class PlayedSwitch {
 public:
  explicit PlayedSwitch(const Layout& layout);

  clsCfgConmut& config() { return config_; }
  // Whether what comes of a line may depend on the lines before it.
  bool HasMemory() const;

 private:
  clsCfgConmut config_;
};

// A host with a translator of its own, at its first line.
class Player {
 public:
  // The switch must outlive it.
  explicit Player(PlayedSwitch& played);

  Outcome Take(TextView line) { return Take(line, nobody_); }
  Outcome Take(TextView line, LineObserver& observer);
  // A line whose outcome does not matter.
  void Pass(TextView line) { static_cast<void>(translator_.Translate(line)); }

 private:
  LineObserver nobody_;
  clsTradEST translator_;
};

// What comes of all lines of a capture, from the first on.
std::vector<Outcome> Play(PlayedSwitch& played, const Capture& capture);

}  // namespace conmuta::layouts
