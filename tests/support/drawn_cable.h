// Pictures of cables to look at.
#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "cable/diagram.h"

namespace conmuta::test {

inline constexpr emPuertoSerial kPairs[] = {emPuertoSerialDB9DB9, emPuertoSerialDB9DB25,
                                            emPuertoSerialDB25DB9, emPuertoSerialDB25DB25};
inline constexpr double kWidths[] = {-1000, 0, 100, 420, 640, 800, 1920};

inline double Distance(Point a, Point b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

// A wiring that can be drawn.
class Cable {
 public:
  explicit Cable(emPuertoSerial pair) : pair_(pair) {}

  Cable& Wire(int left, int right) {
    SetWired(wiring_.Table(pair_), left, right, true);
    return *this;
  }
  Cable& WireAll() {
    for (int left = 1; left <= LeftPins(pair_); ++left) {
      for (int right = 1; right <= RightPins(pair_); ++right) Wire(left, right);
    }
    return *this;
  }
  Diagram DrawAt(Pin hot) const {
    return DrawCable(pair_, wiring_.Table(pair_), {0, hot, {}}, 640);
  }
  Diagram Draw(int current = 0, double width = 640) const {
    return DrawCable(pair_, wiring_.Table(pair_), {current, {}, {}}, width);
  }

  emPuertoSerial pair() const { return pair_; }

 private:
  emPuertoSerial pair_;
  Wiring wiring_;
};

class DrawnCable : public testing::TestWithParam<emPuertoSerial> {
 protected:
  int PinsOf(Side side) const { return conmuta::PinsOf(GetParam(), side); }
  static const ShellShape& ShellOf(const Diagram& diagram, Side side) {
    return diagram.shells[side == Side::kLeft ? 0 : 1];
  }
  // Outer and inner edge of a shell.
  static double Outer(const ShellShape& shell) { return shell.corners[0].x; }
  static double Inner(const ShellShape& shell) { return shell.corners[1].x; }
  // Top of a shell where its slanted edge is, at that x.
  static double TopAt(const ShellShape& shell, double x) {
    const Point a = shell.corners[0];
    const Point b = shell.corners[1];
    return a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x);
  }
};

}  // namespace conmuta::test
