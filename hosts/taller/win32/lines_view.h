// The control that shows the lines of a capture, and takes mouse and keyboard for them.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "taller/win32/lines_painter.h"
#include "taller/workbench.h"
#include "ui/win32/gdi.h"

namespace conmuta::taller {

// However many there are, only those that are seen are looked at.
class LinesView {
 public:
  static constexpr int kLeastZoom = 50;  // percent of the message font's height
  static constexpr int kUsualZoom = 110;
  static constexpr int kMostZoom = 400;
  static constexpr int kMostColumns = 1000;  // that can be scrolled to

  // Registers the class of the control, which is this.
  static const wchar_t* ClassName();

  explicit LinesView(Workbench& bench) : bench_(bench) {}
  ~LinesView();
  LinesView(const LinesView&) = delete;
  LinesView& operator=(const LinesView&) = delete;

  // Makes it work on a control of that class. What comes in goes through `guard`, which runs it and
  // lets no exception out.
  using Guard = std::function<void(const std::function<void()>&)>;
  void Attach(HWND control, Guard guard);

  // The caret is elsewhere, or other columns are marked.
  std::function<void()> Moved;
  // The person wants to say what the marked columns are.
  std::function<void()> Asked;
  // What stands at the caret is to go.
  std::function<void()> Removed;

  // Something that it shows has changed.
  void Refresh();
  // Brings the caret into view, in the midst where it was far from it.
  void ShowCaretLine();

  int zoom() const { return zoom_; }
  void Zoom(int percent);
  // Leaves what is marked, or being marked; whether there was something.
  bool Escape();

  // Where columns of a line are in the control, as far as it is scrolled now.
  RECT PlaceOf(const Marked& columns) const;
  // Where the marked columns are, or the caret, on the screen.
  RECT PlaceOfMark() const;

 private:
  static LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam);
  // False for messages that go to the system's own handling.
  bool Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);
  bool Key(WPARAM key);
  void Pull(POINT at);
  void Point(POINT at);
  void Wheel(WPARAM wparam);
  void Scroll(int bar, int how);
  void ScrollTo(std::uint64_t top, int left);

  void UseFont();
  void FitGutter();
  void ShowBars();
  void PlaceCaret();
  void Paint();
  LinesPicture Picture() const;

  // So many lines behind or before one, the first at least.
  static std::uint64_t LineFrom(std::uint64_t line, std::int64_t lines) {
    if (lines < 0 && line <= static_cast<std::uint64_t>(-lines)) return 1;
    return line + static_cast<std::uint64_t>(lines);
  }
  int RowsSeen() const;
  int ColumnsSeen() const;
  std::uint64_t LastTop() const;
  Caret CaretAt(POINT at) const;
  void TellMoved();

  Workbench& bench_;
  HWND control_ = nullptr;
  Guard guard_;
  HFONT message_font_ = nullptr;  // the window's
  win32::Font font_;
  LinesGrid grid_;
  int zoom_ = kUsualZoom;
  std::uint64_t top_ = 1;  // line
  int left_ = 1;           // column
  std::optional<int> pointed_;
  std::optional<Caret> pressed_;  // while the button is down
  int wheel_ = 0;                 // what has not become a line yet
};

}  // namespace conmuta::taller
