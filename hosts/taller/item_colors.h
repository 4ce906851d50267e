// The colours that items have on the lines.
#pragma once

#include <cstddef>
#include <span>

#include "cable/palette.h"

namespace conmuta::taller {

// Grounds that the ink is read on. Two that follow each other differ in lightness, so that items
// side by side are told apart by who sees no colours.
std::span<const Color> ItemGrounds();

// Of the n-th item by its columns, from 0; they come again.
Color ItemGround(std::size_t n);

}  // namespace conmuta::taller
