#include "ui/win32/cable_window.h"

#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "cable/wiring_text.h"
#include "ui/win32/cable_menu.h"
#include "ui/win32/control_ids.h"
#include "ui/win32/diagram_control.h"
#include "ui/win32/window.h"
#include "ui/win32/window_view.h"

namespace conmuta::win32 {
namespace {

constexpr std::array<TextView, kConnectorPairs> kPairCaptions = {
    u"Puerto DB9 - DB9", u"Puerto DB9 - DB25", u"Puerto DB25 - DB9", u"Puerto DB25 - DB25"};
constexpr double kWheelStep = 60;
constexpr double kLineStep = 15;
constexpr double kLeastViewHeight = 150;
constexpr double kOpeningWidth = 560;

class CableWindow final : public Window {
 public:
  explicit CableWindow(frmPuertos& editor) : editor_(editor), diagram_(editor) {
    Create(editor.caption());
    Refresh();
  }

  // Shows the editor's state; what a control shows already is left alone, caret and all.
  void Refresh() {
    refreshing_ = true;
    SetText(handle(), editor_.caption());
    for (int pair = 1; pair <= kConnectorPairs; ++pair) {
      const bool selected = pair == editor_.opcPuerto();
      SendMessageW(Option(pair), BM_SETCHECK, selected ? BST_CHECKED : BST_UNCHECKED, 0);
      // The arrow keys go from the chosen one to its neighbours; Tab goes past them all.
      SetTabStop(Option(pair), selected);
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
    SetText(notice_, editor_.notice());
    SetVisible(notice_, !editor_.notice().empty());
    SetText(wires_, WiringList(editor_.opcPuerto(), editor_.table()));
    refreshing_ = false;
    if (LaidOut{editor_.may_edit(), !editor_.notice().empty()} != laid_out_) LayoutNow();
    diagram_.desk().Refresh();
    ShowDesk();
  }

 private:
  // What decides about the rows that the window has.
  struct LaidOut {
    bool fields = false;
    bool notice = false;
    bool operator==(const LaidOut&) const = default;
  };

  HWND Option(int pair) const { return options_[static_cast<std::size_t>(pair - 1)]; }
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
    const HWND view =
        AddControl(DiagramControl::ClassName(), u"", WS_BORDER | WS_TABSTOP, kDiagram);
    diagram_.Attach(view, [this](const std::function<void()>& body) { Safely([&] { body(); }); });
    diagram_.Changed = [this] { ShowDesk(); };
    view_ = view;
    AddName(u"Desplazamiento del dibujo");
    scroll_ = AddControl(L"SCROLLBAR", u"", SBS_VERT | WS_TABSTOP, kVDesp);
    wires_label_ = AddControl(L"STATIC", u"Co&nexiones", SS_LEFT, kEtqConexiones);
    wires_ = AddControl(L"EDIT", u"",
                        WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                        kTxtConexiones, WS_EX_CLIENTEDGE);
    hint_ =
        AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY, kEtqAyuda);
    notice_ =
        AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY, kEtqAviso);
    accept_ =
        AddControl(L"BUTTON", u"&Aceptar", WS_TABSTOP | WS_GROUP | BS_DEFPUSHBUTTON, kBtnAceptar);
    cancel_ = AddControl(L"BUTTON", u"&Cancelar", WS_TABSTOP | BS_PUSHBUTTON, kBtnCancelar);
  }

  // --- layout ---

  // Pixels of the diagram's units.
  double Unit() const { return measures().line() / 15.0; }
  LONG Units(double units) const { return std::lround(units * Unit()); }

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
  LONG OptionsWidth() const { return 2 * (OptionSize().cx + measures().gap()); }
  LONG HeaderHeight() const {
    return std::max<LONG>(2 * OptionSize().cy, 2 * measures().line() + 2);
  }
  LONG FieldsWidth() const {
    return measures().Label(TextOf(pin_label_)).cx + measures().Field(4).cx +
           measures().Label(TextOf(list_label_)).cx + measures().Field(12).cx +
           3 * measures().gap();
  }
  LONG WiresWidth() const { return measures().Field(13).cx + GetSystemMetrics(SM_CXVSCROLL); }
  LONG LineHeight() const { return measures().line() + 2; }

  // Everything but the diagram itself.
  SIZE Around() const {
    const int gap = measures().gap();
    LONG height = HeaderHeight() + 2 * gap + gap + LineHeight() + gap + ButtonSize().cy;
    if (editor_.may_edit()) height += measures().Field(1).cy + 2 * gap;
    if (!editor_.notice().empty()) height += LineHeight();
    return {WiresWidth() + gap + GetSystemMetrics(SM_CXVSCROLL) + 2 * measures().margin() + 2,
            height + 2 * measures().margin() + 2};
  }
  SIZE LeastSize(SIZE) override {
    const SIZE around = Around();
    const LONG header = OptionsWidth() + measures().Label(u"Conmutador").cx * 2;
    const LONG rows = std::max({header, FieldsWidth(), 2 * ButtonSize().cx + measures().gap()});
    return {std::max(around.cx + Units(0.85 * kLeastDiagramWidth), rows + 2 * measures().margin()),
            around.cy + Units(kLeastViewHeight)};
  }
  // The largest connector is seen whole where the screen has room for it.
  SIZE OpeningSize(SIZE) override {
    const SIZE around = Around();
    return {around.cx + Units(kOpeningWidth),
            around.cy + LineHeight() + Units(DiagramHeight(emPuertoSerialDB25DB25))};
  }

  void Layout(SIZE room) override {
    const int margin = measures().margin();
    const int gap = measures().gap();
    const SIZE option = OptionSize();
    laid_out_ = {editor_.may_edit(), !editor_.notice().empty()};

    LONG y = margin;
    for (int pair = 1; pair <= kConnectorPairs; ++pair) {
      Place(Option(pair), margin + ((pair - 1) / 2) * (option.cx + gap),
            y + ((pair - 1) % 2) * option.cy, option);
    }
    const LONG label_x = margin + OptionsWidth() + gap;
    Place(switch_, label_x, y, {room.cx - label_x - margin, HeaderHeight()});
    ShowSwitchName();
    y += HeaderHeight() + 2 * gap;

    if (laid_out_.fields) {
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
    LONG bottom = room.cy - margin - button.cy;
    Place(cancel_, room.cx - margin - button.cx, bottom, button);
    Place(accept_, room.cx - margin - 2 * button.cx - gap, bottom, button);
    bottom -= gap + LineHeight();
    Place(hint_, margin, bottom, {room.cx - 2 * margin, LineHeight()});
    if (laid_out_.notice) {
      bottom -= LineHeight();
      Place(notice_, margin, bottom, {room.cx - 2 * margin, LineHeight()});
    }
    bottom -= gap;

    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    const LONG wires = WiresWidth();
    const LONG wires_x = room.cx - margin - wires;
    Place(wires_label_, wires_x, y, {wires, LineHeight()});
    Place(wires_, wires_x, y + LineHeight(), {wires, bottom - y - LineHeight()});
    const SIZE view{wires_x - gap - bar - margin, bottom - y};
    Place(view_, margin, y, view);
    Place(scroll_, margin + view.cx, y, {bar, view.cy});
    diagram_.UseUnit(Unit());
    ShowDesk();
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

  // --- the diagram ---

  void ShowDesk() {
    const DiagramDesk& desk = diagram_.desk();
    SetText(hint_, desk.hint());
    SetTip(hint_, desk.hint());
    // Those who cannot see it are told where they are.
    SetText(view_, Text(u"Dibujo del cable. ").append(desk.hint()));
    SetTip(notice_, editor_.notice());
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = std::max(static_cast<int>(std::lround(desk.diagram().height)) - 1, 0);
    info.nPage = static_cast<UINT>(std::max(desk.page(), 1.0));
    info.nPos = static_cast<int>(std::lround(desk.scrolled()));
    SetScrollInfo(scroll_, SB_CTL, &info, TRUE);
    SetEnabled(scroll_, desk.range() > 0);
  }

  void ScrollTo(double units) {
    diagram_.desk().ScrollTo(units);
    ShowDesk();
  }

  void Scroll(int how) {
    const double now = diagram_.desk().scrolled();
    const double page = diagram_.desk().page();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    switch (how) {
      case SB_LINEUP:
        return ScrollTo(now - kLineStep);
      case SB_LINEDOWN:
        return ScrollTo(now + kLineStep);
      case SB_PAGEUP:
        return ScrollTo(now - page);
      case SB_PAGEDOWN:
        return ScrollTo(now + page);
      case SB_TOP:
        return ScrollTo(0);
      case SB_BOTTOM:
        return ScrollTo(diagram_.desk().range());
      case SB_THUMBTRACK:
      case SB_THUMBPOSITION:
        GetScrollInfo(scroll_, SB_CTL, &info);
        return ScrollTo(info.nTrackPos);
      default:
        return;
    }
  }

  // --- what the person does ---

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

  bool OnEscape() override {
    if (!diagram_.desk().Escape()) return false;
    if (GetCapture() == view_) ReleaseCapture();
    ShowDesk();
    return true;
  }

  bool OnKey(const MSG& message) override {
    const bool is_undo =
        message.wParam == 'Z' && GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
    if (!is_undo || !editor_.may_edit()) return false;
    editor_.Undo();
    return true;
  }

  // Where a context menu was asked for; by its key it is asked for nowhere. The title bar has a
  // menu of its own.
  bool IsOverClient(LPARAM place) const {
    if (place == -1) return true;
    POINT point{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    RECT client{};
    GetClientRect(handle(), &client);
    return ScreenToClient(handle(), &point) && PtInRect(&client, point);
  }

  bool OnMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) override {
    switch (message) {
      case WM_VSCROLL:
        if (lparam == 0) return false;  // the window's own
        Scroll(LOWORD(wparam));
        return true;
      case WM_MOUSEWHEEL:
        if (diagram_.desk().range() <= 0) return false;
        ScrollTo(diagram_.desk().scrolled() -
                 GET_WHEEL_DELTA_WPARAM(wparam) * kWheelStep / WHEEL_DELTA);
        return true;
      case WM_CONTEXTMENU:
        // Fields have a menu of their own; it does not come here.
        if (!editor_.may_edit() || !IsOverClient(lparam)) return false;
        ShowCableMenu(view_, lparam, editor_);
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

  frmPuertos& editor_;
  DiagramControl diagram_;
  std::array<HWND, kConnectorPairs> options_{};
  HWND switch_ = nullptr;
  HWND pin_label_ = nullptr;
  HWND pin_ = nullptr;
  HWND list_label_ = nullptr;
  HWND list_ = nullptr;
  HWND view_ = nullptr;
  HWND scroll_ = nullptr;
  HWND wires_label_ = nullptr;
  HWND wires_ = nullptr;
  HWND hint_ = nullptr;
  HWND notice_ = nullptr;
  HWND accept_ = nullptr;
  HWND cancel_ = nullptr;
  bool refreshing_ = false;
  LaidOut laid_out_;
};

}  // namespace

std::unique_ptr<frmPuertos::View> MakeCableView() {
  return std::make_unique<RealView<frmPuertos, CableWindow>>();
}

}  // namespace conmuta::win32
