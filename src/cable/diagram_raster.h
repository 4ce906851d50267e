// Lines and circles with smooth edges, painted into pixels: the same on every system, and a part of
// a picture costs a part of the time.
#pragma once

#include <cstdint>
#include <span>

#include "cable/diagram.h"

namespace conmuta {

// Rows of pixels, 0x00RRGGBB, that show a part of a view.
class Raster {
 public:
  // `pixels` has width * height of them. `origin` is where the picture's own origin lies in this
  // part, `scale` how many pixels a unit of it has.
  Raster(std::span<std::uint32_t> pixels, int width, int height, Point origin, double scale)
      : pixels_(pixels), width_(width), height_(height), origin_(origin), scale_(scale) {}

  // Whether anything between these heights of the picture is in this part.
  bool Sees(double top, double bottom) const;
  void Clear(Color color);
  // Straight pieces one after the other; with dashes when `dash` is not 0.
  void Stroke(std::span<const Point> path, double width, Color color, double dash = 0);
  void Disc(Point center, double radius, Color color);
  void Ring(Point center, double radius, double width, Color color);

 private:
  Point At(Point point) const {
    return {origin_.x + point.x * scale_, origin_.y + point.y * scale_};
  }
  void Blend(int x, int y, double coverage, Color color);
  template <class Coverage>
  void Fill(Point center, double radius, double hole, Color color, Coverage coverage);

  std::span<std::uint32_t> pixels_;
  int width_;
  int height_;
  Point origin_;
  double scale_;
};

// Everything but the texts.
void PaintShapes(Raster& raster, const Diagram& diagram, const WireShape* loose);

}  // namespace conmuta
