// A person who works with a window while the host's call shows it.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

#include "person.h"

namespace conmuta::test {

// Ends the program when a test takes too long: a window that hangs cannot be got rid of otherwise.
class Watchdog {
 public:
  Watchdog() : thread_([this] { Watch(); }) {}
  ~Watchdog() {
    {
      const std::lock_guard lock(mutex_);
      over_ = true;
    }
    changed_.notify_all();
    thread_.join();
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  // A soak takes as long as it takes.
  static std::chrono::seconds Patience() {
    return std::chrono::seconds(std::getenv("CONMUTA_SOAK") != nullptr ? 7200 : 120);
  }

  void Watch() {
    std::unique_lock lock(mutex_);
    if (changed_.wait_for(lock, Patience(), [this] { return over_; })) return;
    std::fprintf(stderr, "this test hangs; the program ends here\n");
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 3);
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  bool over_ = false;
  std::thread thread_;
};

// Runs `open`, which is to return when its window is closed, while a person does `work` with it.
// What the person leaves open is a failure, and closed.
template <class Open, class Work>
void While(HostThread& host, Open&& open, Work&& work) {
  host.BeginCall();
  std::thread thread([&] {
    const Person person(host);
    try {
      work(person);
    } catch (const Stuck& stuck) {
      ADD_FAILURE() << stuck.what();
    }
    const ULONGLONG end = GetTickCount64() + 3000;
    while (!host.IsIdle() && GetTickCount64() < end) Sleep(1);
    if (host.IsIdle()) return;
    ADD_FAILURE() << "the call has not returned";
    while (!host.IsIdle()) {
      person.LeaveAll();
      Sleep(50);
    }
  });
  open();
  host.EndCall();
  thread.join();
}

}  // namespace conmuta::test
