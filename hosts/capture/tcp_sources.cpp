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

struct ConnectionEvents {
  std::function<void()> heard;  // its first bytes came
  std::function<void(const std::error_code&)> ended;
};

// Reads one connection until it ends.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  using Clock = std::chrono::steady_clock;

  Connection(const SourceContext& context, tcp::socket socket, std::int64_t bytes_a_second,
             ConnectionEvents events)
      : loop_(context.loop),
        socket_(std::move(socket)),
        inlet_(context, true),
        allowed_(bytes_a_second),
        events_(std::move(events)) {
    WatchConnection((std::intptr_t)socket_.native_handle());
  }

  // Nothing is read while the store does not keep up: then the sender waits.
  void Read() {
    if (is_reading_ || !socket_.is_open()) return;
    const auto self = shared_from_this();
    const std::size_t room = stopped_ ? room_.size() : std::min(room_.size(), Allowance());
    if (!stopped_ && (room == 0 || inlet_.MustWait())) {
      return loop_.After(kWaitStep, [self] { self->Read(); });
    }
    is_reading_ = true;
    socket_.async_read_some(
        asio::buffer(room_.data(), room),
        [self](const std::error_code& error, std::size_t count) { self->Took(error, count); });
  }

  // Takes what the system has already, and ends the connection.
  void Stop(std::function<void()> stopped) {
    stopped_ = std::move(stopped);
    Read();
    const auto self = shared_from_this();
    AwaitLastBytes(
        loop_, [self] { return std::exchange(self->came_, false); }, [self] { self->Cancel(); });
  }
  void Close() {
    inlet_.Break();
    std::error_code ignored;
    socket_.close(ignored);
  }

  // Takes what the system has already: the sender was told that it came.
  void Drop() {
    constexpr int kMostReads = 64;
    std::error_code error;
    socket_.non_blocking(true, error);
    for (int i = 0; i < kMostReads && !is_reading_ && !error; ++i) {
      const std::size_t count = socket_.read_some(asio::buffer(room_), error);
      if (count > 0) Take({room_.data(), count});
    }
    Close();
  }

  Clock::time_point heard_last() const { return heard_last_; }

 private:
  void Took(const std::error_code& error, std::size_t count) {
    is_reading_ = false;
    if (count > 0) Take({room_.data(), count});
    if (!error && socket_.is_open() && !is_cancelled_) return Read();
    const bool was_closed = !socket_.is_open();
    Close();
    if (stopped_) return stopped_();
    if (!was_closed) events_.ended(error);
  }
  void Take(std::string_view bytes) {
    inlet_.Take(bytes);
    came_ = true;
    heard_last_ = Clock::now();
    in_this_second_ += bytes.size();
    if (events_.heard) std::exchange(events_.heard, nullptr)();
  }
  // What is being read may have come already: it is heard of, then the connection is closed.
  void Cancel() {
    is_cancelled_ = true;
    std::error_code ignored;
    if (socket_.is_open()) socket_.cancel(ignored);
  }
  // How many bytes may be read now.
  std::size_t Allowance() {
    if (allowed_ <= 0) return room_.size();
    const auto now = Clock::now();
    if (now - second_ >= std::chrono::seconds(1)) {
      second_ = now;
      in_this_second_ = 0;
    }
    const auto allowed = static_cast<std::size_t>(allowed_);
    return allowed - std::min(allowed, in_this_second_);
  }

  Loop& loop_;
  tcp::socket socket_;
  Inlet inlet_;
  std::int64_t allowed_;
  ConnectionEvents events_;
  std::function<void()> stopped_;  // once it is to end
  bool is_reading_ = false;
  bool is_cancelled_ = false;
  bool came_ = false;
  std::size_t in_this_second_ = 0;
  Clock::time_point second_{};
  Clock::time_point heard_last_ = Clock::now();
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
    if (connection_ == nullptr) return context_.ended();
    connection_->Stop(context_.ended);
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
    connection_ = std::make_shared<Connection>(
        context_, std::exchange(socket_, tcp::socket(context_.loop.inner().context)), 0,
        // One that takes connections and ends them at once is not asked all the time.
        ConnectionEvents{[this] { pause_.Reset(); },
                         [this](const std::error_code& error) {
                           connection_.reset();
                           context_.backlog.Count(context_.index, Incident::kConnectionLost, 1);
                           TryLater(error);
                         }});
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
        crowd_(context.messages) {}

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
    if (connections_.empty()) return context_.ended();
    const auto left = std::make_shared<std::size_t>(connections_.size());
    for (const auto& connection : connections_) {
      connection->Stop([this, left] {
        if (--*left == 0) context_.ended();
      });
    }
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
    if (connections_.size() >= context_.limits.connections) DropOne();
    connections_.emplace_back();
    const auto place = std::prev(connections_.end());
    *place = std::make_shared<Connection>(
        context_, std::move(socket), context_.limits.bytes_a_second,
        ConnectionEvents{{}, [this, place](const std::error_code&) {
                           context_.backlog.Count(context_.index, Incident::kConnectionLost, 1);
                           connections_.erase(place);
                         }});
    (*place)->Read();
  }

  // A PBX that lost its line without a word calls anew: what it left behind must not keep it out.
  void DropOne() {
    const auto silent = std::min_element(
        connections_.begin(), connections_.end(),
        [](const auto& a, const auto& b) { return a->heard_last() < b->heard_last(); });
    crowd_.Tell(context_.name + ": ya hay " + std::to_string(connections_.size()) +
                " conexiones; se cierra la que más tiempo lleva callada");
    context_.backlog.Count(context_.index, Incident::kConnectionDropped, 1);
    const auto dropped = *silent;
    connections_.erase(silent);
    dropped->Drop();
  }

  const SourceContext context_;
  tcp::acceptor acceptor_;
  GrowingPause pause_;
  Complaint complaint_;
  Complaint crowd_;
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
