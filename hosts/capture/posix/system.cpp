#include "capture/system.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace conmuta::capture {

std::string SystemText(const std::error_code& error) {
  return error.message();
}

bool ReuseIsSafe() {
  return true;
}

void WatchConnection(std::intptr_t socket) {
  const auto set = [socket](int level, int option, int value) {
    setsockopt(static_cast<int>(socket), level, option, &value, sizeof value);
  };
  set(IPPROTO_TCP, TCP_KEEPIDLE, 30);
  set(IPPROTO_TCP, TCP_KEEPINTVL, 10);
  set(IPPROTO_TCP, TCP_KEEPCNT, 3);
  set(SOL_SOCKET, SO_KEEPALIVE, 1);
}

std::size_t ReadStandardInput(char* room, std::size_t size) {
  ssize_t count = 0;
  do {
    count = read(STDIN_FILENO, room, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

FileClaims::FileClaims(const std::filesystem::path& path)
    : handle_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
  if (handle_ == -1) throw std::system_error(errno, std::generic_category());
}

FileClaims::~FileClaims() {
  close(static_cast<int>(handle_));
}

bool FileClaims::Take(std::int64_t part) const {
  // Of the open file, not of the process: the one that other claims of the same process respect.
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = part;
  lock.l_len = 1;
  return fcntl(static_cast<int>(handle_), F_OFD_SETLK, &lock) == 0;
}

bool SharedFile::Open(const std::filesystem::path& path) {
  Close();
  handle_ = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  return IsOpen();
}

void SharedFile::Close() {
  if (IsOpen()) close(static_cast<int>(handle_));
  handle_ = -1;
}

std::int64_t SharedFile::Size() const {
  struct stat status {};
  return fstat(static_cast<int>(handle_), &status) == 0 ? std::int64_t{status.st_size} : 0;
}

std::size_t SharedFile::Read(std::int64_t offset, char* room, std::size_t size) const {
  const ssize_t count = pread(static_cast<int>(handle_), room, size, offset);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

std::optional<SerialErrors> SerialErrorCounter::Take(std::intptr_t handle) {
  serial_icounter_struct counters{};
  if (ioctl(static_cast<int>(handle), TIOCGICOUNT, &counters) != 0) return std::nullopt;
  const SerialErrors now{counters.frame, counters.parity,
                         std::int64_t{counters.overrun} + counters.buf_overrun};
  const SerialErrors before = known_.value_or(now);
  known_ = now;
  return SerialErrors{now.framing - before.framing, now.parity - before.parity,
                      now.overrun - before.overrun};
}

PseudoTerminal::PseudoTerminal() : file_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
  const char* name = nullptr;
  termios settings{};
  const bool done = file_ >= 0 && grantpt(file_) == 0 && unlockpt(file_) == 0 &&
                    (name = ptsname(file_)) != nullptr && tcgetattr(file_, &settings) == 0;
  if (!done) throw std::system_error(errno, std::generic_category());
  // Nothing comes back, and no byte means anything.
  cfmakeraw(&settings);
  tcsetattr(file_, TCSANOW, &settings);
  name_ = name;
}

PseudoTerminal::~PseudoTerminal() {
  close(file_);
}

bool PseudoTerminal::Write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = write(file_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

void PseudoTerminal::AwaitRead() const {
  constexpr timespec kPause{0, 20'000'000};
  constexpr int kMostPauses = 100;  // in which nobody reads
  constexpr int kSettled = 3;       // what was written shows on the other side a moment later
  const int port = open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (port < 0) return;
  int left = 0;
  int before = 0;
  int empty = 0;
  for (int idle = 0; idle < kMostPauses && empty < kSettled && ioctl(port, FIONREAD, &left) == 0;
       ++idle) {
    empty = left == 0 ? empty + 1 : 0;
    if (left != before) idle = 0;
    before = left;
    nanosleep(&kPause, nullptr);
  }
  close(port);
}

}  // namespace conmuta::capture
