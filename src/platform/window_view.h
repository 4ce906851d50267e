// How a window that knows no toolkit is shown: its class decides, and drives a view that a factory
// makes when the window is opened.
#pragma once

#include <functional>
#include <memory>

namespace conmuta {

// Reads from its window what the controls are to show, and calls it with what the person does.
template <class Window>
class WindowView {
 public:
  virtual ~WindowView() = default;
  virtual void Update() = 0;      // something that the controls show has changed
  virtual void Run(Window&) = 0;  // until Close, or the person closes it
  virtual void Close() = 0;
};

template <class Window>
using ViewFactory = std::function<std::unique_ptr<typename Window::View>()>;

}  // namespace conmuta
