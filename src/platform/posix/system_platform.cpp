#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/minute_clock.h"
#include "platform/platform.h"
#include "platform/posix/native_path.h"
#include "platform/text_profile.h"

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
    for (const char b : bytes) {
      const auto code = static_cast<unsigned char>(b);
      text.push_back(code >= 0x80 && code <= 0x9F ? kUpperControls[code - 0x80] : char16_t{code});
    }
    return text;
  }

 private:
  static unsigned char ToByte(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<unsigned char>(c);
    for (std::size_t i = 0; i < kUpperControls.size(); ++i) {
      if (kUpperControls[i] == c) return static_cast<unsigned char>(0x80 + i);
    }
    return '?';
  }

  // The characters of the bytes 80 to 9F.
  static constexpr std::array<char16_t, 32> kUpperControls = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
};

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

class PosixFiles final : public FileSystem {
 public:
  std::optional<std::uint32_t> Attributes(TextView path) override {
    struct stat status {};
    const auto name = NativePath(path);
    if (!name || stat(name->c_str(), &status) != 0) return std::nullopt;
    // There is no archive bit here; plain files answer as freshly written ones do on Windows.
    std::uint32_t attributes = S_ISDIR(status.st_mode) ? kAttributeDirectory : kAttributeArchive;
    if (access(name->c_str(), W_OK) != 0) attributes |= kAttributeReadOnly;
    return attributes;
  }

  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    const auto name = NativePath(path);
    if (!name) return std::nullopt;
    const File file(std::fopen(name->c_str(), "rb"));
    struct stat status {};
    if (!file || fstat(fileno(file.get()), &status) != 0 || !S_ISREG(status.st_mode)) {
      return std::nullopt;
    }
    FileContent content;
    content.size = static_cast<std::uint64_t>(status.st_size);
    content.bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(content.size, limit)));
    content.bytes.resize(std::fread(content.bytes.data(), 1, content.bytes.size(), file.get()));
    if (std::ferror(file.get()) != 0) return std::nullopt;
    return content;
  }

  bool Write(TextView path, std::string_view bytes) override {
    const auto name = NativePath(path);
    if (!name) return false;
    File file(std::fopen(name->c_str(), "wb"));
    if (!file) return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    const bool closed = std::fclose(file.release()) == 0;
    if (written && closed) return true;
    std::remove(name->c_str());
    return false;
  }

  bool Remove(TextView path) override {
    const auto name = NativePath(path);
    return name && unlink(name->c_str()) == 0;
  }

  bool Copy(TextView from, TextView to) override {
    const auto content = Read(from, SIZE_MAX);
    return content && Write(to, content->bytes);
  }

  std::vector<Text> List(TextView pattern) override {
    const std::size_t slash = pattern.rfind(u'/');
    const TextView folder = slash != TextView::npos ? pattern.substr(0, slash + 1) : u"./";
    const TextView name_pattern = pattern.substr(slash + 1);
    const std::size_t star = name_pattern.find(u'*');
    const TextView begin = name_pattern.substr(0, star);
    const TextView end = star != TextView::npos ? name_pattern.substr(star + 1) : TextView();
    std::vector<Text> names;
    const auto path = NativePath(folder);
    std::error_code error;
    if (!path) return names;
    for (const auto& entry : std::filesystem::directory_iterator(*path, error)) {
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
    if (const auto name = NativePath(path)) std::filesystem::current_path(*name, error);
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
