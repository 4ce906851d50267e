#include "cable/diagram.h"

#include <algorithm>
#include <cmath>

#include "platform/format.h"

namespace conmuta {
namespace {

constexpr double kPitch = 30;   // between the pins of a row
constexpr double kRowGap = 34;  // between the two rows
constexpr double kPinRadius = 11;
constexpr double kShellPadding = 20;
constexpr double kRounding = 18;
constexpr double kMargin = 14;
constexpr double kLabelStrip = 26;  // beside each connector
constexpr double kFunnel = 14;      // straight run between shell and curve
constexpr double kLeastWidth = 420;
constexpr double kShellWidth = kRowGap + 2 * kShellPadding + 4;

constexpr Color kWhite = {255, 255, 255};
constexpr Color kMutedFill = {236, 238, 241};
constexpr Color kMutedBorder = {196, 201, 208};
constexpr Color kMutedText = {148, 155, 164};
constexpr Color kPlainBorder = {74, 82, 92};
constexpr Color kPlainText = {32, 38, 46};

// Distinct hues, neighbours far apart: each pin is a golden angle further around the circle.
Color ColorOfPin(int pin) {
  const double hue = std::fmod(205 + pin * 137.508, 360) / 60;
  constexpr double kLightest = 0.70;
  constexpr double kDarkest = 0.10;
  const double between = kDarkest + (kLightest - kDarkest) * (1 - std::abs(std::fmod(hue, 2) - 1));
  double red = kDarkest, green = kDarkest, blue = kDarkest;
  switch (static_cast<int>(hue)) {
    case 0:
      red = kLightest;
      green = between;
      break;
    case 1:
      red = between;
      green = kLightest;
      break;
    case 2:
      green = kLightest;
      blue = between;
      break;
    case 3:
      green = between;
      blue = kLightest;
      break;
    case 4:
      red = between;
      blue = kLightest;
      break;
    default:
      red = kLightest;
      blue = between;
      break;
  }
  const auto byte = [](double part) { return static_cast<std::uint8_t>(std::lround(part * 255)); };
  return {byte(red), byte(green), byte(blue)};
}

Color Faded(Color color) {
  const auto fade = [](std::uint8_t part) {
    return static_cast<std::uint8_t>(255 - (255 - part) * 45 / 100);
  };
  return {fade(color.red), fade(color.green), fade(color.blue)};
}

constexpr int LongRow(int pins) {
  return (pins + 1) / 2;
}

double RowsHeight(int pins) {
  return (LongRow(pins) - 1) * kPitch;
}
double ShellHeight(int pins) {
  return RowsHeight(pins) + 2 * (kShellPadding + kPinRadius);
}

// One connector in its place. Its long row is the outer one; the pins of the short row stand
// between those, so that every pin has a height of its own and its wire a way out.
class Connector {
 public:
  Connector(Side side, int pins, double canvas_width, double canvas_height)
      : side_(side), pins_(pins), middle_(canvas_height / 2) {
    const double from_edge = kMargin + kLabelStrip;
    outer_ = side == Side::kLeft ? from_edge : canvas_width - from_edge;
    inwards_ = side == Side::kLeft ? 1 : -1;
  }

  int pins() const { return pins_; }

  Point PinCenter(int number) const {
    const int long_row = LongRow(pins_);
    const bool is_outer = number <= long_row;
    const double x = kShellPadding + (is_outer ? 2 : 2 + kRowGap);
    const double step = is_outer ? number - 1 : number - long_row - 0.5;
    return {outer_ + inwards_ * x, middle_ - RowsHeight(pins_) / 2 + step * kPitch};
  }

  // Where the wire of a pin begins to bend.
  Point Exit(Point center) const { return {outer_ + inwards_ * (kShellWidth + kFunnel), center.y}; }

  ShellShape Shell() const {
    const double half = ShellHeight(pins_) / 2;
    const double slant = kPitch / 2;
    const double inner = outer_ + inwards_ * kShellWidth;
    return {{{{outer_, middle_ - half},
              {inner, middle_ - half + slant},
              {inner, middle_ + half - slant},
              {outer_, middle_ + half}}},
            kRounding};
  }

  LabelShape Label() const {
    return {side_ == Side::kLeft ? u"C o m p u t a d o r a" : u"C o n m u t a d o r",
            {outer_ - inwards_ * kLabelStrip / 2, middle_}};
  }

 private:
  Side side_;
  int pins_;
  double middle_;
  double outer_;
  double inwards_;
};

PinShape DrawPin(Side side, int number, Point center, bool wired, bool current, Color wire_color) {
  PinShape pin{side,  number,  center,     kPinRadius,   PaddedNumber(number, 2),
               wired, current, kMutedFill, kMutedBorder, kMutedText};
  if (wired) {
    pin.fill = kWhite;
    pin.border = side == Side::kLeft ? wire_color : kPlainBorder;
    pin.text = kPlainText;
  }
  if (current) {
    pin.fill = wire_color;
    pin.border = kPlainText;
    pin.text = kWhite;
  }
  return pin;
}

}  // namespace

Diagram DrawCable(emPuertoSerial pair, std::span<const WiringMask> table, int current_pin,
                  double width) {
  Diagram diagram;
  diagram.width = std::max(width, kLeastWidth);
  diagram.height =
      std::max(ShellHeight(LeftPins(pair)), ShellHeight(RightPins(pair))) + 2 * kMargin;
  const Connector left(Side::kLeft, LeftPins(pair), diagram.width, diagram.height);
  const Connector right(Side::kRight, RightPins(pair), diagram.width, diagram.height);
  diagram.shells = {left.Shell(), right.Shell()};
  diagram.labels = {left.Label(), right.Label()};

  WiringMask wired_right = 0;
  int wire_count = 0;
  for (int l = 1; l <= left.pins(); ++l) {
    for (int r = 1; r <= right.pins(); ++r) wire_count += IsWired(table, l, r) ? 1 : 0;
    wired_right |= table[static_cast<std::size_t>(l)];
  }
  const double plain_width = wire_count > 100 ? 1 : 2;

  for (int l = 1; l <= left.pins(); ++l) {
    const Point start = left.PinCenter(l);
    const bool is_current = l == current_pin;
    const Color color = ColorOfPin(l);
    for (int r = 1; r <= right.pins(); ++r) {
      if (!IsWired(table, l, r)) continue;
      const Point end = right.PinCenter(r);
      const bool recedes = current_pin != 0 && !is_current;
      diagram.wires.push_back({l, r, start, left.Exit(start), right.Exit(end), end,
                               is_current ? 3.5 : plain_width, is_current,
                               recedes ? Faded(color) : color});
    }
    diagram.pins.push_back(
        DrawPin(Side::kLeft, l, start, table[static_cast<std::size_t>(l)] != 0, is_current, color));
  }
  std::stable_partition(diagram.wires.begin(), diagram.wires.end(),
                        [](const WireShape& wire) { return !wire.emphasised; });
  for (int r = 1; r <= right.pins(); ++r) {
    const bool of_current =
        current_pin >= 1 && current_pin <= left.pins() && IsWired(table, current_pin, r);
    diagram.pins.push_back(DrawPin(Side::kRight, r, right.PinCenter(r),
                                   (wired_right & PinMask(r)) != 0, of_current,
                                   ColorOfPin(current_pin)));
  }
  return diagram;
}

WireShape DrawLooseWire(const Diagram& diagram, int left_pin, Point pointer) {
  WireShape wire;
  wire.left = left_pin;
  if (const PinShape* pin = diagram.Find(Side::kLeft, left_pin)) wire.start = pin->center;
  const double exit = diagram.shells[0].corners[1].x + kFunnel;
  wire.curve_start = {std::min(exit, std::max(wire.start.x, pointer.x)), wire.start.y};
  wire.curve_end = pointer;
  wire.end = pointer;
  wire.width = 3;
  wire.emphasised = true;
  wire.color = ColorOfPin(left_pin);
  return wire;
}

const PinShape* Diagram::PinAt(Point point) const {
  const auto found = std::find_if(pins.begin(), pins.end(), [&](const PinShape& pin) {
    return std::hypot(pin.center.x - point.x, pin.center.y - point.y) <= pin.radius + 2;
  });
  return found != pins.end() ? &*found : nullptr;
}

const PinShape* Diagram::Find(Side side, int number) const {
  const auto found = std::find_if(pins.begin(), pins.end(), [&](const PinShape& pin) {
    return pin.side == side && pin.number == number;
  });
  return found != pins.end() ? &*found : nullptr;
}

double Diagram::ScrollRange(double view_height) const {
  return std::max(0.0, height - view_height);
}

}  // namespace conmuta
