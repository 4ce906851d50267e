// Several sources worked on at once, their output one after the other.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "conmuta/out_buffer.h"

namespace conmuta::host {

// What is done about a source, in any thread: it writes to the buffer, which may make it wait.
using WorkOn = std::function<void(std::size_t source, OutBuffer& out)>;

// Calls `work` for each source, up to `most` of them at a time, and hands what they write to `sink`
// in this thread, source after source. Only so much is kept of those whose turn has not come that
// memory does not grow with them. What a source's work throws is thrown here in its turn, after the
// others have ended.
void WorkInOrder(std::size_t sources, std::size_t most, const WorkOn& work,
                 const OutBuffer::Sink& sink);

}  // namespace conmuta::host
