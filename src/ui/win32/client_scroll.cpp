#include "ui/win32/client_scroll.h"

#include <algorithm>

namespace conmuta::win32 {
namespace {

constexpr int kStep = 40;

bool HasBar(HWND window, LONG_PTR style) {
  return (GetWindowLongPtrW(window, GWL_STYLE) & style) != 0;
}

void SetBar(HWND window, int bar, LONG room, LONG seen, LONG offset) {
  const bool needed = room > seen;
  const LONG_PTR style = bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL;
  if (needed != HasBar(window, style)) ShowScrollBar(window, bar, needed);
  if (!needed) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = static_cast<int>(room) - 1;
  info.nPage = static_cast<UINT>(std::max(seen, 1L));
  info.nPos = static_cast<int>(offset);
  SetScrollInfo(window, bar, &info, TRUE);
}

}  // namespace

SIZE ClientScroll::Fit(SIZE least) {
  const int across = GetSystemMetrics(SM_CYHSCROLL);
  const int down = GetSystemMetrics(SM_CXVSCROLL);
  RECT client{};
  GetClientRect(window_, &client);
  const SIZE whole{client.right + (HasBar(window_, WS_VSCROLL) ? down : 0),
                   client.bottom + (HasBar(window_, WS_HSCROLL) ? across : 0)};
  // Each bar takes room from the other direction.
  bool horizontal = least.cx > whole.cx;
  const bool vertical = least.cy > whole.cy - (horizontal ? across : 0);
  horizontal = least.cx > whole.cx - (vertical ? down : 0);
  seen_ = {std::max<LONG>(whole.cx - (vertical ? down : 0), 0),
           std::max<LONG>(whole.cy - (horizontal ? across : 0), 0)};
  room_ = {std::max(least.cx, seen_.cx), std::max(least.cy, seen_.cy)};
  for (const int bar : {SB_HORZ, SB_VERT}) {
    OffsetOf(bar) = std::clamp<LONG>(OffsetOf(bar), 0, RangeOf(bar));
  }
  SetBar(window_, SB_HORZ, room_.cx, seen_.cx, offset_.x);
  SetBar(window_, SB_VERT, room_.cy, seen_.cy, offset_.y);
  return room_;
}

int ClientScroll::RangeOf(int bar) const {
  return static_cast<int>(bar == SB_HORZ ? room_.cx - seen_.cx : room_.cy - seen_.cy);
}

bool ClientScroll::ScrollBy(int bar, int pixels) {
  const LONG before = OffsetOf(bar);
  OffsetOf(bar) = std::clamp<LONG>(before + pixels, 0, RangeOf(bar));
  return OffsetOf(bar) != before;
}

bool ClientScroll::Scroll(int bar, int how) {
  const LONG page = bar == SB_HORZ ? seen_.cx : seen_.cy;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  switch (how) {
    case SB_LINEUP:
      return ScrollBy(bar, -kStep);
    case SB_LINEDOWN:
      return ScrollBy(bar, kStep);
    case SB_PAGEUP:
      return ScrollBy(bar, static_cast<int>(-page));
    case SB_PAGEDOWN:
      return ScrollBy(bar, static_cast<int>(page));
    case SB_TOP:
      return ScrollBy(bar, -RangeOf(bar));
    case SB_BOTTOM:
      return ScrollBy(bar, RangeOf(bar));
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      GetScrollInfo(window_, bar, &info);
      return ScrollBy(bar, info.nTrackPos - static_cast<int>(OffsetOf(bar)));
    default:
      return false;
  }
}

bool ClientScroll::Show(const RECT& place) {
  // The beginning is what counts where not all of it fits.
  const auto distance = [](LONG first, LONG last, LONG seen) {
    if (first < 0) return static_cast<int>(first);
    return last > seen ? static_cast<int>(std::min(last - seen, first)) : 0;
  };
  const bool across = ScrollBy(SB_HORZ, distance(place.left, place.right, seen_.cx));
  const bool down = ScrollBy(SB_VERT, distance(place.top, place.bottom, seen_.cy));
  return across || down;
}

}  // namespace conmuta::win32
