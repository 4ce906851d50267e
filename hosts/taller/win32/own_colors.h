// Whether the user's colours leave room for others.
#pragma once

namespace conmuta::taller {

// Not where they are of high contrast, nor on a dark ground, which ours are not made for.
bool MayUseOwnColors();

}  // namespace conmuta::taller
