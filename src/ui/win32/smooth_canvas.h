// A drawing surface with smooth edges: painted larger with plain GDI, then averaged down.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "cable/diagram.h"
#include "ui/win32/gdi.h"

namespace conmuta::win32 {

class SmoothCanvas {
 public:
  // Pixels, filled with one colour.
  SmoothCanvas(SIZE size, COLORREF background);
  ~SmoothCanvas();
  SmoothCanvas(const SmoothCanvas&) = delete;
  SmoothCanvas& operator=(const SmoothCanvas&) = delete;

  // Drawing happens in the surface's own, larger units: kOversampling to the pixel.
  static constexpr int kOversampling = 3;
  HDC dc() const { return dc_; }

  // The picture in pixels of the target.
  void CopyTo(HDC target) const;

 private:
  SIZE size_;
  HDC dc_;
  Bitmap bitmap_;
  std::uint32_t* pixels_ = nullptr;
  HGDIOBJ previous_;
};

}  // namespace conmuta::win32
