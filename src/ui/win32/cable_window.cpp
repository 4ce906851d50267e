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

constexpr std::array<TextView, kConnectorPairs> kPairCaptions = {
    u"Puerto DB9 - DB9", u"Puerto DB9 - DB25", u"Puerto DB25 - DB9", u"Puerto DB25 - DB25"};

class CableWindow final : public Window {
 public:
  explicit CableWindow(frmPuertos& editor) : editor_(editor) {
    Create(editor.caption());
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
    ShowSwitchName();
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
    if (editor_.may_edit() != laid_out_for_editing_) LayoutNow();
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
    switch_ =
        AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_NOTIFY | WS_GROUP, kEtqConmutador);
    pin_label_ = AddControl(L"STATIC", u"Pin", SS_LEFT | SS_CENTERIMAGE, kLabel1);
    pin_ = AddControl(L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, kTxtPinIzq, WS_EX_CLIENTEDGE);
    list_label_ =
        AddControl(L"STATIC", u"---> Pines conectados", SS_LEFT | SS_CENTERIMAGE, kLabel2);
    list_ = AddControl(L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, kTxtPinesConectados,
                       WS_EX_CLIENTEDGE);
    diagram_view_ =
        AddControl(L"STATIC", u"Dibujo del cable", WS_BORDER | SS_OWNERDRAW | SS_NOTIFY, kDiagram);
    SetWindowLongPtrW(diagram_view_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    static_procedure_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        diagram_view_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DiagramProcedure)));
    AddName(u"Desplazamiento del dibujo");
    scroll_ = AddControl(L"SCROLLBAR", u"", SBS_VERT | WS_TABSTOP, kVDesp);
    accept_ =
        AddControl(L"BUTTON", u"&Aceptar", WS_TABSTOP | WS_GROUP | BS_DEFPUSHBUTTON, kBtnAceptar);
    cancel_ = AddControl(L"BUTTON", u"&Cancelar", WS_TABSTOP | BS_PUSHBUTTON, kBtnCancelar);
  }

  // Two lines; the name is shortened where it has no room, and the tool tip says it whole.
  void ShowSwitchName() {
    const Text& label = editor_.etqConmutador();
    const std::size_t name = std::min(label.find(kLineBreak), label.size() - 2) + 2;
    RECT room{};
    GetClientRect(switch_, &room);
    SetText(switch_, label.substr(0, name) +
                         measures().Shortened(label.substr(name), static_cast<int>(room.right)));
    SetTip(switch_, label);
  }

  SIZE OptionSize() const {
    SIZE size{};
    for (const HWND option : options_) {
      const SIZE one = measures().Option(TextOf(option));
      size = {std::max(size.cx, one.cx), std::max(size.cy, one.cy)};
    }
    return size;
  }
  SIZE ButtonSize() const {
    const SIZE accept = measures().Button(TextOf(accept_));
    return {std::max(accept.cx, measures().Button(u"&Cancelar").cx), accept.cy};
  }
  LONG FieldsLeast() const {
    return measures().Label(TextOf(pin_label_)).cx + measures().Field(4).cx +
           measures().Label(TextOf(list_label_)).cx + measures().Field(12).cx +
           3 * measures().gap();
  }
  LONG OptionsWidth() const { return 2 * (OptionSize().cx + measures().gap()); }

  SIZE LeastSize(SIZE) override {
    const int gap = measures().gap();
    LONG height = std::max<LONG>(2 * OptionSize().cy, 2 * measures().line()) + 2 * gap;
    if (editor_.may_edit()) height += measures().Field(1).cy + 2 * gap;
    height += measures().Scale(150) + gap + ButtonSize().cy;
    const LONG names = OptionsWidth() + measures().Label(u"Conmutador").cx * 2;
    return {std::max({names, FieldsLeast(), 2 * ButtonSize().cx + gap,
                      static_cast<LONG>(measures().Scale(440))}) +
                2 * measures().margin(),
            height + 2 * measures().margin()};
  }
  SIZE OpeningSize(SIZE most) override {
    const SIZE least = LeastSize(most);
    return {std::max<LONG>(least.cx, measures().Scale(645)),
            std::max<LONG>(least.cy, measures().Scale(530))};
  }

  void Layout(SIZE room) override {
    const int margin = measures().margin();
    const int gap = measures().gap();
    const SIZE option = OptionSize();
    laid_out_for_editing_ = editor_.may_edit();

    LONG y = margin;
    for (int i = 0; i < kConnectorPairs; ++i) {
      Place(options_[static_cast<std::size_t>(i)], margin + (i / 2) * (option.cx + gap),
            y + (i % 2) * option.cy, option);
    }
    const LONG label_x = margin + OptionsWidth() + gap;
    const LONG names = std::max<LONG>(2 * option.cy, 2 * measures().line());
    Place(switch_, label_x, y, {room.cx - label_x - margin, names});
    ShowSwitchName();
    y += names + 2 * gap;

    if (laid_out_for_editing_) {
      const LONG row = measures().Field(1).cy;
      LONG x = margin;
      const auto place = [&](HWND control, LONG width) {
        Place(control, x, y, {width, row});
        x += width + gap;
      };
      place(pin_label_, measures().Label(TextOf(pin_label_)).cx);
      place(pin_, measures().Field(4).cx);
      place(list_label_, measures().Label(TextOf(list_label_)).cx);
      place(list_, room.cx - margin - x);
      y += row + 2 * gap;
    }

    const SIZE button = ButtonSize();
    const LONG button_y = room.cy - margin - button.cy;
    Place(cancel_, room.cx - margin - button.cx, button_y, button);
    Place(accept_, room.cx - margin - 2 * button.cx - gap, button_y, button);

    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    const SIZE view{room.cx - 2 * margin - bar, button_y - gap - y};
    Place(diagram_view_, margin, y, view);
    Place(scroll_, margin + view.cx, y, {bar, view.cy});
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
        if (lparam == 0) return false;
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
