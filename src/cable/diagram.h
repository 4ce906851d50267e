// The picture of a cable as shapes: both connectors, their pins, a line for every wire. Whoever
// paints it only paints. Units are pixels at 96 DPI; y grows downwards.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "cable/wiring.h"
#include "platform/text.h"

namespace conmuta {

struct Point {
  double x = 0;
  double y = 0;
};

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Color&) const = default;
};

enum class Side { kLeft, kRight };

// The outline of a D-shaped connector: a trapezium with rounded corners, in order around it.
struct ShellShape {
  std::array<Point, 4> corners;
  double rounding = 0;
};

struct PinShape {
  Side side = Side::kLeft;
  int number = 0;
  Point center;
  double radius = 0;
  Text label;  // two digits
  bool wired = false;
  bool current = false;
  Color fill;
  Color border;
  Color text;
};

// From the centre of a left pin straight out of its shell, in a curve across, and straight into
// the right pin.
struct WireShape {
  int left = 0;
  int right = 0;
  Point start;
  Point curve_start;
  Point curve_end;
  Point end;
  double width = 0;
  bool emphasised = false;
  Color color;

  // The curve is a cubic one; its control points lie half-way across, level with its ends.
  Point FirstControl() const { return {(curve_start.x + curve_end.x) / 2, curve_start.y}; }
  Point SecondControl() const { return {(curve_start.x + curve_end.x) / 2, curve_end.y}; }
};

// Runs upwards, its middle at `center`.
struct LabelShape {
  Text text;
  Point center;
};

struct Diagram {
  double width = 0;
  double height = 0;
  std::array<ShellShape, 2> shells;
  std::array<LabelShape, 2> labels;
  std::vector<WireShape> wires;  // in the order of painting: emphasised ones come last
  std::vector<PinShape> pins;

  // The pin under a point, or null.
  const PinShape* PinAt(Point point) const;
  const PinShape* Find(Side side, int number) const;

  // How far the picture scrolls in a view of that height; 0 when it fits.
  double ScrollRange(double view_height) const;
};

// The picture of one pair's wiring, as wide as the view but never too narrow to read. The wires of
// the current left pin (0: none) are emphasised.
Diagram DrawCable(emPuertoSerial pair, std::span<const WiringMask> table, int current_pin,
                  double width);

// A wire that is being drawn with the mouse, from a left pin to where the pointer is.
WireShape DrawLooseWire(const Diagram& diagram, int left_pin, Point pointer);

}  // namespace conmuta
