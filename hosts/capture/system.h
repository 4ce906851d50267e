// What differs from system to system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace conmuta::capture {

// An error in the system's words, as UTF-8.
std::string SystemText(const std::error_code& error);

// Whether asking for a port that was just in use keeps others out.
bool ReuseIsSafe();

// A TCP connection that is quiet for 30 s is asked every 10 s whether the other end is there, and
// is lost after three times without an answer, where the system lets that be chosen.
void WatchConnection(std::intptr_t socket);

// Reads what the program is given; 0 at the end or when there is none. Waits.
std::size_t ReadStandardInput(char* room, std::size_t size);

// Keeps others from parts of a file, as long as this lives; a process that is killed lets go.
class FileClaims {
 public:
  // The file is made where it is not there. std::system_error.
  explicit FileClaims(const std::filesystem::path& path);
  ~FileClaims();
  FileClaims(const FileClaims&) = delete;
  FileClaims& operator=(const FileClaims&) = delete;

  // False when somebody else has that part.
  bool Take(std::int64_t part) const;

 private:
  std::intptr_t handle_;
};

// A file that another program goes on writing, renames or deletes.
class SharedFile {
 public:
  SharedFile() = default;
  ~SharedFile() { Close(); }
  SharedFile(const SharedFile&) = delete;
  SharedFile& operator=(const SharedFile&) = delete;

  bool Open(const std::filesystem::path& path);
  void Close();
  bool IsOpen() const { return handle_ != -1; }
  std::int64_t Size() const;  // 0 when it cannot be known
  // Gives how many bytes there are, 0 behind the end.
  std::size_t Read(std::int64_t offset, char* room, std::size_t size) const;
  void Swap(SharedFile& other) { std::swap(handle_, other.handle_); }

 private:
  std::intptr_t handle_ = -1;
};

// Errors of a serial line since the last time they were asked for.
struct SerialErrors {
  std::int64_t framing = 0;
  std::int64_t parity = 0;
  std::int64_t overrun = 0;
};

class SerialErrorCounter {
 public:
  // Nothing when the port cannot tell. `handle` is the open port.
  std::optional<SerialErrors> Take(std::intptr_t handle);
  void Forget() { known_.reset(); }

 private:
  std::optional<SerialErrors> known_;
};

// A line without hardware: what is written here comes out of the port of that name.
class PseudoTerminal {
 public:
  // std::system_error where the system has none.
  PseudoTerminal();
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  const std::string& name() const { return name_; }
  // Waits until all is written; false when the other end is gone.
  bool Write(std::string_view bytes) const;
  // Waits while the other end reads what was written: it is lost when this one is closed.
  void AwaitRead() const;

 private:
  int file_ = -1;
  std::string name_;
};

}  // namespace conmuta::capture
