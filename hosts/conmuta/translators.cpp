#include "conmuta/translators.h"

#include "conmuta/user_error.h"
#include "conmuta/utf8.h"

namespace conmuta::host {
namespace {

constexpr TextView kBlockEnd = u"--------";  // of Norstar: the line that opens the next block

bool CanTranslate(NoCall reason) {
  return reason != NoCall::kIncompleteConfiguration && reason != NoCall::kNoTranslation;
}

// Whether the line is a call or goes into one: another layout must not make a call of it, too.
bool IsUsed(const Verdict& verdict) {
  return verdict.IsCall() || verdict.reason == NoCall::kBlockBegins ||
         verdict.reason == NoCall::kPartOfBlock || verdict.reason == NoCall::kAccountCode;
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

Outcome Translators::CloseBlock(std::size_t layout) {
  if (desks_[layout]->config->Caso() != emCasoNortelNorstar0x32SMDR6) {
    return {{LineError::kNone, NoCall::kEmptyLine, false}, layout, nullptr};
  }
  return Judge(kBlockEnd, layout);
}

std::size_t Translators::CallsWaiting() const {
  std::size_t waiting = 0;
  for (const auto& desk : desks_) waiting += desk->translator.CallsWaiting();
  return waiting;
}

}  // namespace conmuta::host
