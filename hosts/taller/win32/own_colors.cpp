#include "taller/win32/own_colors.h"

#include <windows.h>

#include "cable/palette.h"

namespace conmuta::taller {

bool MayUseOwnColors() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
  if ((contrast.dwFlags & HCF_HIGHCONTRASTON) != 0) return false;
  const COLORREF ground = GetSysColor(COLOR_WINDOW);
  constexpr double kReadable = 7;
  return Contrast({GetRValue(ground), GetGValue(ground), GetBValue(ground)}, kInk) >= kReadable;
}

}  // namespace conmuta::taller
