// Mouse and keyboard over the lines of a capture.
#include <algorithm>

#include "taller/win32/lines_view.h"

namespace conmuta::taller {

// --- what the person does ---

void LinesView::TellMoved() {
  ShowCaretLine();
  if (Moved) Moved();
}

Caret LinesView::CaretAt(POINT at) const {
  const LONG row = at.y < grid_.ruler ? -1 : (at.y - grid_.ruler) / grid_.row;
  const LONG x = at.x - grid_.gutter;
  const LONG column = x >= 0 ? x / grid_.cell : -1 - (-x / grid_.cell);
  return {LineFrom(top_, std::min<std::int64_t>(row, RowsSeen())),
          left_ + static_cast<int>(column)};
}

void LinesView::Pull(POINT at) {
  const Caret place = CaretAt(at);
  Selection& selection = bench_.selection();
  if (!selection.marked() && place.column == pressed_->column) return;
  selection.PullTo(place.column);
  TellMoved();
}

void LinesView::Point(POINT at) {
  std::optional<int> pointed;
  if (bench_.HasCapture() && at.x >= grid_.gutter) pointed = CaretAt(at).column;
  if (pointed == pointed_) return;
  pointed_ = pointed;
  const RECT ruler{0, 0, 0x7FFF, grid_.ruler};
  InvalidateRect(control_, &ruler, FALSE);
  TRACKMOUSEEVENT leave{};
  leave.cbSize = sizeof leave;
  leave.dwFlags = TME_LEAVE;
  leave.hwndTrack = control_;
  TrackMouseEvent(&leave);
}

bool LinesView::Escape() {
  Selection& selection = bench_.selection();
  if (!pressed_ && !selection.marked()) return false;
  if (pressed_) {
    pressed_.reset();
    selection.Cancel();
    ReleaseCapture();
  } else {
    selection.Unmark();
  }
  TellMoved();
  return true;
}

bool LinesView::Key(WPARAM key) {
  if (!bench_.HasCapture()) return false;
  Selection& selection = bench_.selection();
  const bool shift = GetKeyState(VK_SHIFT) < 0;
  const bool control = GetKeyState(VK_CONTROL) < 0;
  const auto all = static_cast<std::int64_t>(bench_.lines());
  const auto across = [&](int columns) {
    shift ? selection.Extend(columns) : selection.Move(0, columns);
  };
  switch (key) {
    case VK_LEFT:
      across(-1);
      break;
    case VK_RIGHT:
      across(1);
      break;
    case VK_UP:
      selection.Move(-1, 0);
      break;
    case VK_DOWN:
      selection.Move(1, 0);
      break;
    case VK_PRIOR:
      selection.Move(-RowsSeen(), 0);
      break;
    case VK_NEXT:
      selection.Move(RowsSeen(), 0);
      break;
    case VK_HOME:
      control ? selection.Move(-all, 0) : across(-Selection::kLastColumn);
      break;
    case VK_END:
      if (control) {
        selection.Move(all, 0);
      } else {
        const auto length = static_cast<int>(std::min<std::size_t>(
            bench_.LineAt(selection.caret().line).text.size(), Selection::kLastColumn));
        across(std::max(length, 1) - selection.caret().column + (shift && !selection.marked()));
      }
      break;
    case VK_RETURN:
      if (!selection.marked()) selection.Extend(1);
      TellMoved();
      if (Asked) Asked();
      return true;
    case VK_DELETE:
      if (Removed) Removed();
      return true;
    default:
      return false;
  }
  TellMoved();
  return true;
}

void LinesView::Wheel(WPARAM wparam) {
  const int delta = GET_WHEEL_DELTA_WPARAM(wparam);
  if ((GET_KEYSTATE_WPARAM(wparam) & MK_CONTROL) != 0) {
    return Zoom(zoom_ + (delta > 0 ? 10 : -10));
  }
  wheel_ += delta * 3;
  const int lines = wheel_ / WHEEL_DELTA;
  wheel_ -= lines * WHEEL_DELTA;
  ScrollTo(LineFrom(top_, -lines), left_);
}

void LinesView::Scroll(int bar, int how) {
  const bool down = bar == SB_VERT;
  const int page = down ? RowsSeen() : ColumnsSeen();
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS | SIF_RANGE;
  GetScrollInfo(control_, bar, &info);
  std::int64_t place = down ? static_cast<std::int64_t>(top_) : left_;
  switch (how) {
    case SB_LINEUP:
      place -= down ? 1 : 4;
      break;
    case SB_LINEDOWN:
      place += down ? 1 : 4;
      break;
    case SB_PAGEUP:
      place -= page;
      break;
    case SB_PAGEDOWN:
      place += page;
      break;
    case SB_TOP:
      place = 1;
      break;
    case SB_BOTTOM:
      place = info.nMax;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      place = info.nTrackPos;
      break;
    default:
      return;
  }
  place = std::max<std::int64_t>(place, 1);
  down ? ScrollTo(static_cast<std::uint64_t>(place), left_)
       : ScrollTo(top_, static_cast<int>(place));
}

}  // namespace conmuta::taller
