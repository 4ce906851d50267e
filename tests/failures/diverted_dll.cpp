// The DLL stays loaded, and gets its memory and its files by the tests' leave.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>

#include "component/dll.h"
#include "component/host.h"
#include "file_supply.h"
#include "memory_supply.h"
#include "progress.h"
#include "rounds.h"
#include "task_memory.h"

namespace conmuta::test {
namespace {

class DivertedDll final : public ::testing::Environment {
 public:
  void SetUp() override {
    const HMODULE dll = LoadLibraryW(DllPath().c_str());
    ASSERT_NE(dll, nullptr);
    WatchTaskMemory();
    DivertMemory(dll);
    DivertFiles(dll);
    WatchRounds();
    // The first failure of all: the compiler's run time makes what it keeps for the next ones.
    EXPECT_TRUE(FAILED(NewConfig()->Abrir(nullptr)));
    SetErrorInfo(0, nullptr);
  }
  void TearDown() override { std::printf("%d rounds with a call that failed\n", FailedCalls()); }
};

const ::testing::Environment* const diverted = ::testing::AddGlobalTestEnvironment(new DivertedDll);

}  // namespace
}  // namespace conmuta::test
