// The picture of a cable as shapes: both connectors, their pins, a line for every wire, and in
// digits beside each pin where its wires go. Whoever paints it only paints. Units are pixels where
// a line of text is about 15 high; y grows downwards.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "cable/palette.h"
#include "cable/wiring.h"
#include "platform/text.h"

namespace conmuta {

struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

// A part of the picture; empty unless left < right.
struct Box {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

// The outline of a D-shaped connector: a trapezium with rounded corners, in order around it.
struct ShellShape {
  std::array<Point, 4> corners;
  double rounding = 0;

  bool operator==(const ShellShape&) const = default;
};

struct PinShape {
  Side side = Side::kLeft;
  int number = 0;
  Point center;
  double radius = 0;
  Text label;  // two digits
  bool wired = false;
  bool current = false;  // chosen, pointed at, or at the other end of such a pin
  bool marked = false;   // the keyboard is at it
  Color fill;
  Color border;
  Color text;

  Pin pin() const { return {side, number}; }
  bool operator==(const PinShape&) const = default;
};

// From its own entry point on a left pin straight out of the shell, in a curve across, and straight
// to its entry point on a right pin. The wires of one pin lie side by side and meet nowhere.
struct WireShape {
  int left = 0;
  int right = 0;
  Point start;
  Point curve_start;
  Point curve_end;
  Point end;
  double width = 0;
  bool emphasised = false;
  double dash = 0;  // length of a dash and of the gap after it; 0: solid
  Color color;

  // The curve is a cubic one; its control points lie half-way across, level with its ends.
  Point FirstControl() const { return {(curve_start.x + curve_end.x) / 2, curve_start.y}; }
  Point SecondControl() const { return {(curve_start.x + curve_end.x) / 2, curve_end.y}; }
  // The whole wire as short straight pieces.
  std::vector<Point> Path() const;

  bool operator==(const WireShape&) const = default;
};

enum class Align { kLeft, kRight };

// One line of text; cut with an ellipsis where it is wider than its room.
struct CaptionShape {
  Text text;
  Point anchor;  // the middle of its left or right edge
  Align align = Align::kLeft;
  double width = 0;
  Color color;

  bool operator==(const CaptionShape&) const = default;
};

// From a caption to the pin that it belongs to.
struct LeaderShape {
  Point from;
  Point to;

  bool operator==(const LeaderShape&) const = default;
};

// Runs upwards, its middle at `center`.
struct LabelShape {
  Text text;
  Point center;

  bool operator==(const LabelShape&) const = default;
};

struct Diagram {
  double width = 0;
  double height = 0;
  std::array<ShellShape, 2> shells;
  std::array<LabelShape, 2> labels;
  std::vector<LeaderShape> leaders;
  std::vector<CaptionShape> captions;
  std::vector<WireShape> wires;  // in the order of painting: emphasised ones come last
  std::vector<PinShape> pins;

  // The pin under a point, or null.
  const PinShape* PinAt(Point point) const;
  const PinShape* Find(Side side, int number) const;

  // How far the picture scrolls in a view of that height; 0 when it fits.
  double ScrollRange(double view_height) const;
};

inline constexpr double kLeastDiagramWidth = 500;
inline constexpr double kMostDiagramWidth = 900;

// Height of the picture of a pair.
double DiagramHeight(emPuertoSerial pair);

struct DiagramMarks {
  int current_left = 0;      // the pin that is typed; 0 for none
  std::optional<Pin> hot;    // the one that is pointed at, which goes before it
  std::optional<Pin> caret;  // where the keyboard is
};

// The picture of one pair's wiring, as wide as the view within its bounds.
Diagram DrawCable(emPuertoSerial pair, std::span<const WiringMask> table, const DiagramMarks& marks,
                  double width);

// A wire that is being drawn, from a pin to where the pointer is.
WireShape DrawLooseWire(const Diagram& diagram, emPuertoSerial pair, Pin from, Point pointer);

// What has to be painted for one picture to become the other, both of one size.
std::vector<Box> Difference(const Diagram& before, const Diagram& after);
std::vector<Box> BoxesOf(const WireShape& wire);

}  // namespace conmuta
