// What the capture tells the person who runs it.
#pragma once

#include <cstdint>
#include <mutex>
#include <ostream>
#include <string>
#include <string_view>

namespace conmuta::capture {

// Bytes that a stranger sent, as a terminal may show them: control characters, and all beyond
// ASCII, as \xHH.
std::string Escaped(std::string_view bytes);

// UTF-8 as a terminal may show it: only the control characters as \xHH.
std::string Shown(std::string_view utf8);

// One line each, from any thread.
class Messages {
 public:
  explicit Messages(std::ostream& out) : out_(out) {}

  void Tell(std::string_view sentence);

 private:
  std::mutex mutex_;
  std::ostream& out_;
};

// A complaint that comes again and again is told at growing intervals, and its end once.
class Complaint {
 public:
  explicit Complaint(Messages& messages) : messages_(messages) {}

  void Tell(const std::string& sentence);
  // Nothing when nothing was complained of.
  void Over(const std::string& sentence);

 private:
  Messages& messages_;
  std::uint64_t times_ = 0;
  std::uint64_t next_ = 1;
};

}  // namespace conmuta::capture
