// Hosts that let the DLL go and load it again: nothing of it stays behind, and all of it works
// anew.
#include <windows.h>

#include <gtest/gtest.h>
#include <psapi.h>

#include <vector>

#include "component/dll.h"
#include "component/host.h"
#include "component/scratch_files.h"

namespace conmuta::test {
namespace {

// What the process holds of its heaps.
std::size_t BytesInUse() {
  std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
  heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
  std::size_t bytes = 0;
  for (const HANDLE heap : heaps) {
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    }
    HeapUnlock(heap);
  }
  return bytes;
}

class Unloading : public testing::Test {
 protected:
  // A file of its own, so that nobody else keeps it loaded.
  Unloading() { CopyFileW(DllPath().c_str(), path_.c_str(), FALSE); }

  // Loads the DLL, uses it, and lets it go.
  void Use(void (*use)(const ComPtr<Cfg>&)) {
    HMODULE module = nullptr;
    {
      const LoadedDll dll(path_);
      ASSERT_TRUE(dll);
      module = GetModuleHandleW(path_.c_str());
      {
        ComPtr<IClassFactory> factory;
        ComPtr<Cfg> config;
        ASSERT_EQ(dll.GetClassObject(CLSID_clsCfgConmut, IID_IClassFactory, factory.ReceiveVoid()),
                  S_OK);
        ASSERT_EQ(factory->CreateInstance(nullptr, IID__clsCfgConmut, config.ReceiveVoid()), S_OK);
        use(config);
      }
      SetErrorInfo(0, nullptr);
      ASSERT_EQ(dll.CanUnloadNow(), S_OK);
    }
    ASSERT_EQ(GetModuleHandleW(path_.c_str()), nullptr) << "it is still loaded";
    // A window of a class that stays would be handled by code that is gone.
    for (const wchar_t* name : {L"Conmuta.Window", L"Conmuta.Diagram"}) {
      WNDCLASSEXW known{};
      known.cbSize = sizeof known;
      EXPECT_FALSE(GetClassInfoExW(module, name, &known)) << "a window class stays";
    }
  }

  static void OpenWindows(const ComPtr<Cfg>& config) {
    VARIANT_BOOL may_edit = VARIANT_TRUE;
    PostQuitMessage(0);
    EXPECT_EQ(config->MostrarInformacionConfiguracion(), S_OK);
    EXPECT_EQ(config->EDConfigSeriales(&may_edit), S_OK);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
  }

  static void FailAndBindLate(const ComPtr<Cfg>& config) {
    EXPECT_LT(config->Abrir(nullptr), 0);
    std::wstring name = L"Marca";
    OLECHAR* names[] = {name.data()};
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(config->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
  }

 private:
  const ScratchFolder folder_;
  const std::wstring path_ = Wide(folder_.Path(u"other.dll"));
};

TEST_F(Unloading, WindowsOpenAgainAfterIt) {
  for (int round = 0; round < 3; ++round) Use(OpenWindows);
}

TEST_F(Unloading, LeavesNoMemoryBehind) {
  constexpr int kRounds = 50;
  for (int round = 0; round < 5; ++round) Use(FailAndBindLate);
  const std::size_t before = BytesInUse();
  for (int round = 0; round < kRounds; ++round) Use(FailAndBindLate);
  const std::size_t after = BytesInUse();
  EXPECT_LT(after, before + kRounds * 1000);
}

}  // namespace
}  // namespace conmuta::test
