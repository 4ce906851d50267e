// What every translation works with.
//
// A translation is a class with the member
//
//   template <class Watch> bool Translate(Work<Watch>& work);
//
// which fills the call and answers whether it could: false passes on what a member of the reader
// answered. What it has to remember between lines is its own state. CONMUTA_TRANSLATION(Class)
// stands behind it in its source file, and translations.h names it.
#pragma once

#include "translate/clsLlamadaTRD.h"
#include "translate/line_reader.h"
#include "translate/pending_calls.h"

namespace conmuta {

template <class Watch>
struct Work {
  LineReader<Watch>& line;
  clsLlamadaTRD& call;    // cleared, unless a host asked for this translation by its name
  PendingCalls& pending;  // calls that wait for the end of their transfer

  // Puts a copy of the call on the list of those that wait; false when that is full.
  bool Park() {
    const bool has_room = pending.Park(call);
    if (has_room) line.watch().Parked();
    return has_room;
  }

  // The slot of the parked call on this call's trunk; 0 when there is none.
  std::int16_t FindParkedOnTrunk() const {
    switch (call.TipoLlamada()) {
      case emLlamadaEntrante:
        return pending.Find(call.Emisor());
      case emLlamadaSaliente:
        return pending.Find(call.Receptor());
      default:
        return 0;
    }
  }
};

}  // namespace conmuta

// Makes the translation for both: nobody watching, and somebody.
#define CONMUTA_TRANSLATION(Class)                       \
  template bool Class::Translate(Work<Unwatched>& work); \
  template bool Class::Translate(Work<Watched>& work)
