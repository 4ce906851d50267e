// The growable list of a configuration's slots, with an index by kind and a count of its changes.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "config/slots.h"
#include "platform/arithmetic.h"

namespace conmuta {

// Slots are numbered from 1 and are never removed. A released slot keeps its contents until
// another kind takes it over.
template <class Slot>
class SlotList {
 public:
  using Kind = typename Slot::Kind;

  // Number of the first slot of this kind, released or not; 0 when there is none or the code is
  // not a kind.
  std::int16_t Busca(Kind kind) const {
    return IsKind<Slot>(kind) ? by_kind_[static_cast<std::size_t>(kind)] : std::int16_t{0};
  }

  // Takes the memory for so many more slots, of which no two have one kind; Alta needs none then.
  void Reserve(std::size_t more) {
    slots_.reserve(slots_.size() + std::min<std::size_t>(more, Slot::kUpperBound));
  }

  // Makes a slot for a code that Busca does not find: takes over the first one that is released or
  // carries that very code, or else adds one (OverflowError beyond 32767). Hosts rely on a slot
  // that is taken over keeping the position, size and constant of the kind before.
  std::int16_t Alta(Kind kind) {
    std::size_t place = 0;
    while (place < slots_.size() && slots_[place].Param != kind &&
           slots_[place].TipoDato != emNoDefinido) {
      ++place;
    }
    const auto number = Narrow<std::int16_t>(place + 1);
    ++revision_;
    if (place == slots_.size()) slots_.emplace_back();

    Slot& slot = slots_[place];
    if (IsKind<Slot>(slot.Param)) by_kind_[static_cast<std::size_t>(slot.Param)] = 0;
    if (IsKind<Slot>(kind)) by_kind_[static_cast<std::size_t>(kind)] = number;
    slot.Param = kind;
    slot.TipoDato = Slot::kTypeWhenWritten;
    return number;
  }

  // The valid slot of this kind, or null.
  const Slot* FindValid(Kind kind) const {
    const std::int16_t number = Busca(kind);
    if (number == 0) return nullptr;
    const Slot& slot = (*this)[number];
    return IsValid(slot) ? &slot : nullptr;
  }

  void ReleaseAll() {
    ++revision_;
    for (Slot& slot : slots_) slot.TipoDato = emNoDefinido;
  }

  // Counts as a change: to be asked for again before each write.
  Slot& operator[](std::int16_t number) {
    ++revision_;
    return slots_[static_cast<std::size_t>(number - 1)];
  }
  const Slot& operator[](std::int16_t number) const {
    return slots_[static_cast<std::size_t>(number - 1)];
  }

  // Grows with every change.
  std::uint64_t Revision() const { return revision_; }

  auto begin() const { return slots_.begin(); }
  auto end() const { return slots_.end(); }

 private:
  std::vector<Slot> slots_;
  std::uint64_t revision_ = 0;
  std::array<std::int16_t, Slot::kUpperBound> by_kind_{};
};

}  // namespace conmuta
