// The list of what marked columns can be.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "taller/offers.h"

namespace conmuta::taller {

// Lets the person choose, at a place of the screen. `choose` takes a choice; while it has something
// to say against it, the list stays and says so.
void AskForOffer(const Text& caption, const std::vector<Offer>& offers, const RECT& place,
                 const std::function<Messages(const SlotKind&)>& choose);

// Its controls.
inline constexpr int kOfferFilter = 2100;
inline constexpr int kOfferList = 2101;
inline constexpr int kOfferDoubt = 2102;

}  // namespace conmuta::taller
