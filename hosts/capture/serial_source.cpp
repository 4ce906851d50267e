#include <array>

#include "capture/line_quality.h"
#include "capture/loop_inner.h"
#include "capture/source.h"
#include "capture/system.h"

namespace conmuta::capture {
namespace {

using asio::serial_port_base;
using std::chrono::milliseconds;

constexpr milliseconds kWaitStep{20};
constexpr milliseconds kAskErrors{1000};

void Set(asio::serial_port& port, const SerialSettings& s, std::error_code& error) {
  const auto set = [&](const auto& option) {
    if (!error) port.set_option(option, error);
  };
  set(serial_port_base::baud_rate(s.speed));
  set(serial_port_base::character_size(s.bits));
  set(serial_port_base::parity(s.parity == 'E'   ? serial_port_base::parity::even
                               : s.parity == 'O' ? serial_port_base::parity::odd
                                                 : serial_port_base::parity::none));
  set(serial_port_base::stop_bits(s.stops == 2 ? serial_port_base::stop_bits::two
                                               : serial_port_base::stop_bits::one));
  set(serial_port_base::flow_control(
      s.flow == Flow::kHardware   ? serial_port_base::flow_control::hardware
      : s.flow == Flow::kSoftware ? serial_port_base::flow_control::software
                                  : serial_port_base::flow_control::none));
}

class SerialSource final : public Source {
 public:
  explicit SerialSource(const SourceContext& context)
      : context_(context),
        port_(context.loop.inner().context),
        // Only hardware stops a sender at once.
        inlet_(context, context.address.serial.flow == Flow::kHardware),
        pause_(context.limits),
        complaint_(context.messages),
        quality_(context.backlog, context.messages, context.index, context.name,
                 context.address.path) {}

  void Start() override {
    std::error_code error;
    port_.open(context_.address.path, error);
    if (!error) {
      Set(port_, context_.address.serial, error);
      std::error_code ignored;
      if (error) port_.close(ignored);
    }
    if (error) return TryLater(error);
    complaint_.Over(context_.name + ": el puerto " + context_.address.path + " responde otra vez");
    counter_.Forget();
    Read();
    const auto opened = ++openings_;
    AskErrors(opened);
  }

  void Stop() override {
    stopped_ = true;
    if (!port_.is_open()) return context_.ended();
    Read();
    AwaitLastBytes(
        context_.loop, [this] { return std::exchange(came_, false); }, [this] { Cancel(); });
  }

 private:
  void Read() {
    if (is_reading_ || !port_.is_open()) return;
    if (!stopped_ && inlet_.MustWait()) {
      return context_.loop.After(kWaitStep, [this] { Read(); });
    }
    is_reading_ = true;
    port_.async_read_some(asio::buffer(room_), [this](const std::error_code& error,
                                                      std::size_t count) { Took(error, count); });
  }

  void Took(const std::error_code& error, std::size_t count) {
    is_reading_ = false;
    if (count > 0) {
      came_ = true;
      pause_.Reset();
      quality_.Take({room_.data(), count});
      inlet_.Take({room_.data(), count});
    }
    if (!error && !is_cancelled_) return Read();
    std::error_code ignored;
    port_.close(ignored);
    inlet_.Break();
    if (stopped_) return context_.ended();
    context_.backlog.Count(context_.index, Incident::kConnectionLost, 1);
    TryLater(error);
  }

  // What is being read may have come already: it is heard of, then the port is closed.
  void Cancel() {
    is_cancelled_ = true;
    std::error_code ignored;
    if (port_.is_open()) port_.cancel(ignored);
  }

  void AskErrors(int opening) {
    if (stopped_ || opening != openings_ || !port_.is_open()) return;
    quality_.Look(counter_.Take((std::intptr_t)port_.native_handle()));
    context_.loop.After(kAskErrors, [this, opening] { AskErrors(opening); });
  }

  void TryLater(const std::error_code& error) {
    complaint_.Tell(context_.name + ": no se puede leer " + context_.address.path + ": " +
                    SystemText(error));
    context_.loop.After(pause_.Next(), [this] {
      if (!stopped_) Start();
    });
  }

  const SourceContext context_;
  asio::serial_port port_;
  Inlet inlet_;
  GrowingPause pause_;
  Complaint complaint_;
  SerialErrorCounter counter_;
  LineQuality quality_;
  int openings_ = 0;
  bool stopped_ = false;
  bool is_reading_ = false;
  bool is_cancelled_ = false;
  bool came_ = false;
  std::array<char, 4096> room_;
};

}  // namespace

std::unique_ptr<Source> MakeSerialSource(const SourceContext& context) {
  return std::make_unique<SerialSource>(context);
}

}  // namespace conmuta::capture
