// Scroll bars of a window whose controls need more room than the screen has.
#pragma once

#include <windows.h>

namespace conmuta::win32 {

class ClientScroll {
 public:
  void Attach(HWND window) { window_ = window; }

  // Shows the bars that are needed where a window has to have at least `least` for its controls.
  // Gives the room that they are laid out in, of which the bars show a part.
  SIZE Fit(SIZE least);

  // What lies left of and above the part that is seen.
  POINT offset() const { return offset_; }

  // These tell whether the offset has changed.
  bool Scroll(int bar, int how);
  bool ScrollBy(int bar, int pixels);
  // A place in the window's client area that is to be seen.
  bool Show(const RECT& place);

 private:
  LONG& OffsetOf(int bar) { return bar == SB_HORZ ? offset_.x : offset_.y; }
  int RangeOf(int bar) const;

  HWND window_ = nullptr;
  SIZE room_{};
  SIZE seen_{};
  POINT offset_{};
};

}  // namespace conmuta::win32
