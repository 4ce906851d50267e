// The translator: turns what a PBX printed into call records, by the rules of its configuration.
#pragma once

#include "config/clsCfgConmut.h"
#include "translate/clsLlamadaTRD.h"
#include "translate/line_plan.h"
#include "translate/pending_calls.h"
#include "translate/translations.h"
#include "translate/watch.h"

namespace conmuta {

// Setting the text or the configuration clears the call record and fills it anew. What cannot be
// translated leaves it cleared. OverflowError and InvalidArgumentError (LineError, where errors are
// values) come of the line alone, and then the record holds what was read so far. Once warm, a
// line costs no allocation.
class clsTradEST {
 public:
  explicit clsTradEST(const Clock& clock);
  clsTradEST(const clsTradEST&) = delete;
  clsTradEST& operator=(const clsTradEST&) = delete;

  // The raw text, less the line ends it began with. Setting it translates it, the same text too.
  TextView Llamada() const { return line_.View(); }
  void Llamada(TextView value) { Raise(Translate(value)); }

  // The same with the error as a value, which costs far less than an exception.
  [[nodiscard]] LineError Translate(TextView value);

  // The same, and why there is no call.
  [[nodiscard]] Verdict Judge(TextView value);

  // The same, telling the observer what is looked at and what comes of it. An error is no
  // exception here: the verdict has it.
  Verdict Translate(TextView value, LineObserver& observer);

  // The configuration in use, or null. Not owned: it must live until another takes its place.
  // Setting it translates the present text anew.
  clsCfgConmut* Conmutador() const { return config_; }
  void Conmutador(clsCfgConmut* config);

  // The record that each translation fills, one and the same for the translator's life.
  clsLlamadaTRD& InfoLlamada() { return call_; }

  // The translations that the configuration's case chooses from. Called directly they work on top
  // of the present record; ObjectNotSetError without a configuration.
  void TraduceEstandar();
  void TraduceMeridian01() { TranslateOnTop(emCasoNortelMeridian01); }
  void TraduceNortelNorstar0x32SMDR6() { TranslateOnTop(emCasoNortelNorstar0x32SMDR6); }

  // The list of calls waiting for the end of their transfer: PendingCalls tells the rules.
  void AltaLlamadaLista() { pending_.Park(call_); }
  void QuitaLlamadaLista(std::int16_t intPos) { pending_.Free(intPos); }
  std::int16_t BuscaLlamadaTroncalLista(TextView cadTron) const { return pending_.Find(cadTron); }
  std::size_t CallsWaiting() const { return pending_.Count(); }

  // Whether anything of the lines so far bears on those to come: a call that waits for the end of
  // its transfer, an account code that waits for its call, a block that is not over. While nothing
  // does, a fresh translator goes on just as this one.
  bool Waits() const { return pending_.Count() != 0 || states_.norstar.Waits(); }

 private:
  // Why there is nothing to translate with, or nothing to translate; kNone when there is.
  NoCall Obstacle() const;
  template <class Watch>
  LineError Run(const Translation& translation, Watch& watch);
  template <class Watch>
  LineError TranslateLine(Watch& watch);
  template <class Watch>
  Verdict JudgeLine(Watch& watch);
  LineError TranslateUnwatched();
  void TranslateOnTop(emCasos code);

  HeldClock today_;
  FullYears years_;
  LineText line_;
  clsCfgConmut* config_ = nullptr;
  CurrentPlan plan_;
  clsLlamadaTRD call_;
  PendingCalls pending_;
  TranslationStates states_;
};

}  // namespace conmuta
