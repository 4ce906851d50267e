// What all our windows share: creation, the modal loop, DPI, fonts, layout on resize, keys.
#pragma once

#include <windows.h>

#include <exception>
#include <vector>

#include "platform/text.h"
#include "ui/win32/gdi.h"

namespace conmuta::win32 {

// A top-level window that runs modally without an owner: while it is open, the thread's other
// windows are disabled. An exception from a handler closes it and comes out of RunModal.
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
  // Outer size in pixels at 96 DPI, and the least that a user can make of it.
  struct Frame {
    Text caption;
    SIZE size;
    SIZE least;
  };

  Window() = default;

  // Makes the window with its controls, hidden.
  void Create(const Frame& frame);

  virtual void MakeControls() = 0;
  virtual void Layout(SIZE client) = 0;
  virtual void OnCommand(int id, int code) = 0;
  virtual LRESULT OnNotify(const NMHDR&) { return 0; }
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
      return {};
    }
  }

  HWND AddControl(const wchar_t* window_class, TextView text, DWORD style, int id,
                  DWORD extended_style = 0);
  void SetDefaultButton(int id) { default_button_ = id; }
  // A pixel measure at 96 DPI, in pixels of this window.
  int Scale(int pixels) const { return MulDiv(pixels, static_cast<int>(dpi_), 96); }
  UINT dpi() const { return dpi_; }
  HFONT font() const { return font_.get(); }

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wparam, LPARAM lparam);
  friend class WindowClass;

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
  bool TranslateKey(const MSG& message);
  void MoveFocus(WPARAM where, bool is_control);
  void UseDpi(UINT dpi);
  void LayoutNow();

  HWND handle_ = nullptr;
  bool open_ = false;
  UINT dpi_ = 96;
  SIZE least_size_{};
  int default_button_ = 0;
  Font font_;
  std::exception_ptr failure_;
};

// Texts of controls.
Text TextOf(HWND control);
void SetText(HWND control, TextView text);  // leaves a control alone that shows it already
void SetEnabled(HWND control, bool enabled);
void SetVisible(HWND control, bool visible);

// Moves a control; nothing happens for null.
void Place(HWND control, int x, int y, int width, int height);

// The module that the code is in.
HINSTANCE ThisModule();

// For the system: terminated by the Text's own end.
inline const wchar_t* Wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

}  // namespace conmuta::win32
