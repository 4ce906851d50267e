// Base of the tests of windows: the host opens one on the test's own thread, and the call returns
// when a person has closed it.
#pragma once

#include "component/host_test.h"
#include "working_person.h"

namespace conmuta::test {

class WindowTest : public HostTest {
 protected:
  HostThread& host() { return host_; }

  template <class Open, class Work>
  void While(Open&& open, Work&& work) {
    test::While(host_, open, work);
  }

 private:
  Watchdog watchdog_;
  HostThread host_;
};

// The message that ends the host's own loop, if it is there; takes it.
inline bool TakeQuit(int* exit_code = nullptr) {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      if (exit_code != nullptr) *exit_code = static_cast<int>(message.wParam);
      return true;
    }
    DispatchMessageW(&message);
  }
  return false;
}

}  // namespace conmuta::test
