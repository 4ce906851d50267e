#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdio>

#include "dll.h"

// The objects live on a user-interface thread, in its single-threaded apartment. What the tests
// meet through COM must be the DLL that was built with them, whichever was registered before.
int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
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
