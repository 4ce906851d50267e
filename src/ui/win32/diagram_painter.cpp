#include "ui/win32/diagram_painter.h"

#include <array>
#include <cmath>

#include "ui/win32/smooth_canvas.h"

namespace conmuta::win32 {
namespace {

constexpr COLORREF kBackground = RGB(255, 255, 255);
constexpr Color kShellFill = {250, 251, 252};
constexpr Color kShellBorder = {120, 130, 142};
constexpr Color kLabelText = {60, 70, 82};
constexpr double kLabelHeight = 14;
constexpr double kNumberHeight = 12;
constexpr double kCasing = 1.5;  // clear space on each side of a wire that crosses others

COLORREF Ref(Color color) {
  return RGB(color.red, color.green, color.blue);
}

// From the diagram's units to those of a surface.
class Mapping {
 public:
  Mapping(double scale, double scrolled) : scale_(scale), scrolled_(scrolled) {}

  int Length(double units) const { return static_cast<int>(std::lround(units * scale_)); }
  POINT At(Point point) const { return {Length(point.x), Length(point.y - scrolled_)}; }

 private:
  double scale_;
  double scrolled_;
};

Pen SolidPen(int width, Color color) {
  const LOGBRUSH brush{BS_SOLID, Ref(color), 0};
  return Pen(ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                          static_cast<DWORD>(std::max(width, 1)), &brush, 0, nullptr));
}

Point Towards(Point from, Point to, double distance) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  const double part = length > 0 ? std::min(distance / length, 0.5) : 0;
  return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

void PaintShell(HDC dc, const Mapping& map, const ShellShape& shell) {
  const Brush brush(CreateSolidBrush(Ref(kShellFill)));
  const Pen pen = SolidPen(map.Length(1.6), kShellBorder);
  const Selection with_brush(dc, brush.get());
  const Selection with_pen(dc, pen.get());
  BeginPath(dc);
  const std::size_t count = shell.corners.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point corner = shell.corners[i];
    const POINT in =
        map.At(Towards(corner, shell.corners[(i + count - 1) % count], shell.rounding));
    const POINT out = map.At(Towards(corner, shell.corners[(i + 1) % count], shell.rounding));
    const POINT tip = map.At(corner);
    if (i == 0) {
      MoveToEx(dc, in.x, in.y, nullptr);
    } else {
      LineTo(dc, in.x, in.y);
    }
    const POINT curve[] = {tip, tip, out};
    PolyBezierTo(dc, curve, 3);
  }
  CloseFigure(dc);
  EndPath(dc);
  StrokeAndFillPath(dc);
}

void StrokeWire(HDC dc, const Mapping& map, const WireShape& wire, double width, Color color) {
  const Pen pen = SolidPen(map.Length(width), color);
  const Selection with_pen(dc, pen.get());
  const POINT start = map.At(wire.start);
  const POINT bend = map.At(wire.curve_start);
  const POINT end = map.At(wire.end);
  const POINT curve[] = {map.At(wire.FirstControl()), map.At(wire.SecondControl()),
                         map.At(wire.curve_end)};
  MoveToEx(dc, start.x, start.y, nullptr);
  LineTo(dc, bend.x, bend.y);
  PolyBezierTo(dc, curve, 3);
  LineTo(dc, end.x, end.y);
}

// Clears some space around wires where they cross others: between the connectors, but not near
// them, where wires come together on a pin and shall not be cut.
void ClearAround(HDC dc, const Mapping& map, std::span<const WireShape> wires) {
  const POINT begin = map.At(wires.front().curve_start);
  const POINT end = map.At(wires.front().curve_end);
  const LONG margin = (end.x - begin.x) / 4;
  constexpr int kFar = 1 << 20;
  const int saved = SaveDC(dc);
  IntersectClipRect(dc, begin.x + margin, -kFar, end.x - margin, kFar);
  for (const WireShape& wire : wires) {
    if (wire.width > 1) StrokeWire(dc, map, wire, wire.width + 2 * kCasing, {255, 255, 255});
  }
  RestoreDC(dc, saved);
}

// Later wires pass over earlier ones; those of one pin are a fork and stay joined.
void PaintWires(HDC dc, const Mapping& map, std::span<const WireShape> wires) {
  for (std::size_t first = 0; first < wires.size();) {
    std::size_t last = first;
    while (last < wires.size() && wires[last].left == wires[first].left) ++last;
    const auto fork = wires.subspan(first, last - first);
    ClearAround(dc, map, fork);
    for (const WireShape& wire : fork) StrokeWire(dc, map, wire, wire.width, wire.color);
    first = last;
  }
}

void PaintPin(HDC dc, const Mapping& map, const PinShape& pin) {
  const Brush brush(CreateSolidBrush(Ref(pin.fill)));
  const Pen pen = SolidPen(map.Length(pin.wired || pin.current ? 2 : 1.2), pin.border);
  const Selection with_brush(dc, brush.get());
  const Selection with_pen(dc, pen.get());
  const POINT first = map.At({pin.center.x - pin.radius, pin.center.y - pin.radius});
  const POINT last = map.At({pin.center.x + pin.radius, pin.center.y + pin.radius});
  Ellipse(dc, first.x, first.y, last.x, last.y);
}

Font Arial(int height, int angle, int weight) {
  return Font(CreateFontA(-height, 0, angle, angle, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                          OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, PROOF_QUALITY,
                          VARIABLE_PITCH | FF_SWISS, "Arial"));
}

void PaintText(HDC dc, TextView text, POINT place, Color color) {
  SetTextColor(dc, Ref(color));
  TextOutW(dc, place.x, place.y, reinterpret_cast<const wchar_t*>(text.data()),
           static_cast<int>(text.size()));
}

SIZE Extent(HDC dc, TextView text) {
  SIZE extent{};
  GetTextExtentPoint32W(dc, reinterpret_cast<const wchar_t*>(text.data()),
                        static_cast<int>(text.size()), &extent);
  return extent;
}

void PaintLabels(HDC dc, const Mapping& map, const Diagram& diagram) {
  const Font upright = Arial(map.Length(kLabelHeight), 0, FW_SEMIBOLD);
  const Font upwards = Arial(map.Length(kLabelHeight), 900, FW_SEMIBOLD);
  for (const LabelShape& label : diagram.labels) {
    SIZE extent;
    {
      const Selection with_font(dc, upright.get());
      extent = Extent(dc, label.text);
    }
    const Selection with_font(dc, upwards.get());
    const POINT center = map.At(label.center);
    PaintText(dc, label.text, {center.x - extent.cy / 2, center.y + extent.cx / 2}, kLabelText);
  }
}

void PaintNumbers(HDC dc, const Mapping& map, const Diagram& diagram) {
  const Font font = Arial(map.Length(kNumberHeight), 0, FW_NORMAL);
  const Selection with_font(dc, font.get());
  for (const PinShape& pin : diagram.pins) {
    const SIZE extent = Extent(dc, pin.label);
    const POINT center = map.At(pin.center);
    PaintText(dc, pin.label, {center.x - extent.cx / 2, center.y - extent.cy / 2}, pin.text);
  }
}

}  // namespace

void PaintDiagram(HDC target, const DiagramPlace& place, const Diagram& diagram,
                  const WireShape* loose) {
  const SmoothCanvas canvas(place.size, kBackground);
  const Mapping fine(place.scale * SmoothCanvas::kOversampling, place.scrolled);
  SetBkMode(canvas.dc(), TRANSPARENT);
  for (const ShellShape& shell : diagram.shells) PaintShell(canvas.dc(), fine, shell);
  PaintWires(canvas.dc(), fine, diagram.wires);
  if (loose != nullptr) PaintWires(canvas.dc(), fine, {loose, 1});
  for (const PinShape& pin : diagram.pins) PaintPin(canvas.dc(), fine, pin);
  canvas.CopyTo(target);

  // Text is sharper in the target's own pixels.
  const Mapping map(place.scale, place.scrolled);
  SetBkMode(target, TRANSPARENT);
  PaintLabels(target, map, diagram);
  PaintNumbers(target, map, diagram);
}

}  // namespace conmuta::win32
