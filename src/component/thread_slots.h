#pragma once

namespace conmuta::component {

// Once, when the DLL leaves a process that goes on.
void GiveBackThreadSlots();

}  // namespace conmuta::component
