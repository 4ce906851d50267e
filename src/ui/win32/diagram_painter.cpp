#include "ui/win32/diagram_painter.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "cable/diagram_raster.h"
#include "ui/win32/gdi.h"

namespace conmuta::win32 {
namespace {

constexpr LONG kBufferedPixels = 256 * 1024;
constexpr double kLabelHeight = 14;
constexpr double kTextHeight = 12;

COLORREF Ref(Color color) {
  return RGB(color.red, color.green, color.blue);
}

const wchar_t* Characters(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.data());
}

Font Arial(double height, int angle, int weight) {
  return Font(CreateFontA(-std::max(static_cast<int>(std::lround(height)), 1), 0, angle, angle,
                          weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
                          CLIP_DEFAULT_PRECIS, PROOF_QUALITY, VARIABLE_PITCH | FF_SWISS, "Arial"));
}

// The texts of a diagram, in a strip of the view.
class Writer {
 public:
  explicit Writer(double scale)
      : scale_(scale),
        upright_(Arial(kLabelHeight * scale, 0, FW_SEMIBOLD)),
        upwards_(Arial(kLabelHeight * scale, 900, FW_SEMIBOLD)),
        plain_(Arial(kTextHeight * scale, 0, FW_NORMAL)) {}

  void Write(HDC dc, Point origin, LONG height, const Diagram& diagram) {
    dc_ = dc;
    origin_ = origin;
    height_ = height;
    SetBkMode(dc, TRANSPARENT);
    for (const LabelShape& label : diagram.labels) Write(label);
    const Selection with_font(dc, plain_.get());
    for (const PinShape& pin : diagram.pins) {
      const Box box{pin.center.x - 20, pin.center.y - 9, pin.center.x + 20, pin.center.y + 9};
      Write(pin.label, box, DT_CENTER, pin.text);
    }
    for (const CaptionShape& caption : diagram.captions) {
      const bool left = caption.align == Align::kLeft;
      const double x = left ? caption.anchor.x : caption.anchor.x - caption.width;
      const Box box{x, caption.anchor.y - 9, x + caption.width, caption.anchor.y + 9};
      Write(caption.text, box, left ? DT_LEFT : DT_RIGHT, caption.color);
    }
  }

 private:
  LONG X(double x) const { return std::lround(origin_.x + x * scale_); }
  LONG Y(double y) const { return std::lround(origin_.y + y * scale_); }

  void Write(const Text& text, const Box& box, UINT align, Color color) {
    RECT place{X(box.left), Y(box.top), X(box.right), Y(box.bottom)};
    if (place.bottom < 0 || place.top > height_) return;
    SetTextColor(dc_, Ref(color));
    DrawTextW(dc_, Characters(text), static_cast<int>(text.size()), &place,
              align | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  }

  void Write(const LabelShape& label) {
    SIZE extent{};
    {
      const Selection with_font(dc_, upright_.get());
      GetTextExtentPoint32W(dc_, Characters(label.text), static_cast<int>(label.text.size()),
                            &extent);
    }
    const Selection with_font(dc_, upwards_.get());
    SetTextColor(dc_, Ref(kInk));
    TextOutW(dc_, static_cast<int>(X(label.center.x) - extent.cy / 2),
             static_cast<int>(Y(label.center.y) + extent.cx / 2), Characters(label.text),
             static_cast<int>(label.text.size()));
  }

  double scale_;
  Font upright_;
  Font upwards_;
  Font plain_;
  HDC dc_ = nullptr;
  Point origin_;
  LONG height_ = 0;
};

// A bitmap to paint into, by hand and with GDI.
class Strip {
 public:
  Strip(LONG width, LONG height) : width_(width), dc_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = Bitmap(CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (bitmap_.get() == nullptr) {
      DeleteDC(dc_);
      throw std::bad_alloc();
    }
    pixels_ = static_cast<std::uint32_t*>(bits);
    before_ = SelectObject(dc_, bitmap_.get());
  }
  ~Strip() {
    SelectObject(dc_, before_);
    DeleteDC(dc_);
  }
  Strip(const Strip&) = delete;
  Strip& operator=(const Strip&) = delete;

  HDC dc() const { return dc_; }
  std::span<std::uint32_t> Rows(LONG rows) const {
    GdiFlush();  // before they are touched by hand
    return {pixels_, static_cast<std::size_t>(width_) * static_cast<std::size_t>(rows)};
  }

 private:
  LONG width_;
  HDC dc_;
  Bitmap bitmap_;
  std::uint32_t* pixels_ = nullptr;
  HGDIOBJ before_;
};

}  // namespace

void PaintDiagram(HDC target, const RECT& part, const DiagramDesk& desk) {
  const Diagram& diagram = desk.diagram();
  const double scale = desk.scale();
  const Point origin = desk.origin();
  const RECT picture{static_cast<LONG>(std::floor(origin.x)),
                     static_cast<LONG>(std::floor(origin.y)),
                     static_cast<LONG>(std::ceil(origin.x + diagram.width * scale)),
                     static_cast<LONG>(std::ceil(origin.y + diagram.height * scale))};
  RECT painted{};
  const auto white = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  if (!IntersectRect(&painted, &part, &picture)) {
    FillRect(target, &part, white);
    return;
  }
  const RECT around[] = {{part.left, part.top, part.right, painted.top},
                         {part.left, painted.bottom, part.right, part.bottom},
                         {part.left, painted.top, painted.left, painted.bottom},
                         {painted.right, painted.top, part.right, painted.bottom}};
  for (const RECT& side : around) {
    if (!IsRectEmpty(&side)) FillRect(target, &side, white);
  }

  const LONG width = painted.right - painted.left;
  const LONG rows = std::clamp<LONG>(kBufferedPixels / width, 1, painted.bottom - painted.top);
  const Strip strip(width, rows);
  Writer writer(scale);
  const WireShape* loose = desk.loose() ? &*desk.loose() : nullptr;
  for (LONG top = painted.top; top < painted.bottom; top += rows) {
    const LONG height = std::min(rows, painted.bottom - top);
    const Point from{origin.x - static_cast<double>(painted.left),
                     origin.y - static_cast<double>(top)};
    Raster raster(strip.Rows(height), static_cast<int>(width), static_cast<int>(height), from,
                  scale);
    raster.Clear(kWhite);
    PaintShapes(raster, diagram, loose);
    writer.Write(strip.dc(), from, height, diagram);
    BitBlt(target, painted.left, top, width, height, strip.dc(), 0, 0, SRCCOPY);
  }
}

}  // namespace conmuta::win32
