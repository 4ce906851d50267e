#include "ui/win32/diagram_control.h"

#include <windowsx.h>

#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "ui/win32/controls.h"
#include "ui/win32/diagram_painter.h"
#include "ui/win32/gdi.h"

namespace conmuta::win32 {
namespace {

constexpr wchar_t kClassName[] = L"Conmuta.Diagram";

// Registered with the first control; gone with the DLL, which holds the procedure.
class DiagramClass {
 public:
  explicit DiagramClass(WNDPROC procedure) {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = ThisModule();
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.lpszClassName = kClassName;
    if (RegisterClassExW(&window_class) == 0) throw std::bad_alloc();
  }
  ~DiagramClass() { UnregisterClassW(kClassName, ThisModule()); }
  DiagramClass(const DiagramClass&) = delete;
  DiagramClass& operator=(const DiagramClass&) = delete;
};

Point At(LPARAM lparam) {
  return {static_cast<double>(GET_X_LPARAM(lparam)), static_cast<double>(GET_Y_LPARAM(lparam))};
}

std::optional<DiagramDesk::Key> KeyOf(WPARAM key) {
  switch (key) {
    case VK_UP:
      return DiagramDesk::Key::kUp;
    case VK_DOWN:
      return DiagramDesk::Key::kDown;
    case VK_LEFT:
      return DiagramDesk::Key::kLeft;
    case VK_RIGHT:
      return DiagramDesk::Key::kRight;
    case VK_HOME:
      return DiagramDesk::Key::kHome;
    case VK_END:
      return DiagramDesk::Key::kEnd;
    case VK_SPACE:
    case VK_RETURN:
      return DiagramDesk::Key::kAct;
    case VK_DELETE:
      return DiagramDesk::Key::kDelete;
    default:
      return std::nullopt;
  }
}

}  // namespace

const wchar_t* DiagramControl::ClassName() {
  static const DiagramClass diagram_class(&Procedure);
  return kClassName;
}

DiagramControl::DiagramControl(frmPuertos& editor)
    : desk_(editor, [this](const std::vector<Box>& boxes) { Repaint(boxes); }) {}

DiagramControl::~DiagramControl() {
  if (IsWindow(control_)) SetWindowLongPtrW(control_, GWLP_USERDATA, 0);
}

void DiagramControl::Attach(HWND control, Guard guard) {
  control_ = control;
  guard_ = std::move(guard);
  SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void DiagramControl::UseUnit(double unit) {
  if (unit_ != unit) {
    unit_ = unit;
    Resize();
  }
}

void DiagramControl::Resize() {
  RECT client{};
  GetClientRect(control_, &client);
  desk_.Resize(static_cast<double>(client.right), static_cast<double>(client.bottom), unit_);
}

void DiagramControl::Repaint(const std::vector<Box>& boxes) const {
  for (const Box& box : boxes) {
    const RECT part{static_cast<LONG>(std::floor(box.left)), static_cast<LONG>(std::floor(box.top)),
                    static_cast<LONG>(std::ceil(box.right)),
                    static_cast<LONG>(std::ceil(box.bottom))};
    InvalidateRect(control_, &part, FALSE);
  }
}

void DiagramControl::Paint(WPARAM dc_to_print_on) {
  if (dc_to_print_on != 0) {
    RECT client{};
    GetClientRect(control_, &client);
    return PaintDiagram(reinterpret_cast<HDC>(dc_to_print_on), client, desk_);
  }
  const Painting painting(control_);
  PaintDiagram(painting.dc(), painting.part(), desk_);
}

// Enter would go to the default button else.
bool DiagramControl::WantsKey(LPARAM lparam) const {
  const auto* message = reinterpret_cast<const MSG*>(lparam);
  if (message == nullptr || message->message != WM_KEYDOWN) return false;
  const auto key = KeyOf(message->wParam);
  return key && desk_.Takes(*key);
}

LRESULT CALLBACK DiagramControl::Procedure(HWND control, UINT message, WPARAM wparam,
                                           LPARAM lparam) {
  auto* self = reinterpret_cast<DiagramControl*>(GetWindowLongPtrW(control, GWLP_USERDATA));
  bool handled = false;
  LRESULT result = 0;
  if (self != nullptr) {
    const auto handle = [&] { handled = self->Handle(message, wparam, lparam, result); };
    self->guard_(std::ref(handle));  // by reference, or there would be an allocation before it
  }
  return handled ? result : DefWindowProcW(control, message, wparam, lparam);
}

bool DiagramControl::Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
  switch (message) {
    case WM_PAINT:
    case WM_PRINTCLIENT:
      Paint(message == WM_PRINTCLIENT ? wparam : 0);
      return true;
    case WM_ERASEBKGND:
      result = 1;  // everything is painted over
      return true;
    case WM_SIZE:
      Resize();
      break;
    case WM_GETDLGCODE:
      // With characters, or a plain "c" would press "Cancelar" and drop every edit.
      result = DLGC_WANTARROWS | DLGC_WANTCHARS | (WantsKey(lparam) ? DLGC_WANTMESSAGE : 0);
      return true;
    case WM_LBUTTONDOWN:
      SetFocus(control_);
      desk_.Press(At(lparam));
      if (desk_.is_dragging()) SetCapture(control_);
      break;
    case WM_MOUSEMOVE: {
      TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, control_, 0};
      TrackMouseEvent(&leaving);
      desk_.Move(At(lparam));
      break;
    }
    case WM_LBUTTONUP:
      desk_.Release(At(lparam));
      if (GetCapture() == control_) ReleaseCapture();
      break;
    case WM_MOUSELEAVE:
      desk_.Leave();
      break;
    case WM_CAPTURECHANGED:
      desk_.Interrupt();
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      desk_.Focus(message == WM_SETFOCUS);
      break;
    case WM_KEYDOWN: {
      const auto key = KeyOf(wparam);
      if (!key) return false;
      desk_.Press(*key);
      break;
    }
    default:
      return false;
  }
  Tell();
  return true;
}

}  // namespace conmuta::win32
