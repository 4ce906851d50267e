#include "translate/pending_calls.h"

#include <algorithm>

namespace conmuta {
namespace {

TextView TrunkOf(const clsLlamadaTRD& call) {
  return call.TipoLlamada() == emLlamadaEntrante ? call.Emisor() : call.Receptor();
}

bool HasOneTrunk(const clsLlamadaTRD& call) {
  switch (call.TipoLlamada()) {
    case emLlamadaEntrante:
    case emLlamadaSaliente:
    case emLlamadaCodigoCuenta:
      return true;
    default:
      return false;
  }
}

bool IsOnTrunk(const clsLlamadaTRD& parked, TextView trunk) {
  if (HasOneTrunk(parked)) return EqualIgnoringCase(TrunkOf(parked), trunk);
  return parked.TipoLlamada() == emLlamadaInterTroncal &&
         (EqualIgnoringCase(parked.Emisor(), trunk) || EqualIgnoringCase(parked.Receptor(), trunk));
}

}  // namespace

PendingCalls::Key PendingCalls::KeyOf(TextView trunk) {
  constexpr Key kOffset = 2166136261;
  constexpr Key kPrime = 16777619;
  Key key = kOffset;
  for (const char16_t c : trunk) key = (key ^ ToUpper(c)) * kPrime;
  return key != kNoTrunk ? key : kOffset;
}

void PendingCalls::Keep(std::size_t index, const clsLlamadaTRD& call) {
  calls_[index].emplace(call);
  free_.set(index, call.TipoLlamada() == emLlamadaIndefinida);
  const bool between_trunks = call.TipoLlamada() == emLlamadaInterTroncal;
  trunk_[index] = HasOneTrunk(call) ? KeyOf(TrunkOf(call))
                  : between_trunks  ? KeyOf(call.Emisor())
                                    : kNoTrunk;
  other_trunk_[index] = between_trunks ? KeyOf(call.Receptor()) : kNoTrunk;
}

bool PendingCalls::Park(const clsLlamadaTRD& call) {
  const TextView trunk = TrunkOf(call);
  const Key key = KeyOf(trunk);
  std::size_t index = 0;
  while (
      index < used_ && !free_[index] &&
      !(trunk_[index] == key && HasOneTrunk(*calls_[index]) && TrunkOf(*calls_[index]) == trunk)) {
    ++index;
  }
  if (index == calls_.size()) return false;
  Keep(index, call);
  used_ = std::max(used_, index + 1);
  return true;
}

std::int16_t PendingCalls::Find(TextView trunk) const {
  trunk = Trim(trunk);
  const Key key = KeyOf(trunk);
  for (std::size_t index = 0; index < used_; ++index) {
    if (trunk_[index] != key && other_trunk_[index] != key) continue;
    if (IsOnTrunk(*calls_[index], trunk)) return static_cast<std::int16_t>(index + 1);
  }
  return 0;
}

void PendingCalls::Free(std::int16_t slot) {
  if (slot < 1 || Index(slot) >= used_) return;
  const std::size_t index = Index(slot);
  calls_[index]->TipoLlamada(emLlamadaIndefinida);
  free_.set(index);
  trunk_[index] = other_trunk_[index] = kNoTrunk;
}

void PendingCalls::Replace(std::int16_t slot, const clsLlamadaTRD& call) {
  Keep(Index(slot), call);
}

}  // namespace conmuta
