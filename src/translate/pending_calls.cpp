#include "translate/pending_calls.h"

#include <algorithm>

namespace conmuta {
namespace {

TextView TrunkOf(const clsLlamadaTRD& call) {
  return call.TipoLlamada() == emLlamadaEntrante ? call.Emisor() : call.Receptor();
}

// Whether the slot's record gives way to a call on this trunk.
bool GivesWay(const clsLlamadaTRD& parked, TextView trunk) {
  switch (parked.TipoLlamada()) {
    case emLlamadaIndefinida:
      return true;
    case emLlamadaEntrante:
    case emLlamadaSaliente:
    case emLlamadaCodigoCuenta:
      return TrunkOf(parked) == trunk;
    default:
      return false;
  }
}

bool IsOnTrunk(const clsLlamadaTRD& parked, TextView trunk) {
  switch (parked.TipoLlamada()) {
    case emLlamadaEntrante:
    case emLlamadaSaliente:
    case emLlamadaCodigoCuenta:
      return EqualIgnoringCase(TrunkOf(parked), trunk);
    case emLlamadaInterTroncal:
      return EqualIgnoringCase(parked.Emisor(), trunk) ||
             EqualIgnoringCase(parked.Receptor(), trunk);
    default:
      return false;
  }
}

}  // namespace

void PendingCalls::Park(const clsLlamadaTRD& call) {
  const TextView trunk = TrunkOf(call);
  auto slot = std::find_if(slots_.begin(), slots_.end(),
                           [&](const auto& s) { return s.has_value() && GivesWay(*s, trunk); });
  if (slot == slots_.end()) {
    slot = std::find(slots_.begin(), slots_.end(), std::nullopt);
  }
  if (slot == slots_.end()) return;
  slot->emplace(call);
}

std::int16_t PendingCalls::Find(TextView trunk) const {
  trunk = Trim(trunk);
  const auto slot = std::find_if(slots_.begin(), slots_.end(), [&](const auto& s) {
    return s.has_value() && IsOnTrunk(*s, trunk);
  });
  return slot != slots_.end() ? static_cast<std::int16_t>(slot - slots_.begin() + 1)
                              : std::int16_t{0};
}

void PendingCalls::Free(std::int16_t slot) {
  if (slot < 1 || slot > kSlots) return;
  auto& record = slots_[static_cast<std::size_t>(slot - 1)];
  if (record) record->TipoLlamada(emLlamadaIndefinida);
}

}  // namespace conmuta
