// The first lines of a capture, for who tells from a few what all are like.
#pragma once

#include <vector>

#include "platform/text.h"
#include "taller/capture_bytes.h"

namespace conmuta::taller {

// As the translator gets them, without the head. What has no line end comes only where that will
// not come any more.
std::vector<Text> FirstLines(const CaptureBytes& bytes, std::size_t most);

}  // namespace conmuta::taller
