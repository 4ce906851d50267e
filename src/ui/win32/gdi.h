// Owning types for what GDI hands out, and measures of text.
#pragma once

#include <windows.h>

#include <utility>

#include "platform/text.h"

namespace conmuta::win32 {

// A GDI object that is deleted when it goes.
template <class Handle>
class GdiObject {
 public:
  GdiObject() = default;
  explicit GdiObject(Handle handle) : handle_(handle) {}
  GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  GdiObject& operator=(GdiObject&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~GdiObject() {
    if (handle_ != nullptr) DeleteObject(handle_);
  }

  Handle get() const { return handle_; }

 private:
  Handle handle_ = nullptr;
};

using Font = GdiObject<HFONT>;
using Bitmap = GdiObject<HBITMAP>;

// Selects an object for as long as it lives.
class Selection {
 public:
  Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
  ~Selection() { SelectObject(dc_, previous_); }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  HDC dc_;
  HGDIOBJ previous_;
};

// Paints what of a window has to be painted, for as long as it lives.
class Painting {
 public:
  explicit Painting(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
  ~Painting() { EndPaint(window_, &paint_); }
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;

  HDC dc() const { return dc_; }
  const RECT& part() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC dc_;
};

// The system's message font, and a fixed-pitch one of that height in pixels.
Font MessageFont(UINT dpi);
Font FixedPitchFont(int height);

// Size of a text, the longest of its lines and all of them, in a font; DT_ flags say how it is
// read.
SIZE MeasureText(HFONT font, TextView text, UINT flags = DT_NOPREFIX | DT_EXPANDTABS);

}  // namespace conmuta::win32
