// Lines and circles in pixels.
#include "cable/diagram_raster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace conmuta {
namespace {

constexpr int kSize = 60;

// How much ink each pixel has, 0 to 1, of black on white.
class Ground {
 public:
  explicit Ground(Point origin = {0, 0}, int height = kSize)
      : pixels_(static_cast<std::size_t>(kSize * height)),
        raster(pixels_, kSize, height, origin, 1) {
    raster.Clear(kWhite);
  }
  double At(int x, int y) const {
    return 1 - (pixels_[static_cast<std::size_t>(y * kSize + x)] & 0xFF) / 255.0;
  }
  double Ink() const {
    double ink = 0;
    for (const std::uint32_t pixel : pixels_) ink += 1 - (pixel & 0xFF) / 255.0;
    return ink;
  }
  const std::vector<std::uint32_t>& pixels() const { return pixels_; }

 private:
  std::vector<std::uint32_t> pixels_;

 public:
  Raster raster;
};

constexpr Color kBlack = {0, 0, 0};

TEST(DiagramRaster, LineHasItsLengthTimesItsWidthOfInk) {
  for (const Point to : {Point{50, 10}, {50, 50}, {10, 50}, {50, 23}, {17, 50}}) {
    Ground ground;
    const Point path[] = {{10, 10}, to};
    ground.raster.Stroke(path, 3, kBlack);
    EXPECT_NEAR(ground.Ink(), 3 * std::hypot(to.x - 10, to.y - 10), 5) << to.x << ", " << to.y;
  }
}

TEST(DiagramRaster, PiecesOfACurveLeaveNoGapAndNoKnot) {
  std::vector<Point> path;
  for (int i = 0; i <= 40; ++i) {
    path.push_back({5.0 + i * 1.25, 30 + 20 * std::sin(i * 0.08)});
  }
  Ground ground;
  ground.raster.Stroke(path, 2.5, kBlack);
  for (int x = 8; x < 52; ++x) {
    double column = 0;
    for (int y = 0; y < kSize; ++y) column += ground.At(x, y);
    // Steeper means more ink to the column.
    const double slope = 20 * 0.08 / 1.25 * std::cos((x + 0.5 - 5) / 1.25 * 0.08);
    EXPECT_NEAR(column, 2.5 * std::hypot(1, slope), 0.35) << x;
  }
}

TEST(DiagramRaster, DashesTakeHalfOfTheInk) {
  Ground ground;
  const Point path[] = {{2, 30}, {58, 30}};
  ground.raster.Stroke(path, 4, kBlack, 7);
  EXPECT_NEAR(ground.Ink(), 4 * 28, 8);
  EXPECT_GT(ground.At(5, 30), 0.9);
  EXPECT_EQ(ground.At(12, 30), 0);
}

TEST(DiagramRaster, DiscAndRingHaveTheirAreas) {
  Ground disc;
  disc.raster.Disc({30, 30}, 15, kBlack);
  EXPECT_NEAR(disc.Ink(), 3.14159 * 15 * 15, 5);
  EXPECT_EQ(disc.At(30, 30), 1);
  Ground ring;
  ring.raster.Ring({30, 30}, 15, 3, kBlack);
  EXPECT_NEAR(ring.Ink(), 2 * 3.14159 * 15 * 3, 5);
  EXPECT_EQ(ring.At(30, 30), 0);
}

TEST(DiagramRaster, WhatLiesOutsideIsNotTouched) {
  Ground ground;
  const Point path[] = {{-500, -400}, {900, 800}};
  ground.raster.Stroke(path, 5, kBlack);
  ground.raster.Disc({-100, 20}, 20, kBlack);
  ground.raster.Ring({300, 300}, 20, 4, kBlack);
  EXPECT_GT(ground.Ink(), 0);
}

// A picture is painted strip by strip, and in parts.
TEST(DiagramRaster, StripsMakeUpTheWholePicture) {
  Wiring wiring;
  for (int left = 1; left <= 9; ++left)
    SetWired(wiring.Table(emPuertoSerialDB9DB9), left, 10 - left, true);
  const Diagram diagram = DrawCable(emPuertoSerialDB9DB9, wiring.Table(emPuertoSerialDB9DB9),
                                    {4, Pin{Side::kRight, 2}, Pin{Side::kLeft, 1}}, 500);
  const WireShape loose = DrawLooseWire(diagram, emPuertoSerialDB9DB9, {Side::kLeft, 3}, {250, 20});
  const Point origin{-200, -60};
  Ground whole(origin);
  PaintShapes(whole.raster, diagram, &loose);
  EXPECT_GT(whole.Ink(), 50);
  std::vector<std::uint32_t> strips;
  for (int top = 0; top < kSize; top += 10) {
    Ground strip({origin.x, origin.y - top}, 10);
    PaintShapes(strip.raster, diagram, &loose);
    strips.insert(strips.end(), strip.pixels().begin(), strip.pixels().end());
  }
  EXPECT_TRUE(strips == whole.pixels());
}

}  // namespace
}  // namespace conmuta
