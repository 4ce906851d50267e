#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdio>

#include "component/dll.h"
#include "main/crash_names_test.h"
#include "main/win32/without_window_manager.h"

// A host with a user interface: one thread in an apartment of its own, which makes the objects and
// waits for their windows. What the tests meet through COM must be the DLL that was built with
// them, whichever was registered before.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  conmuta::test::CrashesNameTheirTest();
  conmuta::test::ManageWindowsWithoutManager();
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  {
    const conmuta::test::LoadedDll dll;
    if (!dll || FAILED(dll.RegisterServer())) {
      std::fprintf(stderr, "cannot load and register %s\n", CONMUTA_DLL);
      return 2;
    }
  }
  const int result = RUN_ALL_TESTS();
  CoUninitialize();
  return result;
}
