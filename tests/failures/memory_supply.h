// Everything through which the DLL gets memory, or things for which the system needs some.
#pragma once

#include <windows.h>

namespace conmuta::test {

// Puts the memory under the control of faults, for as long as the DLL is loaded.
void DivertMemory(HMODULE dll);

}  // namespace conmuta::test
