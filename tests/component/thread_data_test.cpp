// What the DLL keeps for each thread lies in what the system copies for each thread.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>

#include "dll.h"

namespace conmuta::test {
namespace {

TEST(ThreadData, IsAllWithinWhatTheSystemCopies) {
  const LoadedDll dll;
  ASSERT_TRUE(dll);
  const auto* image = reinterpret_cast<const char*>(GetModuleHandleW(DllPath().c_str()));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
  const auto* pe = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + dos->e_lfanew);
  const auto& place = pe->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_TLS];
  ASSERT_NE(place.VirtualAddress, 0u);
  const auto* threads = reinterpret_cast<const IMAGE_TLS_DIRECTORY*>(image + place.VirtualAddress);
  const auto bytes = threads->EndAddressOfRawData - threads->StartAddressOfRawData;
  // A word of the C library's own, then 64 bytes for the run time's variables, aligned.
  EXPECT_GE(bytes, 16u + 64u);
  for (auto at = threads->StartAddressOfRawData; at < threads->EndAddressOfRawData; ++at) {
    ASSERT_EQ(*reinterpret_cast<const char*>(at), 0) << "threads begin with zeros";
  }
}

}  // namespace
}  // namespace conmuta::test
