// What marked columns can be, likeliest first.
#pragma once

#include <vector>

#include "taller/document.h"
#include "taller/selection.h"
#include "taller/slot_kind.h"

namespace conmuta::taller {

struct Offer {
  SlotKind kind;
  Text group;         // "Fecha y hora"
  double likelihood;  // 0 to 1

  bool operator==(const Offer&) const = default;
};

// All items and constants, by what stands in these columns of the sample lines. One that the layout
// has already comes behind those it lacks.
std::vector<Offer> OffersFor(const Marked& marked, TextView line, const std::vector<Text>& samples,
                             const layouts::Layout& layout);

// Those that have all words of what was typed in their name or group, whatever its case.
std::vector<Offer> Matching(const std::vector<Offer>& offers, TextView typed);

// Gives the columns to what was chosen, as one step; a constant takes the text that is marked. What
// cannot be is said and changes nothing.
[[nodiscard]] Messages Choose(Document& document, const SlotKind& kind, const Marked& marked,
                              TextView line);

}  // namespace conmuta::taller
