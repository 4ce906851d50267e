// Waiting for many things at once, in one thread.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace conmuta::capture {

class Loop {
 public:
  Loop();
  ~Loop();

  // Until Stop; everything that is posted or due is called in here.
  void Run();
  // Like Post and After, from any thread.
  void Stop();
  void Post(std::function<void()> work);
  void After(std::chrono::milliseconds time, std::function<void()> work);

  // Ctrl+C and the system's wish that the program ends. Once.
  void OnSignal(std::function<void()> work);

  struct Inner;
  Inner& inner() { return *inner_; }

 private:
  std::unique_ptr<Inner> inner_;
};

}  // namespace conmuta::capture
