// Everything through which the DLL reaches files.
#pragma once

#include <windows.h>

namespace conmuta::test {

// Puts the file system under the control of faults, for as long as the DLL is loaded.
void DivertFiles(HMODULE dll);

}  // namespace conmuta::test
