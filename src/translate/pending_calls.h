// Calls whose transfer has begun and not yet ended, kept by the trunk they came or went by.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>

#include "translate/clsLlamadaTRD.h"

namespace conmuta {

// Slots 1 to 100, each empty or with a record of its own. A record of undefined type is free.
class PendingCalls {
 public:
  static constexpr std::int16_t kSlots = 100;

  // Keeps a copy: in the first slot that is free or holds a call on the same trunk, else in the
  // first empty one. Hosts rely on the trunk being compared exactly here, and on a call that finds
  // all slots taken being dropped: false.
  bool Park(const clsLlamadaTRD& call);

  // The first slot whose call is on that trunk, or 0. Letter case and blanks around `trunk` do not
  // count; blanks in the parked call's own trunk do.
  std::int16_t Find(TextView trunk) const;

  // How many wait.
  std::size_t Count() const { return used_ - free_.count(); }

  // Marks a slot's record as free. Anything but the number of a slot with a record is ignored.
  void Free(std::int16_t slot);

  // The record in a slot that Find gave, and another in its place.
  const clsLlamadaTRD& operator[](std::int16_t slot) const { return *calls_[Index(slot)]; }
  void Replace(std::int16_t slot, const clsLlamadaTRD& call);

 private:
  // What a trunk comes to in either letter case, so that most calls need no second look.
  using Key = std::uint32_t;
  static constexpr Key kNoTrunk = 0;

  static std::size_t Index(std::int16_t slot) { return static_cast<std::size_t>(slot - 1); }
  static Key KeyOf(TextView trunk);
  void Keep(std::size_t index, const clsLlamadaTRD& call);

  // Slots fill in their order and are never emptied: the first used_ have records.
  std::size_t used_ = 0;
  std::array<std::optional<clsLlamadaTRD>, kSlots> calls_;
  std::bitset<kSlots> free_;
  // The trunks of each call, kNoTrunk where it has none; the second is for calls between trunks.
  std::array<Key, kSlots> trunk_{};
  std::array<Key, kSlots> other_trunk_{};
};

}  // namespace conmuta
