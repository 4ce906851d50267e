// A test program that dies says in which test.
#pragma once

namespace conmuta::test {

// From now on a crash, an abort or an exception that nobody catches prints the name of the running
// test to stderr and ends the program at once: no debugger, no message box, no core of minutes.
// Once, after GoogleTest was initialised.
void CrashesNameTheirTest();

}  // namespace conmuta::test
