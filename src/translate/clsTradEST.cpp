#include "translate/clsTradEST.h"

namespace conmuta {
namespace {

TextView WithoutLeadingLineEnds(TextView text) {
  while (!text.empty() && (text.front() == u'\r' || text.front() == u'\n')) text.remove_prefix(1);
  return text;
}

// What a record lacks to be a call, in the order in which that is asked.
NoCall Lack(const clsLlamadaTRD& call) {
  if (call.TipoLlamada() == emLlamadaIndefinida) return NoCall::kUnknownType;
  if (call.Emisor().empty()) return NoCall::kNoCaller;
  if (call.Receptor().empty()) return NoCall::kNoCallee;
  return call.EsValido() ? NoCall::kNone : NoCall::kNoDate;
}

}  // namespace

clsTradEST::clsTradEST(const Clock& clock) : today_(clock), call_(clock), states_(clock) {}

LineError clsTradEST::Translate(TextView value) {
  line_.Assign(WithoutLeadingLineEnds(value));
  return TranslateLine();
}

void clsTradEST::Conmutador(clsCfgConmut* config) {
  config_ = config;
  plan_.Forget();
  if (line_.size() != 0) Raise(TranslateLine());
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

LineError clsTradEST::TranslateLine() {
  call_.Inicializa();
  if (Obstacle() != NoCall::kNone) return LineError::kNone;
  const Translation* translation = FindTranslation(config_->Caso());
  if (translation == nullptr) return LineError::kNone;
  Unwatched nobody;
  return Run(*translation, nobody);
}

Verdict clsTradEST::Translate(TextView value, LineObserver& observer) {
  line_.Assign(WithoutLeadingLineEnds(value));
  call_.Inicializa();
  Verdict verdict;
  verdict.reason = Obstacle();
  if (verdict.reason == NoCall::kNone) {
    if (const Translation* translation = FindTranslation(config_->Caso())) {
      Watched watch(observer);
      verdict.error = Run(*translation, watch);
      verdict.parked = watch.parked();
      if (verdict.error == LineError::kNone && !call_.EsValido()) {
        verdict.reason = watch.reason() != NoCall::kNone ? watch.reason() : Lack(call_);
      }
    } else {
      verdict.reason = NoCall::kNoTranslation;
    }
  }
  observer.Ended(verdict);
  return verdict;
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
