#include "photographer.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <thread>

#include "window_rules.h"

namespace conmuta::test {
namespace {

// Few enough colours for a small file: 16 greys, which grounds and texts have, and of the others,
// which edges of wires have by the thousand, 6 levels of each part.
COLORREF Quantised(COLORREF pixel) {
  const std::array<int, 3> parts = {GetRValue(pixel), GetGValue(pixel), GetBValue(pixel)};
  const auto [least, most] = std::minmax_element(parts.begin(), parts.end());
  const int steps = *most - *least <= 24 ? 15 : 5;
  const auto level = [steps](int part) { return (part * steps + 127) / 255 * 255 / steps; };
  return RGB(level(parts[0]), level(parts[1]), level(parts[2]));
}

// Writes what the screen shows of a window's client area, which must not be all of one colour.
bool SavePicture(HWND window, const std::wstring& path) {
  std::vector<COLORREF> pixels = PixelsOf(window);
  std::transform(pixels.begin(), pixels.end(), pixels.begin(), Quantised);
  if (std::all_of(pixels.begin(), pixels.end(), [&](COLORREF p) { return p == pixels.front(); })) {
    return false;
  }
  const SIZE size = ClientSizeOf(window);
  BITMAPINFOHEADER info{};
  info.biSize = sizeof info;
  info.biWidth = size.cx;
  info.biHeight = -size.cy;
  info.biPlanes = 1;
  info.biBitCount = 32;
  const auto bytes = static_cast<DWORD>(pixels.size() * sizeof pixels.front());
  BITMAPFILEHEADER header{};
  header.bfType = 0x4D42;
  header.bfOffBits = sizeof header + sizeof info;
  header.bfSize = header.bfOffBits + bytes;
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool saved = WriteFile(file, &header, sizeof header, &written, nullptr) != 0 &&
                     WriteFile(file, &info, sizeof info, &written, nullptr) != 0 &&
                     WriteFile(file, pixels.data(), bytes, &written, nullptr) != 0;
  CloseHandle(file);
  return saved;
}

// What is wrong with a window as it opens.
std::vector<std::string> FlawsAtOpening(HWND window) {
  const HDC screen = GetDC(nullptr);
  std::vector<std::string> flaws =
      FlawsOf(window, static_cast<UINT>(GetDeviceCaps(screen, LOGPIXELSY)));
  ReleaseDC(nullptr, screen);
  RECT outer{};
  GetWindowRect(window, &outer);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  RECT common{};
  IntersectRect(&common, &outer, &monitor.rcWork);
  if (!EqualRect(&common, &outer)) flaws.push_back("lies beyond the screen");
  return flaws;
}

}  // namespace

void Photographer::Take(TextView caption, const std::function<void()>& open,
                        std::vector<Pose> poses) {
  std::erase_if(poses, [this](const Pose& pose) { return pose.extent > extent_; });
  if (poses.empty()) return;
  host_.BeginCall();
  std::thread thread([&] {
    const Person person(host_);
    std::size_t shot = 0;
    try {
      const HWND window = person.WaitForWindow(caption);
      host_.Rest();
      for (const std::string& flaw : FlawsAtOpening(window)) throw Stuck(flaw);
      // Where all of it is on the screen, enlarged ones too, and the pointer is elsewhere.
      SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      for (const Pose& pose : poses) {
        pose.strike(person, window);
        Shoot(person, window, pose.name);
        ++shot;
      }
    } catch (const Stuck& stuck) {
      std::fprintf(stderr, "%ls: %s\n", poses[shot].name.c_str(), stuck.what());
      missed_ += static_cast<int>(poses.size() - shot);
    }
    while (!host_.IsIdle()) {
      person.LeaveAll();
      Sleep(10);
    }
  });
  open();
  host_.EndCall();
  thread.join();
}

void Photographer::Shoot(const Person& person, HWND window, const std::wstring& name) {
  host_.Run([] { HideCaret(nullptr); });  // it blinks
  person.Repaint(window);
  bool saved = false;
  host_.Run([&] { saved = SavePicture(window, folder_ + L"\\" + name + L".bmp"); });
  host_.Run([] { ShowCaret(nullptr); });
  ++(saved ? taken_ : missed_);
}

}  // namespace conmuta::test
