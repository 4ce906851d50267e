// The translator: turns what a PBX printed into call records, by the rules of its configuration.
#pragma once

#include "config/clsCfgConmut.h"
#include "translate/clsLlamadaTRD.h"
#include "translate/line_reader.h"
#include "translate/pending_calls.h"

namespace conmuta {

// Setting the text or the configuration clears the call record and fills it anew. What cannot be
// translated leaves it cleared; only OverflowError and InvalidArgumentError come out, and then the
// record holds what was read so far. Once warm, a line costs no allocation.
class clsTradEST {
 public:
  explicit clsTradEST(const Clock& clock);
  clsTradEST(const clsTradEST&) = delete;
  clsTradEST& operator=(const clsTradEST&) = delete;

  // The raw text, less the line ends it began with. Setting it translates it, the same text too.
  const Text& Llamada() const { return line_; }
  void Llamada(TextView value);

  // The configuration in use, or null. Not owned: it must live until another takes its place.
  // Setting it translates the present text anew.
  clsCfgConmut* Conmutador() const { return config_; }
  void Conmutador(clsCfgConmut* config);

  // The record that each translation fills, one and the same for the translator's life.
  clsLlamadaTRD& InfoLlamada() { return call_; }

  // The translations that the configuration's case chooses from. Called directly they work on top
  // of the present record; ObjectNotSetError without a configuration.
  void TraduceEstandar();
  void TraduceMeridian01();
  void TraduceNortelNorstar0x32SMDR6();

  // The list of calls waiting for the end of their transfer: PendingCalls tells the rules.
  void AltaLlamadaLista() { pending_.Park(call_); }
  void QuitaLlamadaLista(std::int16_t intPos) { pending_.Free(intPos); }
  std::int16_t BuscaLlamadaTroncalLista(TextView cadTron) const { return pending_.Find(cadTron); }

 private:
  void Translate();
  LineReader ReadLine();
  void PairTransfer(LineReader& reader);
  void JoinTransferEnd(LineReader& reader);
  std::int16_t FindParkedOnTrunk() const;
  void OpenNorstarBlock(LineReader& reader);
  void EmitNorstarCall();
  void TakeUpNorstarTransfer();

  HeldClock today_;
  Text line_;
  clsCfgConmut* config_ = nullptr;
  clsLlamadaTRD call_;
  PendingCalls pending_;
  clsLlamadaTRD block_call_;  // the Norstar call being put together
  bool block_is_open_ = false;
};

}  // namespace conmuta
