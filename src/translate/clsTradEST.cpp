#include "translate/clsTradEST.h"

namespace conmuta {
namespace {

TextView WithoutLeadingLineEnds(TextView text) {
  while (!text.empty() && (text.front() == u'\r' || text.front() == u'\n')) text.remove_prefix(1);
  return text;
}

}  // namespace

clsTradEST::clsTradEST(const Clock& clock) : today_(clock), call_(clock), states_(clock) {}

LineError clsTradEST::Translate(TextView value) {
  line_.Assign(WithoutLeadingLineEnds(value));
  return TranslateUnwatched();
}

template <class Watch>
Verdict clsTradEST::JudgeLine(Watch& watch) {
  Verdict verdict;
  verdict.error = TranslateLine(watch);
  verdict.parked = watch.parked();
  if (verdict.error == LineError::kNone) {
    const NoCall lack = call_.Lack();
    if (lack != NoCall::kNone) {
      verdict.reason = watch.reason() != NoCall::kNone ? watch.reason() : lack;
    }
  }
  return verdict;
}

Verdict clsTradEST::Judge(TextView value) {
  line_.Assign(WithoutLeadingLineEnds(value));
  Unwatched nobody;
  return JudgeLine(nobody);
}

Verdict clsTradEST::Translate(TextView value, LineObserver& observer) {
  line_.Assign(WithoutLeadingLineEnds(value));
  Watched watch(observer);
  const Verdict verdict = JudgeLine(watch);
  observer.Ended(verdict);
  return verdict;
}

void clsTradEST::Conmutador(clsCfgConmut* config) {
  config_ = config;
  plan_.Forget();
  if (line_.size() != 0) Raise(TranslateUnwatched());
}

NoCall clsTradEST::Obstacle() const {
  if (config_ == nullptr) return NoCall::kNoConfiguration;
  if (!config_->HayConfig()) return NoCall::kIncompleteConfiguration;
  return line_.size() == 0 ? NoCall::kEmptyLine : NoCall::kNone;
}

template <class Watch>
LineError clsTradEST::Run(const Translation& translation, Watch& watch) {
  today_.Forget();
  LineReader<Watch> reader(plan_.Of(*config_), line_, today_, years_,
                           {config_->DATOActivo(), config_->CTEActivo()}, watch);
  Work<Watch> work{reader, call_, pending_};
  translation.Run(states_, work);
  // Hosts can see which slots were looked at last.
  config_->DATOActivo(reader.active().item);
  config_->CTEActivo(reader.active().constant);
  return reader.error();
}

template <class Watch>
LineError clsTradEST::TranslateLine(Watch& watch) {
  call_.Inicializa();
  if (const NoCall obstacle = Obstacle(); obstacle != NoCall::kNone) {
    watch.Because(obstacle);
    return LineError::kNone;
  }
  const Translation* translation = FindTranslation(config_->Caso());
  if (translation == nullptr) {
    watch.Because(NoCall::kNoTranslation);
    return LineError::kNone;
  }
  return Run(*translation, watch);
}

LineError clsTradEST::TranslateUnwatched() {
  Unwatched nobody;
  return TranslateLine(nobody);
}

void clsTradEST::TraduceEstandar() {
  if (config_ == nullptr) throw ObjectNotSetError();
  // Its variants are part of it, by the configuration's case.
  switch (config_->Caso()) {
    case emCasoSamsungNX_820:
    case emCasoRestaFechasDuracion:
      return TranslateOnTop(config_->Caso());
    default:
      return TranslateOnTop(emCasoEstandar);
  }
}

void clsTradEST::TranslateOnTop(emCasos code) {
  if (config_ == nullptr) throw ObjectNotSetError();
  Unwatched nobody;
  Raise(Run(*FindTranslation(code), nobody));
}

}  // namespace conmuta
