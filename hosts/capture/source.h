// Where lines come from. All of it runs in the loop's thread.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "capture/address.h"
#include "capture/backlog.h"
#include "capture/line_cutter.h"
#include "capture/loop.h"
#include "capture/messages.h"

namespace conmuta::capture {

struct SourceLimits {
  std::size_t line = LineCutter::kUsualLimit;   // bytes
  std::size_t connections = 8;                  // to a server at once
  std::int64_t bytes_a_second = 1 << 20;        // of a connection to a server
  std::chrono::milliseconds first_pause{1000};  // before a connection is tried again; doubles
  std::chrono::milliseconds longest_pause{60000};
  std::chrono::milliseconds poll{250};  // of a file
};

struct SourceContext {
  Loop& loop;
  Backlog& backlog;
  Messages& messages;
  std::size_t index;
  std::string name;
  Address address;
  char line_end;
  std::string place;  // where it went on last time
  bool once;          // a file is read to its end only
  SourceLimits limits;
  std::function<void()> ended;  // nothing more will come; may be told again
};

class Source {
 public:
  virtual ~Source() = default;
  virtual void Start() = 0;
  // Hands over what the system has already, and what came of a line that is not over; `ended` tells
  // when that is done.
  virtual void Stop() = 0;
};

// At the end of a source: reading goes on until nothing has come for a moment, but not for long.
// `came` tells whether something has since it was asked last.
void AwaitLastBytes(Loop& loop, std::function<bool()> came, std::function<void()> end,
                    int rounds = 20);

std::unique_ptr<Source> MakeTcpClient(const SourceContext& context);
std::unique_ptr<Source> MakeTcpServer(const SourceContext& context);
std::unique_ptr<Source> MakeSerialSource(const SourceContext& context);
std::unique_ptr<Source> MakeFileSource(const SourceContext& context);
std::unique_ptr<Source> MakeStandardInput(const SourceContext& context);
std::unique_ptr<Source> MakeSource(const SourceContext& context);

// Where the bytes of one connection go.
class Inlet {
 public:
  Inlet(const SourceContext& context, bool can_wait)
      : backlog_(context.backlog),
        source_(context.index),
        can_wait_(can_wait),
        cutter_(context.line_end, context.limits.line) {}

  // Whether the sender is to wait, if it can.
  bool MustWait() const { return can_wait_ && backlog_.MustWait(); }

  void Take(std::string_view bytes);
  // The connection is gone, perhaps within a line.
  void Break() { End(Wholeness::kTorn); }
  // All was sent; the last line may lack its end.
  void End() { End(Wholeness::kWhole); }

 private:
  void End(Wholeness wholeness);

  Backlog& backlog_;
  std::size_t source_;
  bool can_wait_;
  LineCutter cutter_;
};

// Pauses between tries, longer and longer.
class GrowingPause {
 public:
  explicit GrowingPause(const SourceLimits& limits)
      : first_(limits.first_pause), longest_(limits.longest_pause), next_(first_) {}

  std::chrono::milliseconds Next() {
    const auto pause = next_;
    next_ = std::min(next_ * 2, longest_);
    return pause;
  }
  void Reset() { next_ = first_; }

 private:
  std::chrono::milliseconds first_, longest_, next_;
};

}  // namespace conmuta::capture
