// The information window with a person before it.
#pragma once

#include "captions.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {

// Of the screen, for so many at 96 dots per inch.
inline int Scaled(int pixels) {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return MulDiv(pixels, dpi, 96);
}

class InfoWindowTest : public WindowTest {
 protected:
  // Works the report of a configuration. The person is to close it.
  template <class Work>
  void WhileShown(const ComPtr<Cfg>& config, Work&& work) {
    While([&] { Do(config, &Cfg::MostrarInformacionConfiguracion); },
          [&](const Person& person) {
            const HWND window = person.WaitForWindow(kInfoCaption);
            work(person, window, GetDlgItem(window, win32::kTxtInfo),
                 GetDlgItem(window, win32::kBtnCerrar));
          });
  }
};

}  // namespace conmuta::test
