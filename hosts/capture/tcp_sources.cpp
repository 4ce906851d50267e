#include <algorithm>
#include <array>
#include <list>

#include "capture/loop_inner.h"
#include "capture/source.h"
#include "capture/system.h"

namespace conmuta::capture {
namespace {

using asio::ip::tcp;
using std::chrono::milliseconds;

// How soon a sender that had to wait is looked at again.
constexpr milliseconds kWaitStep{20};
// What is read of a connection that we end ourselves.
constexpr std::size_t kLastBytes = 1 << 20;

// Reads one connection until it ends.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  Connection(const SourceContext& context, tcp::socket socket, std::int64_t bytes_a_second,
             std::function<void(const std::error_code&)> ended)
      : loop_(context.loop),
        socket_(std::move(socket)),
        inlet_(context, true),
        allowed_(bytes_a_second),
        ended_(std::move(ended)) {}

  // Nothing is read while the store does not keep up: then the sender waits.
  void Read() {
    if (!socket_.is_open()) return;
    const auto self = shared_from_this();
    if (inlet_.MustWait() || TooFast()) {
      return loop_.After(kWaitStep, [self] { self->Read(); });
    }
    socket_.async_read_some(
        asio::buffer(room_),
        [self](const std::error_code& error, std::size_t count) { self->Took(error, count); });
  }

  // What the system has already is taken, and then the connection ended.
  void Stop() {
    std::error_code error;
    std::size_t taken = 0;
    while (socket_.is_open() && taken < kLastBytes && socket_.available(error) > 0 && !error) {
      const std::size_t count = socket_.read_some(asio::buffer(room_), error);
      if (error) break;
      inlet_.Take({room_.data(), count});
      taken += count;
    }
    Close();
  }

 private:
  void Took(const std::error_code& error, std::size_t count) {
    if (!socket_.is_open()) return;
    if (count > 0) inlet_.Take({room_.data(), count});
    in_this_second_ += static_cast<std::int64_t>(count);
    if (!error) return Read();
    Close();
    ended_(error);
  }
  void Close() {
    if (!socket_.is_open()) return;
    inlet_.Break();
    std::error_code ignored;
    socket_.close(ignored);
  }
  bool TooFast() {
    const auto now = std::chrono::steady_clock::now();
    if (now - second_ >= std::chrono::seconds(1)) {
      second_ = now;
      in_this_second_ = 0;
    }
    return allowed_ > 0 && in_this_second_ >= allowed_;
  }

  Loop& loop_;
  tcp::socket socket_;
  Inlet inlet_;
  std::int64_t allowed_;
  std::int64_t in_this_second_ = 0;
  std::chrono::steady_clock::time_point second_{};
  std::function<void(const std::error_code&)> ended_;
  std::array<char, 65536> room_;
};

class TcpClient final : public Source {
 public:
  explicit TcpClient(const SourceContext& context)
      : context_(context),
        resolver_(context.loop.inner().context),
        socket_(context.loop.inner().context),
        pause_(context.limits),
        complaint_(context.messages) {}

  void Start() override {
    resolver_.async_resolve(context_.address.host, std::to_string(context_.address.port),
                            [this](const std::error_code& error, const auto& found) {
                              if (error) return TryLater(error);
                              Connect(found);
                            });
  }

  void Stop() override {
    stopped_ = true;
    std::error_code ignored;
    socket_.close(ignored);
    resolver_.cancel();
    if (connection_ != nullptr) connection_->Stop();
  }

 private:
  void Connect(const tcp::resolver::results_type& found) {
    if (stopped_) return;
    asio::async_connect(socket_, found, [this](const std::error_code& error, const auto&) {
      if (stopped_) return;
      if (error) return TryLater(error);
      Connected();
    });
  }

  void Connected() {
    complaint_.Over(context_.name + ": hay conexión otra vez");
    pause_.Reset();
    std::error_code ignored;
    socket_.set_option(asio::socket_base::keep_alive(true), ignored);
    connection_ = std::make_shared<Connection>(
        context_, std::exchange(socket_, tcp::socket(context_.loop.inner().context)), 0,
        [this](const std::error_code& error) {
          context_.backlog.Count(context_.index, Incident::kConnectionLost, 1);
          TryLater(error);
        });
    connection_->Read();
  }

  void TryLater(const std::error_code& error) {
    if (stopped_) return;
    complaint_.Tell(context_.name + ": no hay conexión con " + context_.address.host + ": " +
                    SystemText(error));
    context_.loop.After(pause_.Next(), [this] {
      if (!stopped_) Start();
    });
  }

  const SourceContext context_;
  tcp::resolver resolver_;
  tcp::socket socket_;
  GrowingPause pause_;
  Complaint complaint_;
  std::shared_ptr<Connection> connection_;
  bool stopped_ = false;
};

class TcpServer final : public Source {
 public:
  explicit TcpServer(const SourceContext& context)
      : context_(context),
        acceptor_(context.loop.inner().context),
        pause_(context.limits),
        complaint_(context.messages),
        refusals_(context.messages) {}

  void Start() override {
    std::error_code error;
    Listen(error);
    if (!error) {
      complaint_.Over(context_.name + ": se escucha otra vez");
      context_.messages.Tell(context_.name + ": se escucha en el puerto " +
                             std::to_string(acceptor_.local_endpoint(error).port()));
      return Accept();
    }
    complaint_.Tell(context_.name + ": no se puede escuchar en el puerto " +
                    std::to_string(context_.address.port) + ": " + SystemText(error));
    context_.loop.After(pause_.Next(), [this] {
      if (!stopped_) Start();
    });
  }

  void Stop() override {
    stopped_ = true;
    std::error_code ignored;
    acceptor_.close(ignored);
    for (const auto& connection : connections_) connection->Stop();
  }

 private:
  void Listen(std::error_code& error) {
    const std::string& host = context_.address.host;
    const auto address = asio::ip::make_address(host.empty() ? "127.0.0.1" : host, error);
    if (error) return;
    const tcp::endpoint endpoint(address, context_.address.port);
    acceptor_.close(error);
    acceptor_.open(endpoint.protocol(), error);
    if (error) return;
    // A port that was just in use may be taken again; on Windows that would be somebody else's.
    if (ReuseIsSafe()) acceptor_.set_option(tcp::acceptor::reuse_address(true), error);
    if (!error) acceptor_.bind(endpoint, error);
    if (!error) acceptor_.listen(asio::socket_base::max_listen_connections, error);
  }

  void Accept() {
    acceptor_.async_accept([this](const std::error_code& error, tcp::socket socket) {
      if (stopped_) return;
      if (!error) Take(std::move(socket));
      // Want of files or memory passes.
      context_.loop.After(error ? milliseconds(1000) : milliseconds(0), [this] {
        if (!stopped_) Accept();
      });
    });
  }

  void Take(tcp::socket socket) {
    if (connections_.size() >= context_.limits.connections) {
      context_.backlog.Count(context_.index, Incident::kConnectionRefused, 1);
      refusals_.Tell(context_.name + ": se rechaza una conexión: ya hay " +
                     std::to_string(connections_.size()));
      return;
    }
    std::error_code ignored;
    socket.set_option(asio::socket_base::keep_alive(true), ignored);
    connections_.emplace_back();
    const auto place = std::prev(connections_.end());
    *place = std::make_shared<Connection>(
        context_, std::move(socket), context_.limits.bytes_a_second,
        [this, place](const std::error_code&) {
          context_.backlog.Count(context_.index, Incident::kConnectionLost, 1);
          connections_.erase(place);
        });
    (*place)->Read();
  }

  const SourceContext context_;
  tcp::acceptor acceptor_;
  GrowingPause pause_;
  Complaint complaint_;
  Complaint refusals_;
  std::list<std::shared_ptr<Connection>> connections_;
  bool stopped_ = false;
};

}  // namespace

std::unique_ptr<Source> MakeTcpClient(const SourceContext& context) {
  return std::make_unique<TcpClient>(context);
}

std::unique_ptr<Source> MakeTcpServer(const SourceContext& context) {
  return std::make_unique<TcpServer>(context);
}

}  // namespace conmuta::capture
