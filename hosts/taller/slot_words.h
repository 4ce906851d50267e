// Items and constants as the window names and groups them.
#pragma once

#include <cstdint>
#include <vector>

#include "taller/slot_kind.h"

namespace conmuta::taller {

// In the window's order.
enum class SlotGroup : std::uint8_t {
  kStart,
  kDuration,
  kRing,
  kAccount,
  kPhones,
  kTrunks,
  kExtensions,
  kIdentifiers,
  kTransfers,
};
inline constexpr std::size_t kSlotGroups = static_cast<std::size_t>(SlotGroup::kTransfers) + 1;

// "Fecha y hora"
TextView TitleOf(SlotGroup group);

SlotGroup GroupOf(const SlotKind& kind);

// Within its group: "Mes", "Entrante", "y". Of a transfer "Entrante, inicio: teléfono".
Text ShortNameOf(const SlotKind& kind);

// The items, then the constants, of a group; those of transfers by the type of their calls.
std::vector<SlotKind> KindsOf(SlotGroup group);

}  // namespace conmuta::taller
