#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

#include "platform/minute_clock.h"
#include "platform/platform.h"
#include "platform/posix/native_path.h"
#include "platform/text_profile.h"
#include "platform/windows1252.h"

namespace conmuta {
namespace {

class PosixTime {
 public:
  std::int64_t Minute() const { return std::time(nullptr) / 60; }

  CivilDate Today() const {
    tzset();  // localtime_r alone would never look at the zone again
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
  }
};

// Windows-1252. Its five undefined bytes stand for the control of the same code, both ways.
class Windows1252 final : public CodePage {
 public:
  std::string ToBytes(TextView text) const override {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t c : text) bytes.push_back(static_cast<char>(ToByte(c)));
    return bytes;
  }

  Text FromBytes(std::string_view bytes) const override {
    Text text;
    text.reserve(bytes.size());
    for (const char b : bytes) text.push_back(CharacterOfWindows1252(b));
    return text;
  }

 private:
  static unsigned char ToByte(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<unsigned char>(c);
    for (std::size_t i = 0; i < kWindows1252Upper.size(); ++i) {
      if (kWindows1252Upper[i] == c) return static_cast<unsigned char>(0x80 + i);
    }
    return '?';
  }
};

// An open file; opening may have failed.
class Descriptor {
 public:
  Descriptor(TextView path, int flags)
      : file_(open(NativePath(path).get(), flags | O_CLOEXEC, 0666)) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  explicit operator bool() const { return file_ >= 0; }
  int get() const { return file_; }

  // Fills the room as far as the file reaches; gives how much that is, nothing when reading fails.
  std::optional<std::size_t> Read(std::span<char> room) const {
    std::size_t done = 0;
    while (done < room.size()) {
      const ssize_t count = read(file_, room.data() + done, room.size() - done);
      if (count < 0) return std::nullopt;
      if (count == 0) break;
      done += static_cast<std::size_t>(count);
    }
    return done;
  }

  bool Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = write(file_, bytes.data(), bytes.size());
      if (count <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
  }

  // Waits until the disk has what was written. What is no file of a disk has nothing to wait for.
  bool Flush() const {
    return fsync(file_) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
  }

  bool Close() { return file_ < 0 || close(std::exchange(file_, -1)) == 0; }

 private:
  int file_;
};

// Whether it is a file and no folder or the like, with its size.
std::optional<std::uint64_t> SizeOf(const Descriptor& file) {
  struct stat status {};
  if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return static_cast<std::uint64_t>(status.st_size);
}

class PosixFiles final : public FileSystem {
 public:
  std::optional<std::uint32_t> Attributes(TextView path) override {
    struct stat status {};
    const NativePath name(path);
    if (stat(name.get(), &status) != 0) return std::nullopt;
    // There is no archive bit here; plain files answer as freshly written ones do on Windows.
    std::uint32_t attributes = S_ISDIR(status.st_mode) ? kAttributeDirectory : kAttributeArchive;
    if (access(name.get(), W_OK) != 0) attributes |= kAttributeReadOnly;
    return attributes;
  }

  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    const Descriptor file(path, O_RDONLY);
    const auto size = SizeOf(file);
    if (!size) return std::nullopt;
    FileContent content{
        *size, std::string(static_cast<std::size_t>(std::min<std::uint64_t>(*size, limit)), '\0')};
    const auto count = file.Read(content.bytes);
    if (!count) return std::nullopt;
    content.bytes.resize(*count);
    return content;
  }

  bool Write(TextView path, std::string_view bytes) override {
    return Create(path, [&](const Descriptor& file) { return file.Write(bytes); });
  }

  bool Remove(TextView path) override { return unlink(NativePath(path).get()) == 0; }

  bool Copy(TextView from, TextView to) override {
    const Descriptor source(from, O_RDONLY);
    return SizeOf(source) && Create(to, [&](const Descriptor& target) {
             std::array<char, 4096> room;
             std::optional<std::size_t> count;
             do {
               count = source.Read(room);
               if (!count || !target.Write({room.data(), *count})) return false;
             } while (*count == room.size());
             return true;
           });
  }

  std::vector<Text> List(TextView pattern) override {
    const std::size_t slash = pattern.rfind(u'/');
    const TextView folder = slash != TextView::npos ? pattern.substr(0, slash + 1) : u"./";
    const TextView name_pattern = pattern.substr(slash + 1);
    const std::size_t star = name_pattern.find(u'*');
    const TextView begin = name_pattern.substr(0, star);
    const TextView end = star != TextView::npos ? name_pattern.substr(star + 1) : TextView();
    std::vector<Text> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(NativePath(folder).get(), error)) {
      Text name = entry.path().filename().u16string();
      const bool matches = star == TextView::npos
                               ? name == name_pattern
                               : name.size() >= begin.size() + end.size() &&
                                     name.starts_with(begin) && name.ends_with(end);
      if (matches) names.push_back(std::move(name));
    }
    return names;
  }

  Text LastError() const override {
    return std::filesystem::path(std::generic_category().message(errno)).u16string();
  }

  Text CurrentDirectory() const override {
    std::error_code error;
    return std::filesystem::current_path(error).u16string();
  }
  void CurrentDirectory(TextView path) override {
    std::error_code error;
    std::filesystem::current_path(NativePath(path).get(), error);
  }

 private:
  // A file that cannot be filled does not stay.
  template <class Fill>
  static bool Create(TextView path, Fill fill) {
    Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file) return false;
    const bool filled = fill(file) && file.Flush();
    if (file.Close() && filled) return true;
    unlink(NativePath(path).get());
    return false;
  }
};

}  // namespace

const Platform& SystemPlatform() {
  static PosixFiles files;
  static const MinuteClock<PosixTime> clock;
  static const Windows1252 code_page;
  static TextProfiles profiles(files, code_page);
  static const Platform platform{files, clock, code_page, profiles};
  return platform;
}

}  // namespace conmuta
