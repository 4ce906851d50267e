#include "capture/simulate.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ostream>
#include <thread>

#include "capture/capture.h"
#include "capture/loop_inner.h"
#include "capture/store_address.h"
#include "capture/system.h"
#include "layouts/capture.h"
#include "platform/unicode.h"

namespace conmuta::capture {
namespace {

using asio::ip::tcp;

// Start, eight data bits, stop.
constexpr unsigned kBitsOfAByte = 10;
constexpr auto kStep = std::chrono::milliseconds(50);

// What is behind the head, as it stands.
std::string_view Body(std::string_view bytes) {
  while (bytes.starts_with('#')) {
    const std::size_t end = bytes.find('\n');
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  }
  return bytes;
}

// As a PBX sends them: a line ends with CR and LF.
std::string WithLineEnds(std::string_view body) {
  std::string bytes;
  for (std::size_t i = 0; i < body.size(); ++i) {
    if (body[i] == '\n' && (i == 0 || body[i - 1] != '\r')) bytes += '\r';
    bytes += body[i];
  }
  return bytes;
}

// `write` takes bytes; gives false when the other end is gone.
template <class Write>
int Play(const std::string& bytes, unsigned speed, Write write) {
  const auto begin = std::chrono::steady_clock::now();
  std::size_t sent = 0;
  while (sent < bytes.size()) {
    std::size_t due = bytes.size();
    if (speed != 0) {
      const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - begin + kStep;
      due = std::min(due, static_cast<std::size_t>(gone.count() * speed / kBitsOfAByte));
    }
    if (due > sent) {
      if (!write(std::string_view(bytes).substr(sent, due - sent))) return kFailed;
      sent = due;
    }
    if (sent < bytes.size()) std::this_thread::sleep_for(kStep);
  }
  return kDone;
}

template <class Stream>
int PlayTo(Stream& stream, const std::string& bytes, unsigned speed) {
  return Play(bytes, speed, [&](std::string_view piece) {
    std::error_code error;
    asio::write(stream, asio::buffer(piece), error);
    return !error;
  });
}

int PlayTo(const Address& address, const std::string& bytes, unsigned speed, Messages& messages) {
  asio::io_context context;
  if (address.kind == Address::Kind::kSerial) {
    asio::serial_port port(context, address.path);
    port.set_option(asio::serial_port_base::baud_rate(address.serial.speed));
    return PlayTo(port, bytes, speed);
  }
  tcp::socket socket(context);
  if (address.kind == Address::Kind::kTcpClient) {
    tcp::resolver resolver(context);
    asio::connect(socket, resolver.resolve(address.host, std::to_string(address.port)));
  } else {
    const auto host = asio::ip::make_address(address.host.empty() ? "127.0.0.1" : address.host);
    tcp::acceptor acceptor(context, {host, address.port}, ReuseIsSafe());
    messages.Tell("se espera en el puerto " + std::to_string(acceptor.local_endpoint().port()));
    acceptor.accept(socket);
  }
  const int code = PlayTo(socket, bytes, speed);
  std::error_code ignored;
  socket.shutdown(tcp::socket::shutdown_send, ignored);
  return code;
}

}  // namespace

int Simulate(const SimulateOptions& options, std::ostream& err) {
  Messages messages(err);
  std::ifstream file(PathOf(options.capture), std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto reading = layouts::ReadCapture(content, FromUtf8(options.capture));
  for (const layouts::Mistake& mistake : reading.mistakes) {
    messages.Tell(ToUtf8(Sentence(mistake)).value_or("?"));
  }
  const auto address = ReadAddress(options.to);
  const bool can_send = address && address->kind != Address::Kind::kFile &&
                        address->kind != Address::Kind::kStandardInput;
  if (options.to != "pty" && !can_send) {
    messages.Tell("no se puede enviar a " + options.to);
    return kUsage;
  }
  if (!reading.capture) return kUsage;
  const unsigned speed = options.speed.value_or(static_cast<unsigned>(reading.capture->speed));
  const std::string bytes = WithLineEnds(Body(content));
  try {
    if (can_send) return PlayTo(*address, bytes, speed, messages);
    PseudoTerminal terminal;
    messages.Tell("la línea es " + terminal.name());
    const int code =
        Play(bytes, speed, [&](std::string_view piece) { return terminal.Write(piece); });
    terminal.AwaitRead();
    return code;
  } catch (const std::system_error& error) {
    messages.Tell(options.to + ": " + SystemText(error.code()));
    return kFailed;
  }
}

}  // namespace conmuta::capture
