// A bar between two panes that is pulled with the mouse.
#pragma once

#include <windows.h>

#include <functional>

namespace conmuta::taller {

class Splitter {
 public:
  enum class Direction { kAcross, kDown };  // in which it is pulled

  // Registers the class of the control, which is this.
  static const wchar_t* ClassName();

  explicit Splitter(Direction direction) : direction_(direction) {}
  ~Splitter();
  Splitter(const Splitter&) = delete;
  Splitter& operator=(const Splitter&) = delete;

  void Attach(HWND control);

  // By so many pixels to the right, or down.
  std::function<void(int)> Pulled;

 private:
  static LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam);

  Direction direction_;
  HWND control_ = nullptr;
  LONG held_ = 0;  // where it was taken hold of
};

}  // namespace conmuta::taller
