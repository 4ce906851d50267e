// What windows leave behind: nothing.
#include "rude_host.h"

namespace conmuta::test {
namespace {

// Highest of the places that so many new objects get. It grows with every object that is not
// deleted, whereas places that are free are taken again first.
template <class Make, class Delete>
std::uintptr_t HighestPlace(Make&& make, Delete&& remove) {
  std::vector<decltype(make())> objects;
  std::uintptr_t highest = 0;
  for (int i = 0; i < 1000; ++i) {
    objects.push_back(make());
    highest = std::max(highest, reinterpret_cast<std::uintptr_t>(objects.back()) & 0xFFFF);
  }
  for (const auto object : objects) remove(object);
  return highest;
}

int WindowsOfThread() {
  int count = 0;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND, LPARAM counted) CALLBACK -> BOOL {
        ++*reinterpret_cast<int*>(counted);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

TEST_F(RudeHostTest, FiftyOpeningsLeaveNothingBehind) {
  constexpr int kOpenings = 50;
  for (const Kind& kind : Kinds()) {
    SCOPED_TRACE(kind.name);
    const auto open_once = [&] {
      While(kind.open, [&](const Person& person) {
        const HWND window = person.WaitForWindow(kind.caption);
        person.Resize(window, 700, 500);
        PostMessageW(window, WM_CLOSE, 0, 0);
        person.WaitUntilClosed(window);
      });
    };
    const auto drawing_objects = [] {
      return HighestPlace([] { return CreateSolidBrush(RGB(1, 2, 3)); }, DeleteObject);
    };
    const auto windows = [] {
      return HighestPlace(
          [] {
            return CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                   nullptr, nullptr);
          },
          DestroyWindow);
    };
    for (int i = 0; i < 5; ++i) open_once();  // what the system keeps for itself is made by now
    const auto drawing_before = drawing_objects();
    const auto windows_before = windows();
    const DWORD gdi_before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD user_before = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    const int top_level_before = WindowsOfThread();
    DWORD handles_before = 0, handles_after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles_before);
    for (int i = 0; i < kOpenings; ++i) open_once();
    GetProcessHandleCount(GetCurrentProcess(), &handles_after);
    EXPECT_LT(drawing_objects(), drawing_before + kOpenings / 2);
    EXPECT_LT(windows(), windows_before + kOpenings / 2);
    // Both are 0 where the system does not count.
    EXPECT_LT(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi_before + kOpenings / 2);
    EXPECT_LT(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user_before + kOpenings / 2);
    EXPECT_EQ(WindowsOfThread(), top_level_before);
    EXPECT_LT(handles_after, handles_before + kOpenings / 2);
  }
}

TEST_F(RudeHostTest, DllUnloadsAfterItsWindowsAndLoadsAgain) {
  for (int round = 0; round < 3; ++round) {
    for (const Kind& kind : Kinds()) {
      SCOPED_TRACE(kind.name);
      While(kind.open, [&](const Person& person) {
        const HWND window = person.WaitForWindow(kind.caption);
        person.Press(GetDlgItem(window, kind.way_out));
      });
    }
    config = {};
    catalogue = {};
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(DllPath().c_str()), nullptr);
    WNDCLASSW window_class{};
    EXPECT_FALSE(GetClassInfoW(nullptr, L"Conmuta.Window", &window_class));
    config = NamedConfig();
    catalogue = NewFilledCatalogue();
  }
}

}  // namespace
}  // namespace conmuta::test
