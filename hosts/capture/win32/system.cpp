#include "capture/system.h"

#include <winsock2.h>
// Behind winsock2.h.
#include <windows.h>

#include <mstcpip.h>

#include <array>

#include "platform/unicode.h"

namespace conmuta::capture {
namespace {

HANDLE HandleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

}  // namespace

// The library's own text is in the ANSI code page.
std::string SystemText(const std::error_code& error) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, static_cast<DWORD>(error.value()), 0, text.data(), text.size(), nullptr);
  const TextView view(reinterpret_cast<const char16_t*>(text.data()), length);
  if (view.empty()) return "error " + std::to_string(error.value());
  return ToUtf8(TrimRight(view)).value_or("?");
}

bool ReuseIsSafe() {
  return false;
}

// How often it is asked is the system's own affair before Windows 10: ten times.
void WatchConnection(std::intptr_t socket) {
  tcp_keepalive wish{1, 30'000, 10'000};
  DWORD answered = 0;
  WSAIoctl(static_cast<SOCKET>(socket), SIO_KEEPALIVE_VALS, &wish, sizeof wish, nullptr, 0,
           &answered, nullptr, nullptr);
  constexpr int kTimesAsked = 16;  // TCP_KEEPCNT
  const DWORD times = 3;
  setsockopt(static_cast<SOCKET>(socket), IPPROTO_TCP, kTimesAsked,
             reinterpret_cast<const char*>(&times), sizeof times);
}

std::size_t ReadStandardInput(char* room, std::size_t size) {
  DWORD count = 0;
  if (!ReadFile(GetStdHandle(STD_INPUT_HANDLE), room, static_cast<DWORD>(size), &count, nullptr)) {
    return 0;
  }
  return count;
}

FileClaims::FileClaims(const std::filesystem::path& path)
    : handle_(reinterpret_cast<std::intptr_t>(CreateFileW(
          path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
          OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))) {
  if (handle_ == -1) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
}

FileClaims::~FileClaims() {
  CloseHandle(HandleOf(handle_));
}

bool FileClaims::Take(std::int64_t part) const {
  OVERLAPPED at{};
  at.Offset = static_cast<DWORD>(part);
  at.OffsetHigh = static_cast<DWORD>(part >> 32);
  return LockFileEx(HandleOf(handle_), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                    &at) != FALSE;
}

bool SharedFile::Open(const std::filesystem::path& path) {
  Close();
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  handle_ = reinterpret_cast<std::intptr_t>(file);
  return IsOpen();
}

void SharedFile::Close() {
  if (IsOpen()) CloseHandle(HandleOf(handle_));
  handle_ = -1;
}

std::int64_t SharedFile::Size() const {
  LARGE_INTEGER size{};
  return GetFileSizeEx(HandleOf(handle_), &size) ? size.QuadPart : 0;
}

std::size_t SharedFile::Read(std::int64_t offset, char* room, std::size_t size) const {
  OVERLAPPED at{};
  at.Offset = static_cast<DWORD>(offset);
  at.OffsetHigh = static_cast<DWORD>(offset >> 32);
  DWORD count = 0;
  return ReadFile(HandleOf(handle_), room, static_cast<DWORD>(size), &count, &at) ? count : 0;
}

// The system says which errors there were, not how many.
std::optional<SerialErrors> SerialErrorCounter::Take(std::intptr_t handle) {
  DWORD errors = 0;
  if (!ClearCommError(HandleOf(handle), &errors, nullptr)) return std::nullopt;
  return SerialErrors{(errors & CE_FRAME) != 0, (errors & CE_RXPARITY) != 0,
                      (errors & (CE_OVERRUN | CE_RXOVER)) != 0};
}

PseudoTerminal::PseudoTerminal() {
  throw std::system_error(ERROR_NOT_SUPPORTED, std::system_category());
}

PseudoTerminal::~PseudoTerminal() = default;

bool PseudoTerminal::Write(std::string_view) const {
  return false;
}

void PseudoTerminal::AwaitRead() const {}

}  // namespace conmuta::capture
