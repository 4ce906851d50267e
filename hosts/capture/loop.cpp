#include "capture/loop.h"

#include <csignal>

#include "capture/loop_inner.h"

namespace conmuta::capture {

Loop::Loop() : inner_(std::make_unique<Inner>()) {}
Loop::~Loop() = default;

void Loop::Run() {
  const auto work = asio::make_work_guard(inner_->context);
  inner_->context.run();
}

void Loop::Stop() {
  inner_->context.stop();
}

void Loop::Post(std::function<void()> work) {
  asio::post(inner_->context, std::move(work));
}

void Loop::After(std::chrono::milliseconds time, std::function<void()> work) {
  const auto timer = std::make_shared<asio::steady_timer>(inner_->context, time);
  timer->async_wait([timer, work = std::move(work)](const std::error_code& error) {
    if (!error) work();
  });
}

void Loop::OnSignal(std::function<void()> work) {
  for (const int signal : {SIGINT, SIGTERM}) inner_->signals.add(signal);
  inner_->signals.async_wait([work = std::move(work)](const std::error_code& error, int) {
    if (!error) work();
  });
}

}  // namespace conmuta::capture
