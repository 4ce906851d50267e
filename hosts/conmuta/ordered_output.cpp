#include "conmuta/ordered_output.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace conmuta::host {
namespace {

// The bytes of one source between the thread that writes and the one that hands them on.
class Channel {
 public:
  // Waits while there is too much already. Once nobody listens any more the bytes go nowhere.
  void Write(std::string_view bytes) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return bytes_.size() < kMost || deaf_; });
    if (!deaf_) bytes_ += bytes;
    changed_.notify_all();
  }
  void End(std::exception_ptr why) {
    const std::lock_guard lock(mutex_);
    failure_ = std::move(why);
    ended_ = true;
    changed_.notify_all();
  }

  // All that has come since, or nothing at the end.
  std::optional<std::string> Take() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return !bytes_.empty() || ended_; });
    if (!bytes_.empty()) {
      changed_.notify_all();
      return std::exchange(bytes_, {});
    }
    if (failure_) std::rethrow_exception(failure_);
    return std::nullopt;
  }
  void StopListening() {
    const std::lock_guard lock(mutex_);
    deaf_ = true;
    changed_.notify_all();
  }

 private:
  static constexpr std::size_t kMost = std::size_t{4} << 20;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::string bytes_;
  bool ended_ = false;
  bool deaf_ = false;
  std::exception_ptr failure_;
};

}  // namespace

void WorkInOrder(std::size_t sources, std::size_t most, const WorkOn& work,
                 const OutBuffer::Sink& sink) {
  if (most < 2 || sources < 2) {
    OutBuffer out(sink);
    for (std::size_t i = 0; i < sources; ++i) {
      work(i, out);
      out.Flush();
    }
    return;
  }

  std::vector<Channel> channels(sources);
  std::atomic<std::size_t> next = 0;
  // Sources are begun in their order, so the one whose turn it is never waits for a thread.
  const auto run = [&] {
    for (std::size_t i = 0; (i = next++) < sources;) {
      std::exception_ptr failure;
      try {
        OutBuffer out([&](std::string_view bytes) { channels[i].Write(bytes); });
        work(i, out);
        out.Flush();
      } catch (...) {
        failure = std::current_exception();
      }
      channels[i].End(failure);
    }
  };
  std::vector<std::jthread> threads;
  // Whatever happens here, nobody waits for a listener for ever.
  struct Listening {
    ~Listening() {
      next = channels.size();
      for (Channel& channel : channels) channel.StopListening();
    }
    std::vector<Channel>& channels;
    std::atomic<std::size_t>& next;
  };
  const Listening listening{channels, next};
  for (std::size_t i = 0; i < std::min(most, sources); ++i) threads.emplace_back(run);
  for (Channel& channel : channels) {
    while (const auto bytes = channel.Take()) sink(*bytes);
  }
}

}  // namespace conmuta::host
