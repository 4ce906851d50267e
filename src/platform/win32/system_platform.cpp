#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>

#include "platform/minute_clock.h"
#include "platform/platform.h"
#include "platform/win32/flush.h"
#include "platform/win32/system_profile.h"

namespace conmuta {
namespace {

// The system's time costs a call, its count of ticks a look at memory: the time is asked for only
// when the ticks have moved, every 16 milliseconds or less.
class WindowsTime {
 public:
  std::int64_t Minute() const {
    const std::uint64_t ticks = GetTickCount64() & kTicks;
    std::uint64_t known = known_.load(std::memory_order_relaxed);
    if ((known & kTicks) != ticks || known == 0) {
      known = static_cast<std::uint64_t>(MinuteNow()) << kTickBits | ticks;
      known_.store(known, std::memory_order_relaxed);
    }
    return static_cast<std::int64_t>(known >> kTickBits);
  }

  CivilDate Today() const {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay};
  }

 private:
  static constexpr unsigned kTickBits = 40;  // 34 years; what is left holds as many minutes
  static constexpr std::uint64_t kTicks = (std::uint64_t{1} << kTickBits) - 1;

  static std::int64_t MinuteNow() {
    constexpr std::int64_t kUnitsPerMinute = 600'000'000;
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return (std::int64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime) / kUnitsPerMinute;
  }

  // Minute and ticks of the last look at the time, in one word for all threads.
  mutable std::atomic<std::uint64_t> known_ = 0;
};

// The system's ANSI code page.
class SystemCodePage final : public CodePage {
 public:
  std::string ToBytes(TextView text) const override {
    if (text.empty()) return {};
    // UTF-8 takes neither the flag nor a replacement; it has no character to replace.
    const bool is_utf8 = GetACP() == CP_UTF8;
    const DWORD flags = is_utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* replacement = is_utf8 ? nullptr : "?";
    const auto* source = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_ACP, flags, source, length, nullptr, 0, replacement, nullptr);
    std::string bytes(static_cast<std::size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_ACP, flags, source, length, bytes.data(), size, replacement, nullptr);
    return bytes;
  }

  Text FromBytes(std::string_view bytes) const override {
    if (bytes.empty()) return {};
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    Text text(static_cast<std::size_t>(std::max(size, 0)), kNul);
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, reinterpret_cast<wchar_t*>(text.data()),
                        size);
    return text;
  }
};

class FileHandle {
 public:
  explicit FileHandle(HANDLE handle) : handle_(handle) {}
  ~FileHandle() { Close(); }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }
  void Close() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

// A terminated path for the system; empty, which names no file, when the path holds a NUL or is
// longer than any.
class NativePath {
 public:
  explicit NativePath(TextView path) {
    const bool is_path = path.size() < path_.size() && path.find(kNul) == TextView::npos;
    *std::copy_n(path.begin(), is_path ? path.size() : 0, path_.begin()) = L'\0';
  }
  const wchar_t* get() const { return path_.data(); }

 private:
  static constexpr std::size_t kMostCharacters = 32768;
  std::array<wchar_t, kMostCharacters> path_;  // only up to the NUL
};

// Walks the entries that match a pattern.
class Search {
 public:
  explicit Search(const wchar_t* pattern)
      : handle_(FindFirstFileW(pattern, &entry_)), found_(handle_ != INVALID_HANDLE_VALUE) {}
  ~Search() {
    if (handle_ != INVALID_HANDLE_VALUE) FindClose(handle_);
  }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  explicit operator bool() const { return found_; }
  std::wstring_view name() const { return entry_.cFileName; }
  void Next() { found_ = FindNextFileW(handle_, &entry_) != 0; }

 private:
  WIN32_FIND_DATAW entry_{};
  const HANDLE handle_;
  bool found_;
};

class WindowsFiles final : public FileSystem {
 public:
  std::optional<std::uint32_t> Attributes(TextView path) override {
    const DWORD attributes = GetFileAttributesW(NativePath(path).get());
    if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return attributes;
  }

  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    const FileHandle file(CreateFileW(NativePath(path).get(), GENERIC_READ, FILE_SHARE_READ,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.get(), &size)) return std::nullopt;
    FileContent content;
    content.size = static_cast<std::uint64_t>(size.QuadPart);
    content.bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(content.size, limit)));
    DWORD read = 0;
    if (!ReadFile(file.get(), content.bytes.data(), static_cast<DWORD>(content.bytes.size()), &read,
                  nullptr)) {
      return std::nullopt;
    }
    content.bytes.resize(read);
    return content;
  }

  bool Write(TextView path, std::string_view bytes) override {
    const NativePath name(path);
    FileHandle file(CreateFileW(name.get(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_ARCHIVE, nullptr));
    if (!file) return false;
    DWORD written = 0;
    const bool complete =
        WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
        written == bytes.size() && Flush(file.get());
    file.Close();
    if (!complete) DeleteFileW(name.get());
    return complete;
  }

  bool Remove(TextView path) override { return DeleteFileW(NativePath(path).get()) != 0; }

  bool Copy(TextView from, TextView to) override {
    const NativePath target(to);
    if (!CopyFileW(NativePath(from).get(), target.get(), FALSE)) return false;
    const DWORD attributes = GetFileAttributesW(target.get());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
      SetFileAttributesW(target.get(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    return true;
  }

  std::vector<Text> List(TextView pattern) override {
    std::vector<Text> names;
    for (Search search(NativePath(pattern).get()); search; search.Next()) {
      names.emplace_back(search.name().begin(), search.name().end());
    }
    return names;
  }

  Text LastError() const override {
    std::array<wchar_t, 512> message{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, GetLastError(), 0, message.data(),
                                        static_cast<DWORD>(message.size()), nullptr);
    std::wstring_view text(message.data(), length);
    while (!text.empty() && text.back() <= L' ') text.remove_suffix(1);  // it ends the line
    return Text(text.begin(), text.end());
  }

  Text CurrentDirectory() const override {
    std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return Text(path.begin(), path.end());
  }
  void CurrentDirectory(TextView path) override { SetCurrentDirectoryW(NativePath(path).get()); }
};

}  // namespace

const Platform& SystemPlatform() {
  static WindowsFiles files;
  static const MinuteClock<WindowsTime> clock;
  static const SystemCodePage code_page;
  static SystemProfiles profiles(code_page);
  static const Platform platform{files, clock, code_page, profiles};
  return platform;
}

}  // namespace conmuta
