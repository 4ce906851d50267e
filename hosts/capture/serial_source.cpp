#include <array>

#include "capture/loop_inner.h"
#include "capture/source.h"
#include "capture/system.h"
#include "capture/unprintable.h"

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
        line_errors_(context.messages) {}

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
    std::error_code ignored;
    port_.close(ignored);
    inlet_.Break();
  }

 private:
  void Read() {
    if (stopped_ || !port_.is_open()) return;
    if (inlet_.MustWait()) return context_.loop.After(kWaitStep, [this] { Read(); });
    port_.async_read_some(asio::buffer(room_),
                          [this](const std::error_code& error, std::size_t count) {
                            if (stopped_) return;
                            Took(error, count);
                          });
  }

  void Took(const std::error_code& error, std::size_t count) {
    if (count > 0) {
      pause_.Reset();
      unprintable_.Take({room_.data(), count});
      inlet_.Take({room_.data(), count});
    }
    if (!error) return Read();
    std::error_code ignored;
    port_.close(ignored);
    inlet_.Break();
    context_.backlog.Count(context_.index, Incident::kConnectionLost, 1);
    TryLater(error);
  }

  // What the port knows comes before what can be guessed from the bytes.
  void AskErrors(int opening) {
    if (stopped_ || opening != openings_ || !port_.is_open()) return;
    const auto handle = (std::intptr_t)port_.native_handle();
    if (const auto errors = counter_.Take(handle)) {
      Count(Incident::kFraming, errors->framing);
      Count(Incident::kParity, errors->parity);
      Count(Incident::kOverrun, errors->overrun);
      if (errors->framing + errors->parity > 0) {
        knows_errors_ = true;
        line_errors_.Tell(context_.name + ": errores de " +
                          (errors->framing > 0 ? "trama" : "paridad") + " en " +
                          context_.address.path + "; ¿otra velocidad, otra paridad?");
      }
    }
    if (const std::int64_t blocks = unprintable_.Suspicious(); blocks > 0 && !knows_errors_) {
      Count(Incident::kUnprintable, blocks);
      line_errors_.Tell(context_.name + ": por " + context_.address.path +
                        " vienen bytes que no son texto; ¿otra velocidad, otra paridad?");
    }
    context_.loop.After(kAskErrors, [this, opening] { AskErrors(opening); });
  }

  void Count(Incident incident, std::int64_t count) {
    if (count > 0) context_.backlog.Count(context_.index, incident, count);
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
  Complaint line_errors_;
  SerialErrorCounter counter_;
  UnprintableGuess unprintable_;
  bool knows_errors_ = false;
  int openings_ = 0;
  bool stopped_ = false;
  std::array<char, 4096> room_;
};

}  // namespace

std::unique_ptr<Source> MakeSerialSource(const SourceContext& context) {
  return std::make_unique<SerialSource>(context);
}

}  // namespace conmuta::capture
