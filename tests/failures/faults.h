// Which of the DLL's calls to the system fail, and what the DLL holds of what they gave it.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace conmuta::test {

// What a call asks the system for.
enum class Supply { kMemory, kFiles };

// What goes wrong in one round.
struct Fault {
  int point = 0;                          // which of the calls fails, counted from 1; 0 for none
  bool from_there_on = false;             // and so do all behind it
  DWORD error = ERROR_NOT_ENOUGH_MEMORY;  // what the system says of it
  bool cut_short = false;                 // a write stores half of what it was given, and says so
};

namespace faults {

// From here on the calls for that supply are counted, and fail as the fault says.
void Arm(Supply supply, const Fault& fault);
// Gives how many calls there were.
int Disarm();

// For a call of that name that is being made: whether it fails. The system's error is set then.
bool Fails(Supply supply, const char* call);
const Fault& Current();
// The call that failed first since the last Arm; empty for none.
std::string FirstFailed();
// The calls since the last Arm, in their order.
std::string Calls();

// The DLL was given something of that kind, or gives it back. What nobody took is not counted.
void Took(const char* kind, const void* thing);
void GaveBack(const char* kind, const void* thing);
// Kinds with how many of each the DLL holds; none is 0.
using Holdings = std::map<std::string, int>;
Holdings Held();

}  // namespace faults
}  // namespace conmuta::test
