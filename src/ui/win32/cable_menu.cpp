#include "ui/win32/cable_menu.h"

#include <windowsx.h>

#include "cable/usual_cables.h"
#include "ui/win32/controls.h"

namespace conmuta::win32 {
namespace {

constexpr UINT_PTR kRemoveAll = 1;
constexpr UINT_PTR kUndo = 2;
constexpr UINT_PTR kFirstCable = 10;

class Menu {
 public:
  Menu() : handle_(CreatePopupMenu()) {}
  ~Menu() { DestroyMenu(handle_); }
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;

  HMENU handle() const { return handle_; }
  void Add(UINT_PTR id, TextView text, bool enabled = true) const {
    AppendMenuW(handle_, enabled ? MF_STRING : MF_STRING | MF_GRAYED, id, Wide(Text(text)));
  }
  void AddLine() const { AppendMenuW(handle_, MF_SEPARATOR, 0, nullptr); }

 private:
  HMENU handle_;
};

}  // namespace

void ShowCableMenu(HWND diagram, LPARAM place, frmPuertos& editor) {
  const Menu menu;
  const auto cables = UsualCables();
  bool has_cables = false;
  for (std::size_t i = 0; i < cables.size(); ++i) {
    if (cables[i].pair != editor.opcPuerto()) continue;
    menu.Add(kFirstCable + i, cables[i].name);
    has_cables = true;
  }
  if (has_cables) menu.AddLine();
  menu.Add(kRemoveAll, u"Quitar todos los cables");
  menu.Add(kUndo, u"Deshacer\tCtrl+Z", editor.can_undo());

  POINT at{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
  if (place == -1) {
    RECT client{};
    GetClientRect(diagram, &client);
    at = {client.right / 2, client.bottom / 3};
    ClientToScreen(diagram, &at);
  }
  const auto chosen = static_cast<UINT_PTR>(
      TrackPopupMenu(menu.handle(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x, at.y, 0,
                     GetParent(diagram), nullptr));
  if (chosen >= kFirstCable) {
    editor.UseCable(cables[chosen - kFirstCable]);
  } else if (chosen == kRemoveAll) {
    editor.CutAllWires();
  } else if (chosen == kUndo) {
    editor.Undo();
  }
}

}  // namespace conmuta::win32
