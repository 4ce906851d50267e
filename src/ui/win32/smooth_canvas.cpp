#include "ui/win32/smooth_canvas.h"

#include <algorithm>
#include <new>

namespace conmuta::win32 {
namespace {

BITMAPINFO TopDown(SIZE size) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.cx;
  info.bmiHeader.biHeight = -size.cy;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

}  // namespace

SmoothCanvas::SmoothCanvas(SIZE size, COLORREF background)
    : size_{std::max(size.cx, 1L), std::max(size.cy, 1L)}, dc_(CreateCompatibleDC(nullptr)) {
  const SIZE large{size_.cx * kOversampling, size_.cy * kOversampling};
  const BITMAPINFO info = TopDown(large);
  void* bits = nullptr;
  bitmap_ = Bitmap(CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (bitmap_.get() == nullptr) {
    DeleteDC(dc_);
    throw std::bad_alloc();
  }
  pixels_ = static_cast<std::uint32_t*>(bits);
  previous_ = SelectObject(dc_, bitmap_.get());
  const RECT all{0, 0, large.cx, large.cy};
  const Brush brush(CreateSolidBrush(background));
  FillRect(dc_, &all, brush.get());
}

SmoothCanvas::~SmoothCanvas() {
  SelectObject(dc_, previous_);
  DeleteDC(dc_);
}

void SmoothCanvas::CopyTo(HDC target) const {
  GdiFlush();
  constexpr std::uint32_t kSamples = kOversampling * kOversampling;
  const auto stride = static_cast<std::size_t>(size_.cx) * kOversampling;
  std::vector<std::uint32_t> averaged;
  averaged.reserve(static_cast<std::size_t>(size_.cx) * static_cast<std::size_t>(size_.cy));
  for (LONG y = 0; y < size_.cy; ++y) {
    const std::uint32_t* row = pixels_ + static_cast<std::size_t>(y) * kOversampling * stride;
    for (LONG x = 0; x < size_.cx; ++x, row += kOversampling) {
      std::uint32_t red = 0, green = 0, blue = 0;
      for (std::size_t dy = 0; dy < kOversampling; ++dy) {
        for (std::size_t dx = 0; dx < kOversampling; ++dx) {
          const std::uint32_t pixel = row[dy * stride + dx];
          red += (pixel >> 16) & 0xFF;
          green += (pixel >> 8) & 0xFF;
          blue += pixel & 0xFF;
        }
      }
      averaged.push_back((red / kSamples) << 16 | (green / kSamples) << 8 | blue / kSamples);
    }
  }
  const BITMAPINFO info = TopDown(size_);
  SetDIBitsToDevice(target, 0, 0, static_cast<DWORD>(size_.cx), static_cast<DWORD>(size_.cy), 0, 0,
                    0, static_cast<UINT>(size_.cy), averaged.data(), &info, DIB_RGB_COLORS);
}

}  // namespace conmuta::win32
