// What the program is doing, for when it is ended in the midst of it.
#pragma once

#include <windows.h>

#include <string>

namespace conmuta::test {

// Milliseconds that one round may take.
inline constexpr DWORD kMostForARound = 10000;

// The round that begins now, in words; the one before is over.
void BeginRound(const std::string& what);
void EndRound();

// Ends the program, whatever state it is in, with a line that says why and in which round.
[[noreturn]] void EndOfProgram(const char* why);

// Ends the program when a round takes too long or breaks it.
void WatchRounds();

}  // namespace conmuta::test
