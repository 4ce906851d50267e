// The memory that COM's callers and callees hand each other: texts and the like.
#pragma once

namespace conmuta::test {

// From here on, what the process holds of it is counted among what the DLL holds. Texts are not
// kept for later ones.
void WatchTaskMemory();

}  // namespace conmuta::test
