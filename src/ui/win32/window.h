// What all our windows share: creation, the modal loop, fonts, layout, focus and keys.
#pragma once

#include <windows.h>

#include <exception>

#include "platform/text.h"
#include "ui/win32/client_scroll.h"
#include "ui/win32/controls.h"
#include "ui/win32/gdi.h"
#include "ui/win32/tool_tips.h"

namespace conmuta::win32 {

// A top-level window that runs modally without an owner: while it is open, the thread's other
// windows are disabled. An exception from a handler closes it and comes out of RunModal.
//
// Its size is measured: never so small that a control would cut its text, and never larger than the
// screen, where scroll bars show what has no room. One control that can be used has the focus.
class Window {
 public:
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();

  // Shows the window until Close, the close box, or the end of the thread's message queue.
  void RunModal();
  void Close();

  HWND handle() const { return handle_; }

 protected:
  Window() = default;

  // Makes the window with its controls, hidden.
  void Create(const Text& caption);

  virtual void MakeControls() = 0;
  // Of the client area: the least that cuts nothing, and what the window opens with. `most` is what
  // the screen has, for those that can do with less width by taking more height.
  virtual SIZE LeastSize(SIZE most) = 0;
  virtual SIZE OpeningSize(SIZE most) { return LeastSize(most); }
  // Places the controls in a room that is not below the least size.
  virtual void Layout(SIZE room) = 0;

  virtual void OnCommand(int id, int code) = 0;
  virtual LRESULT OnNotify(const NMHDR&) { return 0; }
  // Before it is Cancel's key: whether there was something smaller to be left.
  virtual bool OnEscape() { return false; }
  // A key that works wherever the focus is.
  virtual bool OnKey(const MSG&) { return false; }
  // Anything else; nothing for messages that go to the system's own handling.
  virtual bool OnMessage(UINT, WPARAM, LPARAM, LRESULT&) { return false; }

  // Runs what a message asks for; a failure is kept for RunModal and closes the window.
  template <class Body>
  auto Safely(Body&& body) noexcept -> decltype(body()) {
    try {
      return body();
    } catch (...) {
      failure_ = std::current_exception();
      Close();
      return decltype(body())();
    }
  }

  HWND AddControl(const wchar_t* window_class, TextView text, DWORD style, int id,
                  DWORD extended_style = 0);
  // Names the control that is added next to those who cannot see it, unless its own text does.
  void AddName(TextView name) { SetVisible(AddControl(L"STATIC", name, 0, -1), false); }
  void SetDefaultButton(int id);
  void SetTip(HWND control, TextView text) { tips_.Set(control, text); }

  // For Layout: moves a control and has it painted anew. For anything else: asks for a layout.
  void Place(HWND control, int x, int y, SIZE size);
  void LayoutNow();

  const Measures& measures() const { return measures_; }
  UINT dpi() const { return dpi_; }
  HFONT font() const { return font_.get(); }
  // The frame around a client area of that size.
  SIZE OuterOf(SIZE client) const;

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wparam, LPARAM lparam);
  friend class WindowClass;

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
  bool Scroll(UINT message, WPARAM wparam, LPARAM lparam);
  bool TranslateKey(const MSG& message);
  void MoveFocus(WPARAM where, bool is_control);
  void KeepFocus();
  void ShowDefaultButton();
  int DefaultButton() const;
  void UseDpi(UINT dpi);
  SIZE MostSize() const;
  SIZE Clamped(SIZE outer);
  void ClampToScreen();
  void MeasureAnew();

  HWND handle_ = nullptr;
  bool open_ = false;
  bool laying_out_ = false;
  UINT dpi_ = 96;
  int default_button_ = 0;
  HWND focus_ = nullptr;
  ClientScroll scroll_;
  ToolTips tips_;
  Measures measures_;
  Font font_;
  std::exception_ptr failure_;
};

}  // namespace conmuta::win32
