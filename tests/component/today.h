// Tests that meet the date of the day, even around midnight.
#pragma once

#include <windows.h>

namespace conmuta::test {

// Runs a test that expects something of today's date; once more when the day ended meanwhile.
template <class Body>
void WithToday(Body&& body) {
  for (;;) {
    SYSTEMTIME before, after;
    GetLocalTime(&before);
    body(before);
    GetLocalTime(&after);
    if (before.wDay == after.wDay || ::testing::Test::HasFailure()) return;
  }
}

}  // namespace conmuta::test
