// Which test is running, for handlers of crashes.
#pragma once

namespace conmuta::test {

// Prints it, with the given reason, to stderr.
void PrintRunningTest(const char* reason);

}  // namespace conmuta::test
