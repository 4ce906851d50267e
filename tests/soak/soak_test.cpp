// A host that never ends: objects, windows, loads and lines without number must leave nothing. The
// full numbers run where CONMUTA_SOAK is 100 (percent); without it, 1.
#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdlib>

#include "windows/every_window.h"

namespace conmuta::test {
namespace {

int Percent() {
  const char* percent = std::getenv("CONMUTA_SOAK");
  return percent != nullptr ? std::clamp(std::atoi(percent), 1, 100) : 1;
}

// What a process holds.
struct Holdings {
  long long kilobytes = 0;
  DWORD handles = 0;

  static Holdings Now() {
    Holdings holdings;
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    holdings.kilobytes = static_cast<long long>(memory.PagefileUsage / 1024);
    GetProcessHandleCount(GetCurrentProcess(), &holdings.handles);
    return holdings;
  }
};

// Does something so many times, in per cent of `whole`. After a tenth of it, in which everybody
// makes what he keeps, memory may grow by what an allocator keeps for itself and no more.
template <class Work>
void Repeat(int whole, const char* what, Work&& work, double kilobytes_each = 0) {
  const int times = std::max(10, whole / 100 * Percent());
  for (int i = 0; i < times / 10 + 1; ++i) work();
  const Holdings before = Holdings::Now();
  for (int i = 0; i < times; ++i) work();
  const Holdings after = Holdings::Now();
  const auto most = 256 + static_cast<long long>(times * kilobytes_each);
  EXPECT_LE(after.kilobytes - before.kilobytes, most) << times << ' ' << what;
  EXPECT_LE(after.handles, before.handles + 4) << times << ' ' << what;
  std::printf("%d %s: %+lld KB, %+ld handles\n", times, what, after.kilobytes - before.kilobytes,
              static_cast<long>(after.handles) - static_cast<long>(before.handles));
}

// The first slot of thread-local storage that nobody has.
DWORD FreeThreadSlot() {
  const DWORD slot = TlsAlloc();
  TlsFree(slot);
  return slot;
}

class SoakTest : public EveryWindowTest {};

constexpr TextView kLine = u"21/11 10:05 00:07:20 E 5551234567 205";

TEST_F(SoakTest, ObjectsComeAndGo) {
  Repeat(1'000'000, "configurations", [] { NamedConfig(); });
  Repeat(1'000'000, "call records", [] { Do(NewCall(), &Trd::put_Telefono, u"5551234567"); });
  Repeat(1'000'000, "catalogues", [] { Do(NewCatalogue(), &Catalogue::put_Prefijo, u"cnm"); });
  const auto config = TypicalConfig();
  Repeat(1'000'000, "translators", [&] {
    const auto translator = NewTranslator();
    Do(translator, &Trad::putref_Conmutador, config.get());
    Do(translator, &Trad::put_Llamada, kLine);
  });
}

TEST_F(SoakTest, LinesComeWithoutEnd) {
  const auto config = TypicalConfig();
  const auto translator = NewTranslator();
  Do(translator, &Trad::putref_Conmutador, config.get());
  const Bstr line(kLine);
  int refused = 0;
  Repeat(10'000'000, "lines", [&] { refused += FAILED(translator->put_Llamada(line.get())); });
  EXPECT_EQ(refused, 0);
}

TEST_F(SoakTest, ErrorsComeWithoutEnd) {
  const auto config = TypicalConfig();
  Repeat(1'000'000, "errors", [&] {
    EXPECT_TRUE(FAILED(config->Abrir(nullptr)));
    FailureOf(E_FAIL);
  });
}

TEST_F(SoakTest, FilesAreSavedAndOpened) {
  const auto config = TypicalConfig();
  Repeat(100'000, "saves and loads", [&] {
    Do(config, &Cfg::GuardarComo, folder_.Path(u"soak.cfg"));
    Do(config, &Cfg::Abrir, folder_.Path(u"soak.cfg"));
  });
}

TEST_F(SoakTest, WindowsOpenAndClose) {
  Repeat(10'000 / 4, "openings of each window", [&] { InEach([](const Person&, HWND) {}); });
}

TEST_F(SoakTest, TheDllIsLoadedAndUnloaded) {
  config_ = {};
  catalogue_ = {};
  CoFreeUnusedLibrariesEx(0, 0);
  ASSERT_EQ(GetModuleHandleW(DllPath().c_str()), nullptr);
  // Loading and unloading one of the system's own costs the process something each time.
  const HMODULE dialogs = LoadLibraryW(L"comdlg32.dll");
  const auto load = [] {
    const LoadedDll dll;
    ASSERT_TRUE(dll);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(dll.GetClassObject(CLSID_clsCfgConmut, IID_IClassFactory, factory.ReceiveVoid()),
              S_OK);
    ComPtr<IUnknown> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, object.ReceiveVoid()), S_OK);
  };
  // The compiler's runtime leaves its description of the thread, which nobody else can free.
  Repeat(1000, "loads", load, 1);
  const DWORD free_slot = FreeThreadSlot();
  load();
  EXPECT_EQ(FreeThreadSlot(), free_slot);
  FreeLibrary(dialogs);
}

}  // namespace
}  // namespace conmuta::test
