#include "cable/diagram_desk.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cable/wiring_text.h"

namespace conmuta {
namespace {

// Of the usual size of the picture.
constexpr double kLeastScale = 0.85;
constexpr double kMostScale = 1.75;

}  // namespace

// --- the picture ---

void DiagramDesk::Resize(double width, double height, double unit) {
  width_ = std::max(width, 1.0);
  height_ = std::max(height, 1.0);
  unit_ = unit;
  pair_ = emNoPuerto;  // everything is new
  Refresh();
}

void DiagramDesk::Refresh() {
  const emPuertoSerial pair = editor_.opcPuerto();
  if (pair == pair_) {
    Redraw();
    return;
  }
  pair_ = pair;
  hover_.reset();
  drag_.reset();
  started_.reset();
  loose_.reset();
  caret_.number = std::min(caret_.number, PinsOf(pair, caret_.side));
  const double fitting = std::min(height_ / DiagramHeight(pair), width_ / kLeastDiagramWidth);
  scale_ = std::clamp(fitting, kLeastScale * unit_, kMostScale * unit_);
  // Better small than cut off at the side, where there is no bar.
  scale_ = std::min(scale_, width_ / kLeastDiagramWidth);
  diagram_ = {};
  Redraw();
  scrolled_ = std::clamp(scrolled_, 0.0, range());
  repaint_({{0, 0, width_, height_}});
}

void DiagramDesk::Redraw() {
  const bool shows_caret = has_focus_ && caret_is_used_;
  DiagramMarks marks{editor_.shown_pin(), hover_, std::nullopt};
  if (has_focus_) marks.caret = caret_;
  if (!marks.hot && shows_caret) marks.hot = caret_;
  const auto before =
      std::exchange(diagram_, DrawCable(pair_, editor_.table(), marks, width_ / scale_));
  std::vector<Box> boxes = Difference(before, diagram_);
  const Point from = origin();
  for (Box& box : boxes) {
    box = {from.x + box.left * scale_, from.y + box.top * scale_, from.x + box.right * scale_,
           from.y + box.bottom * scale_};
  }
  if (!boxes.empty()) repaint_(boxes);
}

void DiagramDesk::ShowLoose(std::optional<Point> pointer) {
  std::vector<Box> boxes;
  const auto add = [&] {
    if (!loose_) return;
    const Point from = origin();
    for (const Box& box : BoxesOf(*loose_)) {
      boxes.push_back({from.x + box.left * scale_, from.y + box.top * scale_,
                       from.x + box.right * scale_, from.y + box.bottom * scale_});
    }
  };
  add();
  const std::optional<Pin> from = drag_ ? drag_ : started_;
  loose_.reset();
  if (from && pointer) loose_ = DrawLooseWire(diagram_, pair_, *from, *pointer);
  add();
  if (!boxes.empty()) repaint_(boxes);
}

Point DiagramDesk::origin() const {
  return {std::max(0.0, (width_ - diagram_.width * scale_) / 2),
          std::max(0.0, (height_ - diagram_.height * scale_) / 2) - scrolled_ * scale_};
}

Point DiagramDesk::ToDiagram(Point pointer) const {
  const Point from = origin();
  return {(pointer.x - from.x) / scale_, (pointer.y - from.y) / scale_};
}

std::optional<Pin> DiagramDesk::PinUnder(Point pointer) const {
  const PinShape* pin = diagram_.PinAt(ToDiagram(pointer));
  return pin != nullptr ? std::optional(pin->pin()) : std::nullopt;
}

void DiagramDesk::ScrollTo(double units) {
  const double before = std::exchange(scrolled_, std::clamp(units, 0.0, range()));
  if (scrolled_ != before) repaint_({{0, 0, width_, height_}});
}

// --- wires ---

// From either side to the other; a wire that is there is cut.
void DiagramDesk::Connect(Pin from, Pin to) {
  if (from.side == to.side) return;
  if (from.side == Side::kRight) std::swap(from, to);
  editor_.ToggleWire(from.number, to.number);
}

// --- the mouse ---

void DiagramDesk::Press(Point pointer) {
  const auto pin = PinUnder(pointer);
  started_.reset();
  caret_is_used_ = false;
  if (pin) {
    caret_ = *pin;
    hover_ = pin;
    if (pin->side == Side::kLeft) editor_.PickLeftPin(pin->number);
    if (editor_.may_edit()) drag_ = pin;
  }
  Redraw();
  ShowLoose(std::nullopt);
}

void DiagramDesk::Move(Point pointer) {
  const auto pin = PinUnder(pointer);
  if (drag_) {
    ShowLoose(ToDiagram(pointer));
  } else if (pin != hover_) {
    hover_ = pin;
    caret_is_used_ = false;
    Redraw();
  }
}

void DiagramDesk::Release(Point pointer) {
  const auto from = std::exchange(drag_, std::nullopt);
  ShowLoose(std::nullopt);
  const auto to = PinUnder(pointer);
  if (from && to) Connect(*from, *to);
  Move(pointer);
}

void DiagramDesk::Leave() {
  if (!hover_) return;
  hover_.reset();
  Redraw();
}

void DiagramDesk::Interrupt() {
  drag_.reset();
  ShowLoose(std::nullopt);
}

// --- the keyboard ---

bool DiagramDesk::Takes(Key key) const {
  return editor_.may_edit() || (key != Key::kAct && key != Key::kDelete);
}

void DiagramDesk::Press(Key key) {
  if (!Takes(key)) return;
  switch (key) {
    case Key::kUp:
      return MoveCaret(Neighbour(-1));
    case Key::kDown:
      return MoveCaret(Neighbour(+1));
    case Key::kLeft:
      return MoveCaret(Opposite(Side::kLeft));
    case Key::kRight:
      return MoveCaret(Opposite(Side::kRight));
    case Key::kHome:
      return MoveCaret({caret_.side, 1});
    case Key::kEnd:
      return MoveCaret({caret_.side, PinsOf(pair_, caret_.side)});
    case Key::kDelete:
      editor_.CutWires(caret_);
      return MoveCaret(caret_);
    case Key::kAct: {
      const auto from = std::exchange(started_, std::nullopt);
      if (from && from->side != caret_.side) {
        Connect(*from, caret_);
      } else if (from != caret_) {
        started_ = caret_;
      }
      return MoveCaret(caret_);
    }
  }
}

bool DiagramDesk::Escape() {
  if (!drag_ && !started_) return false;
  started_.reset();
  Interrupt();
  return true;
}

void DiagramDesk::Focus(bool has_focus) {
  has_focus_ = has_focus;
  caret_is_used_ = has_focus;
  if (!has_focus) {
    started_.reset();
    ShowLoose(std::nullopt);
  }
  Redraw();
}

// Numbers run downwards in each row, and the inner row follows the outer one.
Pin DiagramDesk::Neighbour(int step) const {
  return {caret_.side, std::clamp(caret_.number + step, 1, PinsOf(pair_, caret_.side))};
}

// The pin of that side which is level with the present one.
Pin DiagramDesk::Opposite(Side side) const {
  if (side == caret_.side) return caret_;
  const PinShape* here = diagram_.Find(caret_.side, caret_.number);
  Pin nearest{side, 1};
  double least = diagram_.height;
  for (const PinShape& pin : diagram_.pins) {
    const double distance = std::abs(pin.center.y - here->center.y);
    if (pin.side != side || distance >= least) continue;
    least = distance;
    nearest = pin.pin();
  }
  return nearest;
}

void DiagramDesk::MoveCaret(Pin pin) {
  caret_ = pin;
  caret_is_used_ = true;
  hover_.reset();
  if (!started_ && pin.side == Side::kLeft) editor_.PickLeftPin(pin.number);
  Redraw();
  const PinShape* shape = diagram_.Find(pin.side, pin.number);
  const double margin = 2 * shape->radius;
  const double top = shape->center.y - margin;
  const double bottom = shape->center.y + margin;
  if (top < scrolled_) ScrollTo(top);
  if (bottom > scrolled_ + page()) ScrollTo(bottom - page());
  ShowLoose(shape->center);
}

// --- words ---

Text DiagramDesk::hint() const {
  const std::optional<Pin> from = drag_ ? drag_ : started_;
  const std::optional<Pin> at = hover_                         ? hover_
                                : has_focus_ && caret_is_used_ ? std::optional(caret_)
                                                               : std::nullopt;
  if (from) {
    const Text start = (from->side == Side::kLeft ? Text(u"Computadora ") : Text(u"Conmutador "))
                           .append(ToText(from->number));
    return Text(u"Cable desde ").append(start).append(u"; termina en un pin del otro lado");
  }
  if (at) return DescribePin(pair_, editor_.table(), *at);
  return editor_.may_edit()
             ? u"Arrastra de un pin a otro para trazar o quitar un cable; clic derecho: cables "
               u"usuales"
             : u"Señala un pin para ver adónde van sus cables";
}

}  // namespace conmuta
