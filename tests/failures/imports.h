// What a loaded DLL calls, as places that can be made to point elsewhere.
#pragma once

#include <windows.h>

#include <string_view>

namespace conmuta::test {

// Where the DLL keeps the address of a function that it imports; null when it imports none of that
// name.
void** ImportOf(HMODULE module, std::string_view name);

// Puts an address into a place that may be read-only; gives what was there.
void* Put(void** place, void* address);

}  // namespace conmuta::test
