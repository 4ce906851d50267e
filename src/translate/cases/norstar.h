// Nortel Norstar: a block of lines a call. A separator line opens the block and tells when and
// between whom; event lines follow, each text behind a prefix that may hold the elapsed time.
#pragma once

#include "translate/cases/case.h"

namespace conmuta {

class Norstar {
 public:
  explicit Norstar(const Clock& clock) : block_call_(clock) {}

  template <class Watch>
  bool Translate(Work<Watch>& work);

  // Whether a call is being put together. One that was given up waits, too: the next separator may
  // deliver it.
  bool Waits() const { return block_is_open_ || block_call_.TipoLlamada() != emLlamadaIndefinida; }

 private:
  template <class Watch>
  bool OpenBlock(Work<Watch>& work);
  void Deliver(clsLlamadaTRD& call);
  void SwapParties();
  bool TakeUpTransfer(PendingCalls& pending);

  clsLlamadaTRD block_call_;  // the call being put together
  bool block_is_open_ = false;
};

}  // namespace conmuta
