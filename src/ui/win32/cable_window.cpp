#include "ui/win32/cable_window.h"

#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "cable/diagram.h"
#include "cable/frmPuertos.h"
#include "ui/win32/control_ids.h"
#include "ui/win32/diagram_painter.h"
#include "ui/win32/window.h"

namespace conmuta::win32 {
namespace {

constexpr int kMargin = 10;
constexpr int kGap = 6;
constexpr int kRowHeight = 22;
constexpr int kOptionWidth = 148;
constexpr int kPinFieldWidth = 44;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 26;

constexpr std::array<TextView, kConnectorPairs> kPairCaptions = {
    u"Puerto DB9 - DB9", u"Puerto DB9 - DB25", u"Puerto DB25 - DB9", u"Puerto DB25 - DB25"};

class CableWindow final : public Window {
 public:
  explicit CableWindow(frmPuertos& editor) : editor_(editor) {
    Create({editor.caption(), {660, 560}, {520, 360}});
    Refresh();
  }

  // Shows the editor's state; what a control shows already is left alone, caret and all.
  void Refresh() {
    refreshing_ = true;
    SetText(handle(), editor_.caption());
    for (int pair = 1; pair <= kConnectorPairs; ++pair) {
      const bool selected = pair == editor_.opcPuerto();
      SendMessageW(options_[static_cast<std::size_t>(pair - 1)], BM_SETCHECK,
                   selected ? BST_CHECKED : BST_UNCHECKED, 0);
      // The arrow keys go from the chosen one to its neighbours; Tab goes past them all.
      SetTabStop(options_[static_cast<std::size_t>(pair - 1)], selected);
    }
    SetText(switch_, editor_.etqConmutador());
    SetText(pin_, editor_.txtPinIzq());
    SetText(list_, editor_.txtPinesConectados());
    SetEnabled(list_, editor_.list_enabled());
    for (const HWND control : {pin_label_, pin_, list_label_, list_, accept_}) {
      SetVisible(control, editor_.may_edit());
    }
    SetEnabled(accept_, editor_.may_edit());
    SetText(cancel_, editor_.btnCancelar());
    SetDefaultButton(editor_.may_edit() ? kBtnAceptar : kBtnCancelar);
    refreshing_ = false;
    if (editor_.may_edit() != laid_out_for_editing_) {
      RECT client{};
      GetClientRect(handle(), &client);
      Layout({client.right, client.bottom});
    }
    RedrawDiagram();
  }

 private:
  static void SetTabStop(HWND control, bool tab_stop) {
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE) & ~LONG_PTR{WS_TABSTOP};
    SetWindowLongPtrW(control, GWL_STYLE, style | (tab_stop ? WS_TABSTOP : 0));
  }

  void MakeControls() override {
    for (int pair = 1; pair <= kConnectorPairs; ++pair) {
      options_[static_cast<std::size_t>(pair - 1)] =
          AddControl(L"BUTTON", kPairCaptions[static_cast<std::size_t>(pair - 1)],
                     BS_AUTORADIOBUTTON | (pair == 1 ? WS_GROUP : 0), kOpcPuerto + pair);
    }
    switch_ = AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | WS_GROUP, kEtqConmutador);
    pin_label_ = AddControl(L"STATIC", u"Pin", SS_LEFT | SS_CENTERIMAGE, kLabel1);
    pin_ = AddControl(L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, kTxtPinIzq, WS_EX_CLIENTEDGE);
    list_label_ =
        AddControl(L"STATIC", u"---> Pines conectados", SS_LEFT | SS_CENTERIMAGE, kLabel2);
    list_ = AddControl(L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, kTxtPinesConectados,
                       WS_EX_CLIENTEDGE);
    diagram_view_ = AddControl(L"STATIC", u"", WS_BORDER | SS_OWNERDRAW | SS_NOTIFY, kDiagram);
    SetWindowLongPtrW(diagram_view_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    static_procedure_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        diagram_view_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DiagramProcedure)));
    scroll_ = AddControl(L"SCROLLBAR", u"", SBS_VERT | WS_TABSTOP, kVDesp);
    accept_ =
        AddControl(L"BUTTON", u"&Aceptar", WS_TABSTOP | WS_GROUP | BS_DEFPUSHBUTTON, kBtnAceptar);
    cancel_ = AddControl(L"BUTTON", u"&Cancelar", WS_TABSTOP | BS_PUSHBUTTON, kBtnCancelar);
  }

  void Layout(SIZE client) override {
    const int margin = Scale(kMargin);
    const int gap = Scale(kGap);
    const int row = Scale(kRowHeight);
    const int option = Scale(kOptionWidth);
    laid_out_for_editing_ = editor_.may_edit();

    int y = margin;
    for (int i = 0; i < kConnectorPairs; ++i) {
      Place(options_[static_cast<std::size_t>(i)], margin + (i / 2) * (option + gap),
            y + (i % 2) * (row + gap / 2), option, row);
    }
    const int label_x = margin + 2 * (option + gap) + gap;
    Place(switch_, label_x, y, std::max<int>(client.cx - label_x - margin, 0), 2 * row);
    y += 2 * row + 2 * gap;

    if (laid_out_for_editing_) {
      int x = margin;
      const int label_width = MeasureText(font(), u"Pin").cx + gap;
      Place(pin_label_, x, y, label_width, row);
      x += label_width;
      Place(pin_, x, y, Scale(kPinFieldWidth), row);
      x += Scale(kPinFieldWidth) + gap;
      const int arrow_width = MeasureText(font(), u"---> Pines conectados").cx + gap;
      Place(list_label_, x, y, arrow_width, row);
      x += arrow_width;
      Place(list_, x, y, std::max<int>(client.cx - x - margin, 0), row);
      y += row + 2 * gap;
    }

    const int button_height = Scale(kButtonHeight);
    const int button_y = client.cy - margin - button_height;
    const int button_width = Scale(kButtonWidth);
    Place(cancel_, client.cx - margin - button_width, button_y, button_width, button_height);
    Place(accept_, client.cx - margin - 2 * button_width - gap, button_y, button_width,
          button_height);

    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    const int height = std::max(button_y - gap - y, 0);
    const int width = std::max<int>(client.cx - 2 * margin - bar, 0);
    Place(diagram_view_, margin, y, width, height);
    Place(scroll_, margin + width, y, bar, height);
    RedrawDiagram();
  }

  void OnCommand(int id, int code) override {
    if (refreshing_) return;
    if (id > kOpcPuerto && id <= kOpcPuerto + kConnectorPairs && code == BN_CLICKED) {
      editor_.ChoosePair(static_cast<emPuertoSerial>(id - kOpcPuerto));
    } else if (id == kTxtPinIzq && code == EN_CHANGE) {
      editor_.TypeLeftPin(TextOf(pin_));
    } else if (id == kTxtPinesConectados && code == EN_CHANGE) {
      editor_.TypeConnectedPins(TextOf(list_));
    } else if (id == kBtnAceptar) {
      editor_.Accept();
    } else if (id == kBtnCancelar) {
      editor_.Cancel();
    }
  }

  bool OnMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) override {
    switch (message) {
      case WM_VSCROLL:
        Scroll(LOWORD(wparam));
        return true;
      case WM_MOUSEWHEEL:
        ScrollTo(scrolled_ - GET_WHEEL_DELTA_WPARAM(wparam) * WheelStep() / WHEEL_DELTA);
        return true;
      case WM_CTLCOLORSTATIC:
        // A list that takes no input shows the window's own colour.
        if (reinterpret_cast<HWND>(lparam) != list_) return false;
        SetBkColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_BTNFACE));
        result = reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
        return true;
      default:
        return false;
    }
  }

  // --- the diagram ---

  double UnitScale() const { return dpi() / 96.0; }
  int WheelStep() const { return 60; }

  SIZE ViewSize() const {
    RECT client{};
    GetClientRect(diagram_view_, &client);
    return {client.right, client.bottom};
  }
  double ViewHeight() const { return ViewSize().cy / UnitScale(); }

  void RedrawDiagram() {
    const emPuertoSerial pair = editor_.opcPuerto();
    diagram_ = DrawCable(pair, editor_.wiring().Table(pair), editor_.shown_pin(),
                         ViewSize().cx / UnitScale());
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL;
    info.nMax = std::max(static_cast<int>(std::lround(diagram_.height)) - 1, 0);
    info.nPage = static_cast<UINT>(std::max(ViewHeight(), 1.0));
    SetScrollInfo(scroll_, SB_CTL, &info, TRUE);
    SetEnabled(scroll_, diagram_.ScrollRange(ViewHeight()) > 0);
    ScrollTo(scrolled_);
  }

  void ScrollTo(double units) {
    scrolled_ = std::clamp(units, 0.0, diagram_.ScrollRange(ViewHeight()));
    SetScrollPos(scroll_, SB_CTL, static_cast<int>(std::lround(scrolled_)), TRUE);
    InvalidateRect(diagram_view_, nullptr, FALSE);
  }

  void Scroll(int how) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    switch (how) {
      case SB_LINEUP:
        return ScrollTo(scrolled_ - 15);
      case SB_LINEDOWN:
        return ScrollTo(scrolled_ + 15);
      case SB_PAGEUP:
        return ScrollTo(scrolled_ - ViewHeight());
      case SB_PAGEDOWN:
        return ScrollTo(scrolled_ + ViewHeight());
      case SB_TOP:
        return ScrollTo(0);
      case SB_BOTTOM:
        return ScrollTo(diagram_.height);
      case SB_THUMBTRACK:
      case SB_THUMBPOSITION:
        GetScrollInfo(scroll_, SB_CTL, &info);
        return ScrollTo(info.nTrackPos);
      default:
        return;
    }
  }

  Point ToDiagram(LPARAM lparam) const {
    // A picture shorter than the view stands in its middle.
    return {GET_X_LPARAM(lparam) / UnitScale(),
            GET_Y_LPARAM(lparam) / UnitScale() + scrolled_ - Centring()};
  }
  double Centring() const { return std::max(0.0, (ViewHeight() - diagram_.height) / 2); }

  void Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(diagram_view_, &paint);
    const SIZE size = ViewSize();
    const HDC memory = CreateCompatibleDC(dc);
    {
      const Bitmap bitmap(CreateCompatibleBitmap(dc, std::max(size.cx, 1L), std::max(size.cy, 1L)));
      const Selection selected(memory, bitmap.get());
      const auto loose =
          drag_ ? std::optional(DrawLooseWire(diagram_, drag_->pin, drag_->pointer)) : std::nullopt;
      PaintDiagram(memory, {size, UnitScale(), scrolled_ - Centring()}, diagram_,
                   loose ? &*loose : nullptr);
      BitBlt(dc, 0, 0, size.cx, size.cy, memory, 0, 0, SRCCOPY);
    }
    DeleteDC(memory);
    EndPaint(diagram_view_, &paint);
  }

  void Press(Point point) {
    const PinShape* pin = diagram_.PinAt(point);
    if (pin == nullptr || pin->side != Side::kLeft) return;
    const int number = pin->number;
    editor_.PickLeftPin(number);
    if (!editor_.may_edit()) return;
    drag_ = Drag{number, point};
    SetCapture(diagram_view_);
  }

  void Drop(Point point) {
    if (!drag_) return;
    const int from = drag_->pin;
    drag_.reset();
    ReleaseCapture();
    const PinShape* pin = diagram_.PinAt(point);
    if (pin != nullptr && pin->side == Side::kRight) {
      editor_.ToggleWire(from, pin->number);
    } else {
      InvalidateRect(diagram_view_, nullptr, FALSE);
    }
  }

  static LRESULT CALLBACK DiagramProcedure(HWND view, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* window = reinterpret_cast<CableWindow*>(GetWindowLongPtrW(view, GWLP_USERDATA));
    LRESULT result = 0;
    const bool handled = window->Safely([&] { return window->OnDiagram(message, lparam, result); });
    if (handled) return result;
    return CallWindowProcW(window->static_procedure_, view, message, wparam, lparam);
  }

  bool OnDiagram(UINT message, LPARAM lparam, LRESULT& result) {
    switch (message) {
      case WM_PAINT:
        Paint();
        return true;
      case WM_ERASEBKGND:
        result = 1;  // everything is painted over
        return true;
      case WM_LBUTTONDOWN:
        Press(ToDiagram(lparam));
        return true;
      case WM_MOUSEMOVE:
        if (drag_) {
          drag_->pointer = ToDiagram(lparam);
          InvalidateRect(diagram_view_, nullptr, FALSE);
        }
        return true;
      case WM_LBUTTONUP:
        Drop(ToDiagram(lparam));
        return true;
      case WM_CAPTURECHANGED:
        drag_.reset();
        InvalidateRect(diagram_view_, nullptr, FALSE);
        return true;
      default:
        return false;
    }
  }

  struct Drag {
    int pin;
    Point pointer;
  };

  frmPuertos& editor_;
  std::array<HWND, kConnectorPairs> options_{};
  HWND switch_ = nullptr;
  HWND pin_label_ = nullptr;
  HWND pin_ = nullptr;
  HWND list_label_ = nullptr;
  HWND list_ = nullptr;
  HWND diagram_view_ = nullptr;
  HWND scroll_ = nullptr;
  HWND accept_ = nullptr;
  HWND cancel_ = nullptr;
  WNDPROC static_procedure_ = nullptr;
  bool refreshing_ = false;
  bool laid_out_for_editing_ = false;
  Diagram diagram_;
  double scrolled_ = 0;
  std::optional<Drag> drag_;
};

// Makes the window when it is to be shown; until then there is nothing to update.
class CableView : public frmPuertos::View {
 public:
  void Update() override {
    if (window_ != nullptr) window_->Refresh();
  }
  void Run(frmPuertos& editor) override {
    CableWindow window(editor);
    window_ = &window;
    window.RunModal();
    window_ = nullptr;
  }
  void Close() override {
    if (window_ != nullptr) window_->Close();
  }

 private:
  CableWindow* window_ = nullptr;
};

class WindowedCableEditor final : private CableView, public frmPuertos {
 public:
  WindowedCableEditor() : frmPuertos(static_cast<CableView&>(*this)) {}
};

}  // namespace

std::unique_ptr<CableEditor> MakeCableEditor() {
  return std::make_unique<WindowedCableEditor>();
}

}  // namespace conmuta::win32
