// A source in a loop that runs in a thread of its own, and what it brings.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <thread>

#include "capture/loop_inner.h"
#include "capture/source.h"
#include "capture/sqlite_database.h"
#include "support/temporary_folder.h"

namespace conmuta::capture {

using namespace std::chrono_literals;

class SourceBench {
 public:
  SourceBench() { backlog.ContinueFrom(0, 0, {}); }
  ~SourceBench() { Stop(); }
  SourceBench(const SourceBench&) = delete;
  SourceBench& operator=(const SourceBench&) = delete;

  void Start(const std::string& address) {
    source_ = MakeSource({loop,
                          backlog,
                          messages,
                          0,
                          "centro",
                          ReadAddress(address).value(),
                          '\n',
                          {},
                          false,
                          limits,
                          [this] { loop.Stop(); }});
    source_->Start();
    // A server says which port it has.
    const std::string text = told.str();
    if (const auto at = text.rfind("puerto "); at != std::string::npos) {
      port = static_cast<unsigned short>(std::stoi(text.substr(at + 7)));
    }
    thread_ = std::thread([this] { loop.Run(); });
  }
  // Until it has handed over what it had.
  void Stop() {
    if (!thread_.joinable()) return;
    loop.Post([this] { source_->Stop(); });
    loop.After(5000ms, [this] { loop.Stop(); });
    thread_.join();
  }
  // In the loop's thread, like a signal.
  void StopSoon() {
    loop.Post([this] { source_->Stop(); });
  }

  // All lines so far, with a mark where they are no whole ones.
  const std::vector<std::string>& Lines() {
    constexpr std::array<const char*, 4> kMarks = {"", "+", "~", "#"};
    const auto& batch = *backlog.Next(10000);
    for (const Arrival& arrival : batch.lines) {
      lines_.push_back(arrival.line.bytes +
                       kMarks.at(static_cast<std::size_t>(arrival.line.wholeness)));
    }
    for (const auto& [key, count] : batch.incidents) counted_[key.second] += count;
    backlog.Done();
    return lines_;
  }
  std::int64_t Counted(Incident incident) {
    Lines();
    return counted_[incident];
  }
  void AwaitLines(std::size_t count) {
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (Lines().size() < count && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(1ms);
    }
    EXPECT_GE(Lines().size(), count);
  }

  unsigned short port = 0;
  Loop loop;
  SourceLimits limits;
  // Called for each line, in the loop's thread.
  std::function<void()> at_a_line = [] {};
  test::TemporaryFolder folder;
  std::ostringstream told;  // to be read when it is stopped
  Messages messages{told};
  Backlog backlog{{"centro"},
                  [this](Thoroughness thoroughness) {
                    return OpenSqliteOrSetAside(folder.path() / "derrame.db", thoroughness,
                                                messages);
                  },
                  {},
                  messages,
                  [this] {
                    at_a_line();
                    return std::int64_t{1};
                  }};

 private:
  std::unique_ptr<Source> source_;
  std::thread thread_;
  std::vector<std::string> lines_;
  std::map<Incident, std::int64_t> counted_;
};

// The other end of a TCP line.
class Peer {
 public:
  void Call(unsigned short port) { socket_.connect({asio::ip::make_address("127.0.0.1"), port}); }
  // Before a client calls.
  unsigned short Listen() {
    acceptor_ = asio::ip::tcp::acceptor(context_, {asio::ip::make_address("127.0.0.1"), 0});
    return acceptor_.local_endpoint().port();
  }
  void Accept() { acceptor_.accept(socket_); }
  void Send(const std::string& bytes) { asio::write(socket_, asio::buffer(bytes)); }
  void HangUp() { socket_.close(); }
  // Waits until the other end has hung up.
  void AwaitEnd() {
    std::array<char, 1> room;
    std::error_code error;
    while (!error) socket_.read_some(asio::buffer(room), error);
  }

 private:
  asio::io_context context_;
  asio::ip::tcp::acceptor acceptor_{context_};
  asio::ip::tcp::socket socket_{context_};
};

}  // namespace conmuta::capture
