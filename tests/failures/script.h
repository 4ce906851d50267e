// A person whose doings are known beforehand: each is done when the window that is open waits for
// messages, on the host's own thread.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace conmuta::test {

class Script {
 public:
  // What is done with the uppermost window of ours, or with none.
  using Step = std::function<void(HWND window)>;

  explicit Script(std::vector<Step> steps);
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // From the next message on. In the end whatever is open is told to close.
  void Begin();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  void Next();

  const std::vector<Step> steps_;
  std::size_t done_ = 0;
  HWND window_;
};

// Steps. Where what they need is not there, they do nothing.
Script::Step Press(int id);
Script::Step Type(int id, const wchar_t* text);
Script::Step SelectModel(int number);
// Paints all of the window anew.
Script::Step Repaint();
Script::Step Resize(int width, int height);
Script::Step Leave();

}  // namespace conmuta::test
