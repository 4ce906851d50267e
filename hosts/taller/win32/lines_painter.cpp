#include "taller/win32/lines_painter.h"

#include <algorithm>
#include <array>

#include "taller/item_colors.h"
#include "taller/win32/own_colors.h"
#include "ui/win32/controls.h"
#include "ui/win32/gdi.h"

namespace conmuta::taller {
namespace {

using win32::GdiObject;

COLORREF ColorOf(Color color) {
  return RGB(color.red, color.green, color.blue);
}

// The user's colours, and our own where they suit those.
struct Inks {
  bool has_own = MayUseOwnColors();
  COLORREF ground = GetSysColor(COLOR_WINDOW);
  COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
  COLORREF muted = GetSysColor(COLOR_GRAYTEXT);
  COLORREF bar = GetSysColor(COLOR_BTNFACE);
  COLORREF bar_text = GetSysColor(COLOR_BTNTEXT);
  COLORREF marked = GetSysColor(COLOR_HIGHLIGHT);
  COLORREF marked_text = GetSysColor(COLOR_HIGHLIGHTTEXT);
  COLORREF call = RGB(0, 110, 60);
  COLORREF error = RGB(190, 30, 30);
  COLORREF on_item = RGB(0, 0, 0);

  Inks() {
    if (!has_own) call = error = on_item = text;
  }
};

class Painter {
 public:
  Painter(HDC dc, SIZE room, HFONT fixed, HFONT message, const LinesPicture& picture)
      : dc_(dc), room_(room), message_(message), picture_(picture), selected_(dc, fixed) {
    SetBkMode(dc, TRANSPARENT);
    SetTextAlign(dc, TA_LEFT | TA_TOP);
  }

  void Paint() {
    Fill({0, 0, room_.cx, room_.cy}, inks_.ground);
    if (picture_.rows.empty()) PaintHint();
    const LONG bottom = grid().ruler + grid().row * static_cast<LONG>(picture_.rows.size());
    LONG top = grid().ruler;
    for (const LinesPicture::Row& row : picture_.rows) {
      if (!row.kind.IsHead()) PaintUsed(top);
      PaintRow(row, top);
      top += grid().row;
    }
    if (!picture_.rows.empty()) PaintMarkEdges(bottom);
    Fill({0, grid().ruler, grid().gutter - grid().cell / 2, room_.cy}, inks_.bar);
    top = grid().ruler;
    for (const LinesPicture::Row& row : picture_.rows) {
      PaintGutter(row, top);
      top += grid().row;
    }
    PaintRuler();
  }

 private:
  const LinesGrid& grid() const { return picture_.grid; }
  LONG LeftOf(int column) const {
    return grid().gutter + LONG{column - picture_.first_column} * grid().cell;
  }
  int LastColumn() const {
    return picture_.first_column +
           static_cast<int>((room_.cx - grid().gutter) / std::max(grid().cell, 1)) + 1;
  }

  void Fill(const RECT& place, COLORREF color) {
    SetBkColor(dc_, color);
    ExtTextOutW(dc_, 0, 0, ETO_OPAQUE, &place, nullptr, 0, nullptr);
  }

  // Every character in its cell, whatever width the font gives it.
  void Write(TextView text, LONG x, LONG y, COLORREF color, const RECT* clip = nullptr) {
    if (text.empty()) return;
    const std::vector<INT> widths(text.size(), grid().cell);
    SetTextColor(dc_, color);
    ExtTextOutW(dc_, x, y, clip != nullptr ? ETO_CLIPPED : 0, clip,
                reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()),
                widths.data());
  }

  // A part of a line, by columns.
  void WriteColumns(const Text& seen, int pos, int size, LONG y, COLORREF color) {
    const int first = std::max(pos, picture_.first_column);
    const int end = std::min({pos + size, LastColumn() + 1, static_cast<int>(seen.size()) + 1});
    if (first >= end) return;
    Write(TextView(seen).substr(static_cast<std::size_t>(first - 1),
                                static_cast<std::size_t>(end - first)),
          LeftOf(first), y, color);
  }

  RECT PlaceOf(int pos, int size, LONG top, LONG bottom) const {
    const LONG least = grid().gutter;
    return {std::max(LeftOf(pos), least), top, std::max(LeftOf(pos + size), least), bottom};
  }

  // Where colours say nothing, lines between the columns do.
  void PaintUsed(LONG top) {
    for (const ColumnMark& used : picture_.used) {
      const RECT place = PlaceOf(used.pos, used.size, top, top + grid().row);
      if (place.left >= place.right) continue;
      if (inks_.has_own) {
        Fill(place, ColorOf(ItemGround(used.color)));
        continue;
      }
      for (const LONG x : {place.left, place.right - 1}) {
        Fill({x, place.top, x + 1, place.bottom}, inks_.text);
      }
    }
  }

  void PaintRow(const LinesPicture::Row& row, LONG top) {
    const Text& seen = row.line.seen;
    const bool is_head = row.kind.IsHead();
    WriteColumns(seen, 1, static_cast<int>(seen.size()), top, is_head ? inks_.muted : inks_.text);
    if (!is_head && inks_.has_own) {
      for (const ColumnMark& used : picture_.used) {
        WriteColumns(seen, used.pos, used.size, top, inks_.on_item);
      }
    }
    const bool is_chosen = row.number == picture_.caret.line;
    if (is_chosen) {
      const RECT band{grid().gutter, top, room_.cx, top + grid().row};
      for (const LONG y : {band.top, band.bottom - 1}) {
        Fill({band.left, y, band.right, y + 1}, inks_.marked);
      }
    }
    if (picture_.marked && picture_.marked->line == row.number) {
      const Marked& marked = *picture_.marked;
      Fill(PlaceOf(marked.pos, marked.size, top, top + grid().row), inks_.marked);
      WriteColumns(seen, marked.pos, marked.size, top, inks_.marked_text);
    }
    // What no column is counted for stands between columns.
    for (const ShownLine::Control& control : row.line.controls) {
      const LONG x = LeftOf(static_cast<int>(control.column));
      if (x < grid().gutter) continue;
      Fill({x - 1, top + 2, x + 1, top + grid().row - 2}, inks_.error);
    }
  }

  void PaintMarkEdges(LONG bottom) {
    if (!picture_.marked) return;
    const Marked& marked = *picture_.marked;
    for (const int column : {marked.pos, marked.pos + marked.size}) {
      const LONG x = LeftOf(column);
      if (x >= grid().gutter) Fill({x, grid().ruler, x + 1, bottom}, inks_.marked);
    }
  }

  void PaintGutter(const LinesPicture::Row& row, LONG top) {
    const Text number = ToText(static_cast<long long>(row.number));
    const LONG mark = grid().cell * 2;
    const LONG right = grid().gutter - grid().cell - mark;
    const bool is_chosen = row.number == picture_.caret.line;
    if (is_chosen) {
      Fill({0, top, right + grid().cell / 2, top + grid().row}, inks_.marked);
    }
    Write(number, right - grid().cell * static_cast<LONG>(number.size()), top,
          is_chosen ? inks_.marked_text : inks_.bar_text);
    PaintVerdict(row.kind, right + grid().cell, top);
  }

  // A full circle, an empty one, a triangle: the shape tells as well as the colour.
  void PaintVerdict(LineKind kind, LONG left, LONG top) {
    if (!kind.IsCall() && !kind.IsNoCall() && !kind.IsError()) return;
    const COLORREF color = kind.IsCall()    ? inks_.call
                           : kind.IsError() ? inks_.error
                                            : inks_.bar_text;
    const int size = std::max(grid().row * 5 / 8, 5);
    const LONG y = top + (grid().row - size) / 2;
    const GdiObject<HPEN> pen(CreatePen(PS_SOLID, std::max(size / 8, 1), color));
    const GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    const win32::Selection with_pen(dc_, pen.get());
    const win32::Selection with_brush(
        dc_, kind.IsNoCall() ? GetStockObject(NULL_BRUSH) : HGDIOBJ{brush.get()});
    if (kind.IsError()) {
      const std::array<POINT, 3> corners = {
          {{left + size / 2, y}, {left + size - 1, y + size - 1}, {left, y + size - 1}}};
      Polygon(dc_, corners.data(), static_cast<int>(corners.size()));
    } else {
      Ellipse(dc_, left, y, left + size, y + size);
    }
  }

  void PaintRuler() {
    Fill({0, 0, room_.cx, grid().ruler}, inks_.bar);
    const LONG scale = grid().ruler - grid().row;
    if (picture_.marked) {
      Fill(PlaceOf(picture_.marked->pos, picture_.marked->size, scale, grid().ruler), inks_.marked);
    }
    Text ruler;
    for (int column = picture_.first_column; column <= LastColumn(); ++column) {
      ruler += column % 10 == 0  ? static_cast<char16_t>(u'0' + column / 10 % 10)
               : column % 5 == 0 ? u'|'
                                 : u'.';
    }
    Write(ruler, grid().gutter, scale, inks_.bar_text);
    if (picture_.marked) {
      const Marked& marked = *picture_.marked;
      for (int column = marked.pos; column < marked.pos + marked.size; ++column) {
        WriteRuled(ruler, column, scale, inks_.marked_text);
      }
    }
    if (picture_.ruled) PaintPointed(ruler, *picture_.ruled, scale);
  }

  void WriteRuled(const Text& ruler, int column, LONG y, COLORREF color) {
    const int at = column - picture_.first_column;
    if (at < 0 || at >= static_cast<int>(ruler.size())) return;
    Write(TextView(ruler).substr(static_cast<std::size_t>(at), 1), LeftOf(column), y, color);
  }

  // The column and who has it, above the scale.
  void PaintPointed(const Text& ruler, int column, LONG scale) {
    if (column < picture_.first_column) return;
    const RECT cell = PlaceOf(column, 1, scale, grid().ruler);
    Fill(cell, inks_.bar_text);
    WriteRuled(ruler, column, scale, inks_.bar);
    Text told = ToText(column);
    if (!picture_.ruled_names.empty()) told += u"  " + picture_.ruled_names;
    const win32::Selection selected(dc_, message_);
    SIZE size{};
    GetTextExtentPoint32W(dc_, win32::Wide(told), static_cast<int>(told.size()), &size);
    const LONG most = std::max<LONG>(room_.cx - size.cx - 4, 0);
    SetTextColor(dc_, inks_.bar_text);
    TextOutW(dc_, std::min(cell.left, most), std::max<LONG>((scale - size.cy) / 2, 0),
             win32::Wide(told), static_cast<int>(told.size()));
  }

  void PaintHint() {
    const win32::Selection selected(dc_, message_);
    RECT place{grid().gutter, grid().ruler + grid().row, room_.cx - grid().cell, room_.cy};
    SetTextColor(dc_, inks_.text);
    DrawTextW(dc_, win32::Wide(picture_.hint), static_cast<int>(picture_.hint.size()), &place,
              DT_WORDBREAK | DT_NOPREFIX);
  }

  HDC dc_;
  SIZE room_;
  HFONT message_;
  const LinesPicture& picture_;
  const Inks inks_;
  const win32::Selection selected_;
};

}  // namespace

void PaintLines(HDC dc, SIZE room, HFONT fixed, HFONT message, const LinesPicture& picture) {
  Painter(dc, room, fixed, message, picture).Paint();
}

}  // namespace conmuta::taller
