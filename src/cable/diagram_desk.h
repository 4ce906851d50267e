// Working on the diagram of a cable with mouse and keyboard: what a press, a drag or a key means,
// which part of the picture is in view, and what has to be painted anew. Knows no toolkit: places
// are pixels of the view.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "cable/diagram.h"
#include "cable/frmPuertos.h"

namespace conmuta {

class DiagramDesk {
 public:
  // The editor must live as long. `repaint` is told which boxes of the view have changed.
  DiagramDesk(frmPuertos& editor, std::function<void(const std::vector<Box>&)> repaint)
      : editor_(editor), repaint_(std::move(repaint)) {}

  // The editor has changed.
  void Refresh();
  // The view has; one of its units is `unit` pixels where the picture has its usual size. It grows
  // and shrinks with the view, within what is comfortable to look at.
  void Resize(double width, double height, double unit);

  // --- the mouse ---
  void Press(Point pointer);
  void Move(Point pointer);
  void Release(Point pointer);
  void Leave();      // the pointer is elsewhere
  void Interrupt();  // somebody else took the mouse
  // Whether a wire is being drawn with the mouse, which is to be captured meanwhile.
  bool is_dragging() const { return drag_.has_value(); }

  // --- the keyboard ---
  enum class Key { kUp, kDown, kLeft, kRight, kHome, kEnd, kAct, kDelete };
  // Whether the key means something here: without editing the last two do not.
  bool Takes(Key key) const;
  void Press(Key key);
  // Drops the wire that is being drawn; false when there is none.
  bool Escape();
  void Focus(bool has_focus);

  // --- scrolling, in units of the picture ---
  double scrolled() const { return scrolled_; }
  double page() const { return height_ / scale_; }
  double range() const { return diagram_.ScrollRange(page()); }
  void ScrollTo(double units);

  // --- what is shown ---
  const Diagram& diagram() const { return diagram_; }
  const std::optional<WireShape>& loose() const { return loose_; }
  double scale() const { return scale_; }  // pixels to a unit
  // Where the picture begins; one that is smaller than the view stands in its middle.
  Point origin() const;
  // What is at the pointer or the keyboard's pin, else what one can do.
  Text hint() const;

 private:
  Point ToDiagram(Point pointer) const;
  std::optional<Pin> PinUnder(Point pointer) const;
  void Redraw();
  void ShowLoose(std::optional<Point> pointer);
  void Connect(Pin from, Pin to);
  void MoveCaret(Pin pin);
  Pin Neighbour(int step) const;
  Pin Opposite(Side side) const;

  frmPuertos& editor_;
  const std::function<void(const std::vector<Box>&)> repaint_;
  double width_ = 0;
  double height_ = 0;
  double unit_ = 1;
  double scale_ = 1;
  double scrolled_ = 0;
  emPuertoSerial pair_ = emNoPuerto;  // of the picture
  Diagram diagram_;
  std::optional<WireShape> loose_;
  std::optional<Pin> hover_;
  std::optional<Pin> drag_;     // where the wire begins that the mouse draws
  std::optional<Pin> started_;  // or the keyboard
  Pin caret_{Side::kLeft, 1};
  bool has_focus_ = false;
  bool caret_is_used_ = false;  // the keyboard was used after the mouse
};

}  // namespace conmuta
