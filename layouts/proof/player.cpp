#include "layouts/proof/player.h"

#include "layouts/layout_config.h"
#include "platform/platform.h"

namespace conmuta::layouts {
namespace {

class PresentClock final : public Clock {
 public:
  CivilDate Today() const override { return kPresent; }
};

const PresentClock kClock;

}  // namespace

PlayedSwitch::PlayedSwitch(const Layout& layout) : config_(SystemPlatform()) {
  Apply(layout, config_);
}

bool PlayedSwitch::HasMemory() const {
  return config_.Caso() != emCasoEstandar && config_.Caso() != emCasoRestaFechasDuracion;
}

Player::Player(PlayedSwitch& played) : translator_(kClock) {
  translator_.Conmutador(&played.config());
}

Outcome Player::Take(TextView line, LineObserver& observer) {
  const Verdict verdict = translator_.Translate(line, observer);
  return OutcomeOf(verdict, translator_.InfoLlamada());
}

std::vector<Outcome> Play(PlayedSwitch& played, const Capture& capture) {
  Player player(played);
  std::vector<Outcome> outcomes;
  outcomes.reserve(capture.lines.size());
  for (const CaptureLine& line : capture.lines) outcomes.push_back(player.Take(line.text));
  return outcomes;
}

}  // namespace conmuta::layouts
