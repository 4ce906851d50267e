// The control that shows a cable's diagram and takes mouse and keyboard for it.
#pragma once

#include <windows.h>

#include <functional>

#include "cable/diagram_desk.h"

namespace conmuta::win32 {

class DiagramControl {
 public:
  // Registers the class of the control, which is this.
  static const wchar_t* ClassName();

  explicit DiagramControl(frmPuertos& editor);
  ~DiagramControl();
  DiagramControl(const DiagramControl&) = delete;
  DiagramControl& operator=(const DiagramControl&) = delete;

  // Makes it work on a control of that class. What comes in goes through `guard`, which runs it and
  // lets no exception out.
  using Guard = std::function<void(const std::function<void()>&)>;
  void Attach(HWND control, Guard guard);

  // What it hints at, or how far it is scrolled, may have changed.
  std::function<void()> Changed;

  DiagramDesk& desk() { return desk_; }
  // How many pixels a unit of the picture has where that is of its usual size.
  void UseUnit(double unit);

 private:
  static LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam);
  // False for messages that go to the system's own handling.
  bool Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);
  void Resize();
  void Paint(WPARAM dc_to_print_on);
  void Repaint(const std::vector<Box>& boxes) const;
  bool WantsKey(LPARAM message) const;
  void Tell() {
    if (Changed) Changed();
  }

  DiagramDesk desk_;
  double unit_ = 1;
  HWND control_ = nullptr;
  Guard guard_;
};

}  // namespace conmuta::win32
