#include "translation/translators.h"

#include <algorithm>

#include "platform/platform.h"

namespace conmuta::translation {
namespace {

constexpr TextView kBlockEnd = u"--------";  // of Norstar: the line that opens the next block

// Whether the line is a call or goes into one: another layout must not make a call of it, too.
bool IsUsed(const Verdict& verdict) {
  return verdict.IsCall() || verdict.reason == NoCall::kBlockBegins ||
         verdict.reason == NoCall::kPartOfBlock || verdict.reason == NoCall::kAccountCode;
}

}  // namespace

std::optional<NoCall> WhyUseless(clsCfgConmut& config) {
  clsTradEST translator(SystemPlatform().clock);
  translator.Conmutador(&config);
  const NoCall reason = translator.Judge(u" ").reason;
  const bool is_useless =
      reason == NoCall::kIncompleteConfiguration || reason == NoCall::kNoTranslation;
  return is_useless ? std::optional(reason) : std::nullopt;
}

Verdict JudgeEnd(clsTradEST& translator) {
  const clsCfgConmut* config = translator.Conmutador();
  if (config == nullptr || config->Caso() != emCasoNortelNorstar0x32SMDR6) {
    return {LineError::kNone, NoCall::kEmptyLine, false};
  }
  return translator.Judge(kBlockEnd);
}

Translators::Desk::Desk(clsCfgConmut* its_config, const Clock& clock)
    : config(its_config), translator(clock) {
  translator.Conmutador(config);
}

Translators::Translators(std::span<clsCfgConmut* const> configs, const Clock& clock) {
  for (clsCfgConmut* config : configs) desks_.push_back(std::make_unique<Desk>(config, clock));
}

Outcome Translators::Judge(TextView line, std::size_t layout) {
  clsTradEST& translator = desks_[layout]->translator;
  return {translator.Judge(line), layout, &translator.InfoLlamada()};
}

Outcome Translators::Translate(TextView line) {
  if (desks_.size() == 1) return Judge(line, 0);
  const Outcome first = Judge(line, 0);
  if (IsUsed(first.verdict)) return first;
  for (std::size_t i = 1; i < desks_.size(); ++i) {
    const Outcome made = Judge(line, i);
    if (IsUsed(made.verdict)) return made;
  }
  return first;
}

std::size_t Translators::CallsWaiting() const {
  std::size_t waiting = 0;
  for (const auto& desk : desks_) waiting += desk->translator.CallsWaiting();
  return waiting;
}

bool Translators::Waits() const {
  return std::any_of(desks_.begin(), desks_.end(),
                     [](const auto& desk) { return desk->translator.Waits(); });
}

}  // namespace conmuta::translation
