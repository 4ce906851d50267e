// The thread on which a host calls us and our windows run their loops.
#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <stdexcept>

namespace conmuta::test {

// What was waited for never came.
class Stuck : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Milliseconds after which something is taken to be stuck; a busy machine is slow.
inline constexpr DWORD kPatience = 30000;

// Lives on the thread that it stands for.
class HostThread {
 public:
  HostThread();
  ~HostThread();
  HostThread(const HostThread&) = delete;
  HostThread& operator=(const HostThread&) = delete;

  DWORD id() const { return id_; }

  // Around a call that shows windows until they are closed.
  void BeginCall() { ResetEvent(idle_); }
  void EndCall() { SetEvent(idle_); }

  // --- for other threads ---

  // Runs something on the host's thread, in the midst of whatever window is open there.
  void Run(const std::function<void()>& body) const;

  // Returns when everything that was posted to the thread before has been taken out of its queue,
  // and so have the characters that came of keys; or when the call has returned.
  void Drain() const;
  // Returns when its windows have painted themselves and wait for messages.
  void Rest() const;
  bool IsIdle() const { return WaitForSingleObject(idle_, 0) == WAIT_OBJECT_0; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  DWORD id_ = GetCurrentThreadId();
  HWND window_;
  HANDLE idle_ = CreateEventW(nullptr, TRUE, TRUE, nullptr);
  HANDLE drained_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  mutable std::atomic<WPARAM> asked_ = 0;
  std::atomic<WPARAM> answered_ = 0;
};

}  // namespace conmuta::test
