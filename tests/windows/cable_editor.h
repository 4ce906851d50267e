// The cable editor with a person before it.
#pragma once

#include <cmath>

#include "cable/diagram_desk.h"
#include "captions.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {

// The window with a person before it.
class Editor {
 public:
  explicit Editor(const Person& person)
      : person_(person), window_(person.WaitForWindow(kCableCaption)) {}

  const Person& person() const { return person_; }
  HWND window() const { return window_; }
  HWND At(int id) const { return GetDlgItem(window_, id); }
  HWND pin() const { return At(win32::kTxtPinIzq); }
  HWND list() const { return At(win32::kTxtPinesConectados); }
  HWND scroll() const { return At(win32::kVDesp); }

  Text List() const { return TextOf(list()); }
  void Choose(int pair) const { person_.Press(At(win32::kOpcPuerto + pair)); }
  void TypePin(TextView text) const { person_.Type(pin(), text); }
  void TypeList(TextView text) const { person_.Type(list(), text); }
  void Wire(int pair, TextView pin, TextView list) const {
    Choose(pair);
    TypePin(pin);
    TypeList(list);
  }
  void Accept() const { person_.Press(At(win32::kBtnAceptar)); }
  void Cancel() const { person_.Press(At(win32::kBtnCancelar)); }

  int Chosen() const {
    int chosen = 0;
    for (int pair = 1; pair <= 4; ++pair) {
      if (Send(At(win32::kOpcPuerto + pair), BM_GETCHECK) == BST_CHECKED)
        chosen = chosen * 10 + pair;
    }
    return chosen;
  }
  int Scrolled() const { return static_cast<int>(Send(scroll(), SBM_GETPOS)); }

  // Where the diagram shows a pin, in pixels of its view.
  POINT PinAt(Side side, int number) const {
    class NoView final : public frmPuertos::View {
      void Update() override {}
      void Run(frmPuertos&) override {}
      void Close() override {}
    } none;
    frmPuertos twin(none);
    twin.ChoosePair(static_cast<conmuta::emPuertoSerial>(Chosen()));
    DiagramDesk desk(twin, [](const std::vector<Box>&) {});
    const SIZE view = ClientSizeOf(At(win32::kDiagram));
    desk.Resize(static_cast<double>(view.cx), static_cast<double>(view.cy), LineHeight() / 15.0);
    desk.ScrollTo(Scrolled());
    const Point center = desk.diagram().Find(side, number)->center;
    return {std::lround(desk.origin().x + center.x * desk.scale()),
            std::lround(desk.origin().y + center.y * desk.scale())};
  }
  int LineHeight() const { return LineHeightOf(At(win32::kBtnCancelar)); }
  // As low as it goes, so that a DB25 does not fit.
  void MakeLow() const { person_.Resize(window_, static_cast<int>(OuterSizeOf(window_).cx), 1); }
  Text Connections() const { return TextOf(At(win32::kTxtConexiones)); }
  Text Hint() const { return TextOf(At(win32::kEtqAyuda)); }
  // With the keyboard: opens the menu of the diagram; goes down to an entry, counted from 1, and
  // chooses it; or leaves it.
  HWND OpenMenu() const {
    PostMessageW(At(win32::kDiagram), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(At(win32::kDiagram)),
                 -1);
    HWND menu = nullptr;
    WaitUntil("menu", [&] {
      menu = FindWindowW(L"#32768", nullptr);
      return menu != nullptr && IsWindowVisible(menu);
    });
    return menu;
  }
  void ChooseInMenu(int entry) const {
    const HWND menu = OpenMenu();
    for (int i = 0; i < entry; ++i) PostMessageW(window_, WM_KEYDOWN, VK_DOWN, 1);
    EndMenu(menu, VK_RETURN);
  }
  void LeaveMenu(HWND menu) const { EndMenu(menu, VK_ESCAPE); }
  void ClickPin(Side side, int number) const {
    person_.Click(At(win32::kDiagram), PinAt(side, number));
  }
  void DragWire(int left, int right) const {
    person_.Drag(At(win32::kDiagram), PinAt(Side::kLeft, left), PinAt(Side::kRight, right));
  }

 private:
  void EndMenu(HWND menu, WPARAM key) const {
    PostMessageW(window_, WM_KEYDOWN, key, 1);
    WaitUntil("menu closes", [&] { return !IsWindow(menu) || !IsWindowVisible(menu); });
    person_.host().Rest();
  }

  const Person& person_;
  HWND window_;
};

class CableWindowTest : public WindowTest {
 protected:
  template <class Work>
  void Open(const ComPtr<Cfg>& config, VARIANT_BOOL may_edit, Work&& work) {
    VARIANT_BOOL argument = may_edit;
    While([&] { Do(config, &Cfg::EDConfigSeriales, &argument); },
          [&](const Person& person) { work(Editor(person)); });
    EXPECT_EQ(argument, may_edit);
  }
  template <class Work>
  void Edit(const ComPtr<Cfg>& config, Work&& work) {
    Open(config, VARIANT_TRUE, work);
  }
  template <class Work>
  void Look(const ComPtr<Cfg>& config, Work&& work) {
    Open(config, VARIANT_FALSE, work);
  }
};

}  // namespace conmuta::test
