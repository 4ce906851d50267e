#include <array>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "capture/growing_file.h"
#include "capture/source.h"
#include "capture/system.h"

namespace conmuta::capture {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kWaitStep{20};

class FileSource final : public Source {
 public:
  explicit FileSource(const SourceContext& context)
      : context_(context),
        file_(std::filesystem::path(
                  std::u8string(context.address.path.begin(), context.address.path.end())),
              context.place, context.line_end, context.limits.line),
        absence_(context.messages) {}

  void Start() override { Poll(); }
  void Stop() override {  // what is not over is read again next time
    stopped_ = true;
    context_.ended();
  }

 private:
  void Poll() {
    if (stopped_) return;
    const auto put = [this](std::string line, Wholeness wholeness, std::string place) {
      context_.backlog.Put(context_.index, std::move(line), wholeness, std::move(place), true);
    };
    if (context_.backlog.MustWait()) return Again(kWaitStep);
    const bool more = file_.Poll(put);
    TellWhetherItIsThere();
    if (more) return Again(milliseconds(0));
    if (!context_.once) return Again(context_.limits.poll);
    file_.TakeRest(put);
    context_.ended();
  }
  void TellWhetherItIsThere() {
    const std::string file = context_.name + ": el archivo " + context_.address.path;
    if (file_.IsThere()) return absence_.Over(file + " ya está");
    if (std::exchange(is_absence_told_, true)) return;
    absence_.Tell(file + " no se puede abrir; se lee en cuanto aparezca");
  }
  void Again(milliseconds time) {
    context_.loop.After(time, [this] { Poll(); });
  }

  const SourceContext context_;
  GrowingFile file_;
  Complaint absence_;
  bool is_absence_told_ = false;
  bool stopped_ = false;
};

// Between the loop and a thread that waits for input, and may wait for ever: then the program ends
// around it.
struct InputExchange {
  std::mutex mutex;
  std::condition_variable taken;
  Loop* loop = nullptr;  // null when nobody wants more
  bool busy = false;
};

class StandardInput final : public Source {
 public:
  explicit StandardInput(const SourceContext& context)
      : context_(context), inlet_(context, true), exchange_(std::make_shared<InputExchange>()) {
    exchange_->loop = &context.loop;
  }
  ~StandardInput() override { Leave(); }

  void Start() override {
    std::thread([this, exchange = exchange_] {
      std::array<char, 65536> room;
      for (;;) {
        const std::size_t count = ReadStandardInput(room.data(), room.size());
        std::unique_lock lock(exchange->mutex);
        if (exchange->loop == nullptr) return;
        exchange->busy = true;
        exchange->loop->Post([this, bytes = std::string(room.data(), count)] { Take(bytes); });
        exchange->taken.wait(lock, [&] { return !exchange->busy || exchange->loop == nullptr; });
        if (count == 0) return;
      }
    }).detach();
  }

  void Stop() override {
    stopping_ = true;
    AwaitLastBytes(
        context_.loop, [this] { return std::exchange(came_, false); },
        [this] {
          Leave();
          inlet_.Break();
          context_.ended();
        });
  }

 private:
  void Take(const std::string& bytes) {
    if (left_) return;
    came_ = true;
    if (bytes.empty()) {
      inlet_.End();
      context_.ended();
    } else if (inlet_.MustWait() && !stopping_) {
      return context_.loop.After(kWaitStep, [this, bytes] { Take(bytes); });
    } else {
      inlet_.Take(bytes);
    }
    const std::lock_guard lock(exchange_->mutex);
    exchange_->busy = false;
    exchange_->taken.notify_all();
  }
  void Leave() {
    left_ = true;
    const std::lock_guard lock(exchange_->mutex);
    exchange_->loop = nullptr;
    exchange_->taken.notify_all();
  }

  const SourceContext context_;
  Inlet inlet_;
  std::shared_ptr<InputExchange> exchange_;
  bool came_ = false;
  bool stopping_ = false;
  bool left_ = false;
};

}  // namespace

std::unique_ptr<Source> MakeFileSource(const SourceContext& context) {
  return std::make_unique<FileSource>(context);
}

std::unique_ptr<Source> MakeStandardInput(const SourceContext& context) {
  return std::make_unique<StandardInput>(context);
}

}  // namespace conmuta::capture
