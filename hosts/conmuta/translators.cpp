#include "conmuta/translators.h"

#include "conmuta/user_error.h"
#include "conmuta/utf8.h"

namespace conmuta::host {
namespace {

constexpr TextView kBlockEnd = u"--------";  // of Norstar: the line that opens the next block

bool CanTranslate(NoCall reason) {
  return reason != NoCall::kIncompleteConfiguration && reason != NoCall::kNoTranslation;
}

}  // namespace

Translators::Translators(std::span<const NamedLayout> layouts, const Clock& clock) {
  for (const NamedLayout& named : layouts) {
    auto desk = std::make_unique<Desk>(clock);
    desk->config = MakeConfig(named.layout);
    desk->translator.Conmutador(desk->config.get());
    const NoCall reason = desk->translator.Judge(u" ").reason;
    if (!CanTranslate(reason)) throw UserError(named.name + ": " + Utf8(Sentence(reason)));
    desks_.push_back(std::move(desk));
  }
}

Outcome Translators::Translate(TextView line) {
  Outcome first;
  for (std::size_t i = 0; i < desks_.size(); ++i) {
    clsTradEST& translator = desks_[i]->translator;
    const Outcome made{translator.Judge(line), i, &translator.InfoLlamada()};
    if (made.verdict.IsCall()) return made;
    if (i == 0) first = made;
  }
  return first;
}

Outcome Translators::CloseBlock(std::size_t layout) {
  Desk& desk = *desks_[layout];
  if (desk.config->Caso() != emCasoNortelNorstar0x32SMDR6) {
    return {{LineError::kNone, NoCall::kEmptyLine, false}, layout, nullptr};
  }
  return {desk.translator.Judge(kBlockEnd), layout, &desk.translator.InfoLlamada()};
}

std::size_t Translators::CallsWaiting() const {
  std::size_t waiting = 0;
  for (const auto& desk : desks_) waiting += desk->translator.CallsWaiting();
  return waiting;
}

}  // namespace conmuta::host
