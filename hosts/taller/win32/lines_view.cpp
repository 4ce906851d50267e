#include "taller/win32/lines_view.h"

#include <windowsx.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "ui/win32/controls.h"

namespace conmuta::taller {
namespace {

constexpr wchar_t kClassName[] = L"Conmuta.Lines";
constexpr int kLongest = 1024;  // of a line, columns that are drawn
constexpr TextView kHint =
    u"Abra una captura (Ctrl+O), péguela (Ctrl+V) o suelte aquí su archivo.\r\n"
    u"Marque columnas con el ratón, o con Mayús y las flechas, y elija qué son.\r\n"
    u"Si el conmutador está en el catálogo, Adivinar (Ctrl+D) lo encuentra.";

class LinesClass {
 public:
  explicit LinesClass(WNDPROC procedure) {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = win32::ThisModule();
    window_class.hCursor = LoadCursorW(nullptr, IDC_IBEAM);
    window_class.lpszClassName = kClassName;
    if (RegisterClassExW(&window_class) == 0) throw std::bad_alloc();
  }
};

}  // namespace

const wchar_t* LinesView::ClassName() {
  static const LinesClass registered(Procedure);
  return kClassName;
}

LinesView::~LinesView() {
  if (control_ != nullptr) SetWindowLongPtrW(control_, GWLP_USERDATA, 0);
}

void LinesView::Attach(HWND control, Guard guard) {
  control_ = control;
  guard_ = std::move(guard);
  SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

// --- what is seen ---

int LinesView::RowsSeen() const {
  RECT client{};
  GetClientRect(control_, &client);
  return std::max(static_cast<int>(client.bottom - grid_.ruler) / grid_.row, 1);
}

int LinesView::ColumnsSeen() const {
  RECT client{};
  GetClientRect(control_, &client);
  return std::max(static_cast<int>(client.right - grid_.gutter) / grid_.cell, 1);
}

std::uint64_t LinesView::LastTop() const {
  const auto rows = static_cast<std::uint64_t>(RowsSeen());
  return bench_.lines() > rows ? bench_.lines() - rows + 1 : 1;
}

void LinesView::UseFont() {
  LOGFONTW message{};
  GetObjectW(message_font_, sizeof message, &message);
  const int height = std::max(std::abs(static_cast<int>(message.lfHeight)) * zoom_ / 100, 4);
  font_ = win32::FixedPitchFont(height);
  const HDC dc = GetDC(control_);
  TEXTMETRICW metrics{};
  {
    const win32::Selection selected(dc, font_.get());
    GetTextMetricsW(dc, &metrics);
  }
  ReleaseDC(control_, dc);
  grid_.cell = std::max(static_cast<int>(metrics.tmAveCharWidth), 1);
  grid_.row = std::max(static_cast<int>(metrics.tmHeight), 1);
  const win32::Measures measures(message_font_);
  grid_.ruler = grid_.row + measures.line() + measures.Scale(4);
  if (GetFocus() == control_) {  // the caret has a line's height
    DestroyCaret();
    CreateCaret(control_, nullptr, std::max(grid_.cell / 5, 2), grid_.row);
    ShowCaret(control_);
  }
  Refresh();
}

void LinesView::FitGutter() {
  const int digits = std::max<int>(static_cast<int>(std::to_string(bench_.lines()).size()), 4);
  grid_.gutter = grid_.cell * (digits + 4) + grid_.cell / 2;
}

void LinesView::Refresh() {
  if (control_ == nullptr) return;
  FitGutter();
  top_ = std::clamp<std::uint64_t>(top_, 1, LastTop());
  ShowBars();
  PlaceCaret();
  InvalidateRect(control_, nullptr, FALSE);
}

void LinesView::ShowBars() {
  constexpr std::uint64_t kMostLines = 0x7FFFFFFF;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMin = 1;
  info.nMax = static_cast<int>(std::min(std::max<std::uint64_t>(bench_.lines(), 1), kMostLines));
  info.nPage = static_cast<UINT>(RowsSeen());
  info.nPos = static_cast<int>(std::min(top_, kMostLines));
  SetScrollInfo(control_, SB_VERT, &info, TRUE);
  info.nMax = kMostColumns;
  info.nPage = static_cast<UINT>(ColumnsSeen());
  info.nPos = left_;
  SetScrollInfo(control_, SB_HORZ, &info, TRUE);
}

// Off the screen where its place is.
void LinesView::PlaceCaret() {
  if (GetFocus() != control_) return;
  const Caret& caret = bench_.selection().caret();
  const auto rows = static_cast<std::uint64_t>(RowsSeen());
  const bool is_seen = bench_.HasCapture() && caret.line >= top_ && caret.line < top_ + rows &&
                       caret.column >= left_;
  if (!is_seen) {
    SetCaretPos(-grid_.cell, -grid_.row);
    return;
  }
  SetCaretPos(grid_.gutter + (caret.column - left_) * grid_.cell,
              grid_.ruler + static_cast<int>(caret.line - top_) * grid_.row);
}

void LinesView::ShowCaretLine() {
  const Caret& caret = bench_.selection().caret();
  const auto rows = static_cast<std::uint64_t>(RowsSeen());
  std::uint64_t top = top_;
  if (caret.line < top_)
    top = top_ - caret.line > rows ? LineFrom(caret.line, -RowsSeen() / 2) : caret.line;
  if (caret.line >= top_ + rows) {
    const std::uint64_t least = caret.line - rows + 1;
    top = least - top_ > rows ? LineFrom(caret.line, -RowsSeen() / 2) : least;
  }
  int left = left_;
  if (caret.column < left) left = caret.column;
  left = std::max(left, caret.column - ColumnsSeen() + 1);
  ScrollTo(top, left);
}

void LinesView::ScrollTo(std::uint64_t top, int left) {
  top_ = std::clamp<std::uint64_t>(top, 1, LastTop());
  left_ = std::clamp(left, 1, std::max(kMostColumns - ColumnsSeen() + 1, 1));
  Refresh();
}

void LinesView::Zoom(int percent) {
  zoom_ = std::clamp(percent, kLeastZoom, kMostZoom);
  if (control_ != nullptr) UseFont();
}

RECT LinesView::PlaceOf(const Marked& columns) const {
  const LONG x = grid_.gutter + LONG{columns.pos - left_} * grid_.cell;
  const auto row = static_cast<LONG>(columns.line < top_ ? 0 : columns.line - top_);
  const LONG y = grid_.ruler + row * LONG{grid_.row};
  return {x, y, x + LONG{columns.size} * grid_.cell, y + grid_.row};
}

RECT LinesView::PlaceOfMark() const {
  const Caret& caret = bench_.selection().caret();
  RECT place = PlaceOf(bench_.selection().marked().value_or(Marked{caret.line, caret.column, 1}));
  MapWindowPoints(control_, HWND_DESKTOP, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// --- painting ---

LinesPicture LinesView::Picture() const {
  LinesPicture picture;
  picture.grid = grid_;
  picture.first_column = left_;
  picture.caret = bench_.selection().caret();
  picture.marked = bench_.selection().marked();
  picture.ruled = pointed_;
  if (!pointed_ && bench_.HasCapture()) picture.ruled = picture.caret.column;
  if (picture.ruled) picture.ruled_names = bench_.NamesAt(*picture.ruled);
  picture.used = MarksOf(bench_.document().layout());
  if (!bench_.HasCapture()) picture.hint = kHint;
  const std::uint64_t end =
      std::min(bench_.lines() + 1, top_ + static_cast<std::uint64_t>(RowsSeen()) + 1);
  for (std::uint64_t line = top_; line < end; ++line) {
    LinesPicture::Row row{line, bench_.LineAt(line), bench_.verdicts().Of(line)};
    if (row.line.seen.size() > kLongest) row.line.seen.resize(kLongest);
    picture.rows.push_back(std::move(row));
  }
  return picture;
}

// By way of a bitmap, so that nothing flickers.
void LinesView::Paint() {
  const win32::Painting painting(control_);
  RECT client{};
  GetClientRect(control_, &client);
  if (client.right <= 0 || client.bottom <= 0) return;
  const HDC memory = CreateCompatibleDC(painting.dc());
  {
    const win32::Bitmap bitmap(CreateCompatibleBitmap(painting.dc(), client.right, client.bottom));
    const win32::Selection selected(memory, bitmap.get());
    PaintLines(memory, {client.right, client.bottom}, font_.get(), message_font_, Picture());
    BitBlt(painting.dc(), 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
  }
  DeleteDC(memory);
}

// --- messages ---

LRESULT CALLBACK LinesView::Procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* view = reinterpret_cast<LinesView*>(GetWindowLongPtrW(control, GWLP_USERDATA));
  LRESULT result = 0;
  bool is_handled = false;
  if (view != nullptr) {
    view->guard_([&] { is_handled = view->Handle(message, wparam, lparam, result); });
  }
  return is_handled ? result : DefWindowProcW(control, message, wparam, lparam);
}

bool LinesView::Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
  const POINT at{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
  switch (message) {
    case WM_SETFONT:
      message_font_ = reinterpret_cast<HFONT>(wparam);
      UseFont();
      return true;
    case WM_GETFONT:
      result = reinterpret_cast<LRESULT>(message_font_);
      return true;
    case WM_GETDLGCODE:
      result = DLGC_WANTARROWS | DLGC_WANTCHARS;
      if (lparam != 0 && reinterpret_cast<const MSG*>(lparam)->wParam == VK_RETURN) {
        result |= DLGC_WANTMESSAGE;
      }
      return true;
    case WM_ERASEBKGND:
      result = 1;
      return true;
    case WM_PAINT:
      Paint();
      return true;
    case WM_SIZE:
      Refresh();
      return true;
    case WM_SETFOCUS:
      CreateCaret(control_, nullptr, std::max(grid_.cell / 5, 2), grid_.row);
      ShowCaret(control_);
      Refresh();
      return true;
    case WM_KILLFOCUS:
      DestroyCaret();
      Refresh();
      return true;
    case WM_LBUTTONDOWN:
      SetFocus(control_);
      if (!bench_.HasCapture() || at.y < grid_.ruler) return true;
      pressed_ = CaretAt(at);
      bench_.selection().Press(*pressed_);
      SetCapture(control_);
      TellMoved();
      return true;
    case WM_MOUSEMOVE:
      Point(at);
      if (pressed_) Pull(at);
      return true;
    case WM_MOUSELEAVE:
      Point({-1, -1});
      return true;
    case WM_LBUTTONUP:
      if (!pressed_) return true;
      pressed_.reset();
      bench_.selection().Release();
      ReleaseCapture();
      if (bench_.selection().marked() && Asked) Asked();
      return true;
    case WM_CAPTURECHANGED:
      if (pressed_) Escape();
      return true;
    case WM_MOUSEWHEEL:
      Wheel(wparam);
      return true;
    case WM_HSCROLL:
      Scroll(SB_HORZ, LOWORD(wparam));
      return true;
    case WM_VSCROLL:
      Scroll(SB_VERT, LOWORD(wparam));
      return true;
    case WM_KEYDOWN:
      return Key(wparam);
    default:
      return false;
  }
}

}  // namespace conmuta::taller
