#include "cable/diagram.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "cable/wiring_text.h"
#include "platform/format.h"

namespace conmuta {
namespace {

constexpr double kPitch = 36;   // between the pins of a row
constexpr double kRowGap = 36;  // between the two rows
constexpr double kPinRadius = 11;
constexpr double kShellPadding = 20;
constexpr double kRounding = 18;
constexpr double kMargin = 10;
constexpr double kLabelStrip = 22;
constexpr double kFarEnds = 62;  // room for "1, 4, 6, 8"
constexpr double kSignal = 31;   // room for "DCD"
constexpr double kTextGap = 5;
constexpr double kFunnel = 14;  // straight run between shell and curve
constexpr double kShellWidth = kRowGap + 2 * kShellPadding + 4;
constexpr double kDash = 7;
constexpr double kDot = 3;
// Entries of one pin: as far apart as this, within what the pins of the other row leave free.
constexpr double kEntryGap = 5;
constexpr double kEntrySpread = kPitch / 2 - kPinRadius - 2;

// One connector in its place. Its long row is the outer one; the pins of the short row stand
// between those, so that every pin has a height of its own and its wires a way out.
class Connector {
 public:
  Connector(emPuertoSerial pair, Side side, double canvas_width, double canvas_height)
      : pair_(pair), side_(side), pins_(PinsOf(pair, side)), middle_(canvas_height / 2) {
    const double outside =
        kMargin + kLabelStrip + kFarEnds + kTextGap + (side == Side::kLeft ? kSignal : 0);
    outer_ = side == Side::kLeft ? outside : canvas_width - outside;
    inwards_ = side == Side::kLeft ? 1 : -1;
  }

  int pins() const { return pins_; }

  Point PinCenter(int number) const {
    const int outer_row = OuterRow(pins_);
    const bool is_outer = number <= outer_row;
    const double x = kShellPadding + (is_outer ? 2 : 2 + kRowGap);
    const double step = is_outer ? number - 1 : number - outer_row - 0.5;
    return {outer_ + inwards_ * x, middle_ - (outer_row - 1) * kPitch / 2 + step * kPitch};
  }

  // Where the n-th of a pin's wires touches it, from above.
  Point Entry(int number, int n, int wires) const {
    const double gap = wires > 1 ? std::min(kEntryGap, 2 * kEntrySpread / (wires - 1)) : 0;
    const double offset = (n - (wires - 1) / 2.0) * gap;
    const Point center = PinCenter(number);
    return {center.x + inwards_ * std::sqrt(kPinRadius * kPinRadius - offset * offset),
            center.y + offset};
  }

  // Where a wire begins to bend.
  Point Exit(Point entry) const { return {outer_ + inwards_ * (kShellWidth + kFunnel), entry.y}; }

  ShellShape Shell() const {
    const double half = DiagramHeightOf() / 2 - kMargin;
    const double slant = kPitch / 2;
    const double inner = outer_ + inwards_ * kShellWidth;
    return {{{{outer_, middle_ - half},
              {inner, middle_ - half + slant},
              {inner, middle_ + half - slant},
              {outer_, middle_ + half}}},
            kRounding};
  }

  LabelShape Label() const {
    const double outside = outer_ - inwards_ * (kTextGap + kFarEnds + kLabelStrip / 2);
    return {side_ == Side::kLeft ? u"C o m p u t a d o r a" : u"C o n m u t a d o r",
            {side_ == Side::kLeft ? outside - kSignal : outside, middle_}};
  }

  // What stands beside a pin, and the way to it.
  void Describe(int number, const Text& far_ends, Color color, Diagram& diagram) const {
    const Point center = PinCenter(number);
    const Pin pin{side_, number};
    const Align align = side_ == Side::kLeft ? Align::kRight : Align::kLeft;
    double x = outer_ - inwards_ * kTextGap;
    const TextView signal = SignalName(pair_, pin);
    if (side_ == Side::kLeft) {
      if (!signal.empty()) {
        diagram.captions.push_back(
            {Text(signal), {x - kSignal, center.y}, Align::kLeft, kSignal, kMuted});
      }
      x -= kSignal + kTextGap;
    }
    if (!far_ends.empty()) {
      diagram.captions.push_back({far_ends, {x, center.y}, align, kFarEnds - kTextGap, color});
    }
    if (signal.empty() && far_ends.empty()) return;
    const double from = signal.empty() ? x : outer_ - inwards_ * kTextGap;
    diagram.leaders.push_back(
        {{from + inwards_ * 3, center.y}, {center.x - inwards_ * (kPinRadius + 2), center.y}});
  }

 private:
  double DiagramHeightOf() const {
    return (OuterRow(pins_) - 1) * kPitch + 2 * (kShellPadding + kPinRadius) + 2 * kMargin;
  }

  emPuertoSerial pair_;
  Side side_;
  int pins_;
  double middle_;
  double outer_;
  double inwards_;
};

// Which of a pin's wires comes how far down: in the order of their other ends, so that they do not
// cross on their way out.
int PlaceOnPin(const Connector& other, WiringMask ends, int end) {
  const double height = other.PinCenter(end).y;
  int above = 0;
  for (int pin = 1; pin <= other.pins(); ++pin) {
    if ((ends & PinMask(pin)) != 0 && other.PinCenter(pin).y < height) ++above;
  }
  return above;
}

int Count(WiringMask pins) {
  return std::popcount(static_cast<std::uint32_t>(pins));
}

PinShape DrawPin(Pin pin, Point center, bool wired, bool current, bool marked, Color color) {
  PinShape shape{pin.side, pin.number, center, kPinRadius, PaddedNumber(pin.number, 2),
                 wired,    current,    marked, kWhite,     kThin,
                 kMuted};
  if (wired) {
    shape.border = pin.side == Side::kLeft ? color : kInk;
    shape.text = kInk;
  }
  if (current) {
    shape.fill = color;
    shape.border = kInk;
    shape.text = TextOn(color);
  }
  return shape;
}

Box Around(Point one, Point other, double margin) {
  return {std::min(one.x, other.x) - margin, std::min(one.y, other.y) - margin,
          std::max(one.x, other.x) + margin, std::max(one.y, other.y) + margin};
}
Box BoxOf(const PinShape& pin) {
  return Around(pin.center, pin.center, pin.radius + 6);
}
Box BoxOf(const CaptionShape& caption) {
  const double other =
      caption.anchor.x + (caption.align == Align::kLeft ? caption.width : -caption.width);
  return Around({caption.anchor.x, caption.anchor.y - 9}, {other, caption.anchor.y + 9}, 2);
}
Box BoxOf(const LeaderShape& leader) {
  return Around(leader.from, leader.to, 2);
}

// Shapes that are in one list and not in the other.
template <class Shape, class Report>
void ReportChanges(const std::vector<Shape>& before, const std::vector<Shape>& after,
                   Report report) {
  for (const Shape& shape : before) {
    if (std::find(after.begin(), after.end(), shape) == after.end()) report(shape);
  }
  for (const Shape& shape : after) {
    if (std::find(before.begin(), before.end(), shape) == before.end()) report(shape);
  }
}

}  // namespace

double DiagramHeight(emPuertoSerial pair) {
  const int row = OuterRow(std::max(LeftPins(pair), RightPins(pair)));
  return (row - 1) * kPitch + 2 * (kShellPadding + kPinRadius) + 2 * kMargin;
}

Diagram DrawCable(emPuertoSerial pair, std::span<const WiringMask> table, const DiagramMarks& marks,
                  double width) {
  Diagram diagram;
  diagram.width = std::clamp(width, kLeastDiagramWidth, kMostDiagramWidth);
  diagram.height = DiagramHeight(pair);
  const Connector left(pair, Side::kLeft, diagram.width, diagram.height);
  const Connector right(pair, Side::kRight, diagram.width, diagram.height);
  diagram.shells = {left.Shell(), right.Shell()};
  diagram.labels = {left.Label(), right.Label()};

  const auto is_marked = [&](Pin pin) { return marks.caret == pin; };
  const Pin chosen = marks.hot.value_or(Pin{Side::kLeft, marks.current_left});
  const bool any_chosen = chosen.number >= 1 && chosen.number <= PinsOf(pair, chosen.side);
  // A pin is current when it is chosen, or wired to the one that is.
  const WiringMask chosen_ends = any_chosen ? FarEnds(pair, table, chosen) : 0;
  const auto is_current = [&](Pin pin) {
    return any_chosen &&
           (pin == chosen || (pin.side != chosen.side && (chosen_ends & PinMask(pin.number)) != 0));
  };

  std::array<WiringMask, 26> ends_of_right{};
  int wire_count = 0;
  for (int r = 1; r <= right.pins(); ++r) {
    const WiringMask ends = FarEnds(pair, table, {Side::kRight, r});
    ends_of_right[static_cast<std::size_t>(r)] = ends;
    wire_count += Count(ends);
  }
  // Wide enough for a whole pixel wherever it lies: a line that is only half of one pales.
  const double plain_width = wire_count > 100 ? 1 : 2.4;

  for (int l = 1; l <= left.pins(); ++l) {
    const Pin pin{Side::kLeft, l};
    const WiringMask ends = FarEnds(pair, table, pin);
    const Color color = ColorOfPin(left.pins(), l);
    for (int r = 1; r <= right.pins(); ++r) {
      if ((ends & PinMask(r)) == 0) continue;
      const WiringMask others = ends_of_right[static_cast<std::size_t>(r)];
      const Point start = left.Entry(l, PlaceOnPin(right, ends, r), Count(ends));
      const Point end = right.Entry(r, PlaceOnPin(left, others, l), Count(others));
      const bool emphasised = any_chosen && (chosen == pin || chosen == Pin{Side::kRight, r});
      const bool kept = IsKept(pair, r);
      const double dash = !kept ? kDot : l > OuterRow(left.pins()) ? kDash : 0;
      diagram.wires.push_back({l, r, start, left.Exit(start), right.Exit(end), end,
                               emphasised ? 3.5 : plain_width, emphasised, dash,
                               kept ? color : kMuted});
    }
    diagram.pins.push_back(
        DrawPin(pin, left.PinCenter(l), ends != 0, is_current(pin), is_marked(pin), color));
    left.Describe(l, PinList(ends), kInk, diagram);
  }
  std::stable_partition(diagram.wires.begin(), diagram.wires.end(),
                        [](const WireShape& wire) { return !wire.emphasised; });
  const Color chosen_color =
      any_chosen && chosen.side == Side::kLeft ? ColorOfPin(left.pins(), chosen.number) : kInk;
  for (int r = 1; r <= right.pins(); ++r) {
    const Pin pin{Side::kRight, r};
    const WiringMask ends = ends_of_right[static_cast<std::size_t>(r)];
    PinShape shape =
        DrawPin(pin, right.PinCenter(r), ends != 0, is_current(pin), is_marked(pin), chosen_color);
    if (!IsKept(pair, r) && !shape.current) shape.text = shape.border = kMuted;
    diagram.pins.push_back(shape);
    right.Describe(r, PinList(ends), IsKept(pair, r) ? kInk : kMuted, diagram);
  }
  return diagram;
}

WireShape DrawLooseWire(const Diagram& diagram, emPuertoSerial pair, Pin from, Point pointer) {
  WireShape wire;
  const bool is_left = from.side == Side::kLeft;
  const double inwards = is_left ? 1 : -1;
  (is_left ? wire.left : wire.right) = from.number;
  if (const PinShape* pin = diagram.Find(from.side, from.number)) {
    wire.start = {pin->center.x + inwards * pin->radius, pin->center.y};
  }
  const double exit = diagram.shells[is_left ? 0 : 1].corners[1].x + inwards * kFunnel;
  // Not beyond the pointer while that is still in the shell.
  const double reach = std::max(0.0, inwards * (pointer.x - wire.start.x));
  wire.curve_start = {wire.start.x + inwards * std::min(inwards * (exit - wire.start.x), reach),
                      wire.start.y};
  wire.curve_end = pointer;
  wire.end = pointer;
  wire.width = 3;
  wire.emphasised = true;
  wire.color = is_left ? ColorOfPin(LeftPins(pair), from.number) : kInk;
  return wire;
}

std::vector<Point> WireShape::Path() const {
  const double length =
      std::abs(curve_end.x - curve_start.x) + std::abs(curve_end.y - curve_start.y);
  const int pieces = std::clamp(static_cast<int>(length / 10), 4, 80);
  const Point first = FirstControl();
  const Point second = SecondControl();
  std::vector<Point> path;
  path.reserve(static_cast<std::size_t>(pieces) + 3);
  if (start != curve_start) path.push_back(start);
  for (int i = 0; i <= pieces; ++i) {
    const double t = static_cast<double>(i) / pieces;
    const double u = 1 - t;
    const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
    path.push_back({a * curve_start.x + b * first.x + c * second.x + d * curve_end.x,
                    a * curve_start.y + b * first.y + c * second.y + d * curve_end.y});
  }
  if (end != curve_end) path.push_back(end);
  return path;
}

std::vector<Box> BoxesOf(const WireShape& wire) {
  const std::vector<Point> path = wire.Path();
  std::vector<Box> boxes;
  // A few pieces each: one box around all of it would be most of the picture.
  constexpr std::size_t kPieces = 8;
  for (std::size_t first = 0; first + 1 < path.size(); first += kPieces) {
    const std::size_t last = std::min(first + kPieces, path.size() - 1);
    Box box = Around(path[first], path[last], wire.width / 2 + 2);
    for (std::size_t i = first; i <= last; ++i) {
      const Box one = Around(path[i], path[i], wire.width / 2 + 2);
      box = {std::min(box.left, one.left), std::min(box.top, one.top),
             std::max(box.right, one.right), std::max(box.bottom, one.bottom)};
    }
    boxes.push_back(box);
  }
  return boxes;
}

std::vector<Box> Difference(const Diagram& before, const Diagram& after) {
  std::vector<Box> boxes;
  const auto add = [&](const auto& shape) { boxes.push_back(BoxOf(shape)); };
  ReportChanges(before.pins, after.pins, add);
  ReportChanges(before.captions, after.captions, add);
  ReportChanges(before.leaders, after.leaders, add);
  ReportChanges(before.wires, after.wires, [&](const WireShape& wire) {
    for (const Box& box : BoxesOf(wire)) boxes.push_back(box);
  });
  return boxes;
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
