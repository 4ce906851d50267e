// A person before the screen: waits for windows, reads them, types and clicks. Works on a thread of
// its own, since the host's is busy with the window. Everything throws Stuck when it takes too
// long.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "host_thread.h"
#include "platform/text.h"

namespace conmuta::test {

// --- what is to be seen ---

LRESULT Send(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);
template <class Pointed>
LRESULT Send(HWND window, UINT message, WPARAM wparam, Pointed* pointed) {
  return Send(window, message, wparam, reinterpret_cast<LPARAM>(pointed));
}

Text TextOf(HWND window);
Text ClassOf(HWND window);
bool HasStyle(HWND window, LONG_PTR style);
// Shown and not hidden by its parent; can be pressed.
bool IsShown(HWND window);
bool IsUsable(HWND window);
// In its parent's client area.
RECT PlaceOf(HWND control);
SIZE ClientSizeOf(HWND window);
SIZE OuterSizeOf(HWND window);
LOGFONTW FontOf(HWND window);
int LineHeightOf(HWND control);  // in its font
std::vector<HWND> ChildrenOf(HWND window);
COLORREF PixelOf(HWND window, int x, int y);

// What the screen shows of a window's client area.
std::vector<COLORREF> PixelsOf(HWND window);

// What is told of a control to those who cannot see it: its own text, or that of the label that
// stands before it.
Text NameOf(HWND control);

// What a control's tool tip says; empty when it has none.
Text ToolTipOf(HWND control);

// One item of a tree and those under it.
struct TreeItem {
  HTREEITEM item;
  int depth;
  Text text;
  bool expanded;
};
std::vector<TreeItem> ItemsOf(HWND tree);
// Each item on a line, two blanks for each level.
std::string OutlineOf(HWND tree);

template <class Condition>
void WaitUntil(const std::string& what, Condition&& condition) {
  for (const ULONGLONG end = GetTickCount64() + kPatience; !condition(); Sleep(2)) {
    if (GetTickCount64() > end) throw Stuck("waited in vain: " + what);
  }
}

// --- what a person does ---

class Person {
 public:
  explicit Person(const HostThread& host) : host_(host) {}

  const HostThread& host() const { return host_; }

  // The window of ours that can be worked, when it is there and waits for input.
  HWND WaitForWindow(TextView caption) const;
  // The same for a message box or a dialog of the system's.
  HWND WaitForDialog(TextView title) const;
  void WaitUntilClosed(HWND window) const;

  HWND Focus() const;
  void SetFocusTo(HWND control) const;

  void Press(HWND button) const;
  // With the keyboard, into what has the focus.
  void Key(WORD key) const;
  void KeyWith(WORD modifier, WORD key) const;
  void Alt(wchar_t letter) const;
  // In place of what an edit control shows, character by character.
  void Type(HWND edit, TextView text) const;
  // With the mouse, in the control's client area.
  void Click(HWND control, POINT at) const;
  void Drag(HWND control, POINT from, POINT to) const;
  void PressCloseBox(HWND window) const;
  void Resize(HWND window, int width, int height) const;
  // Takes hold of the lower right corner and drags it, contents showing.
  void DragCorner(HWND window, int dx, int dy) const;
  // Has a window paint everything anew.
  void Repaint(HWND window) const;

  // Answers a message box; gives what it said.
  struct Said {
    Text text;
    std::vector<int> buttons;
    HICON icon;
  };
  Said Answer(TextView title, int button) const;

  // Presses the buttons that close whatever is open.
  void LeaveAll() const;

 private:
  HWND Find(bool ours, TextView caption) const;
  void PostKey(HWND to, WORD key) const;

  const HostThread& host_;
};

}  // namespace conmuta::test
