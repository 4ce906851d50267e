#include "platform/win32/system_profile.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>

#include "platform/win32/flush.h"

namespace conmuta {
namespace {

Text ToText(const std::wstring& path) {
  return Text(path.begin(), path.end());
}

// What a function of the system writes that is asked twice, first for the length; empty when it
// fails.
template <class Function>
std::wstring Answer(Function ask) {
  std::wstring answer(ask(nullptr, 0), L'\0');
  answer.resize(ask(answer.data(), static_cast<DWORD>(answer.size())));
  return answer;
}

// The system looks for a path without a folder among its own files; the full path names the file
// that every other function would find. Empty when the path names no file.
std::wstring FullPath(TextView path) {
  if (path.find(kNul) != TextView::npos) return {};
  const std::wstring given(path.begin(), path.end());
  return Answer([&](wchar_t* full, DWORD size) {
    return GetFullPathNameW(given.c_str(), size, full, nullptr);
  });
}

// The bytes that name this very file; empty when the code page lacks a character of it.
std::string ExactName(const CodePage& code_page, const std::wstring& path) {
  const Text text = ToText(path);
  std::string name = code_page.ToBytes(text);
  if (code_page.FromBytes(name) != text) name.clear();
  return name;
}

bool WriteValue(const std::string& name, const ProfileValue& value) {
  return WritePrivateProfileStringA(value.section.c_str(), value.key.c_str(), value.value.c_str(),
                                    name.c_str()) > 0;
}

// An empty file among the temporary ones, whose name the code page has; deleted in the end.
class TemporaryFile {
 public:
  explicit TemporaryFile(const CodePage& code_page) {
    const std::wstring folder =
        Answer([](wchar_t* path, DWORD size) { return GetTempPathW(size, path); });
    std::array<wchar_t, MAX_PATH + 1> path{};
    if (GetTempFileNameW(folder.c_str(), L"cnm", 0, path.data()) == 0) return;
    path_ = path.data();
    name_ = ExactName(code_page, path_);
    if (!name_.empty()) return;
    // A user's name may lack in the code page; a file that exists has a short name, too.
    name_ = ExactName(code_page, Answer([&](wchar_t* short_path, DWORD size) {
                        return GetShortPathNameW(path_.c_str(), short_path, size);
                      }));
  }
  ~TemporaryFile() {
    if (!path_.empty()) DeleteFileW(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  // Empty when there is no such file, or no such name for it.
  const std::string& name() const { return name_; }
  const wchar_t* path() const { return path_.c_str(); }

 private:
  std::wstring path_;
  std::string name_;
};

// A file with the name under which the profile functions reach it. They cannot do without names in
// the code page, and not every disk has short names: where a path has none, a temporary file stands
// in for it.
class SystemProfile final : public ProfileFile {
 public:
  SystemProfile(const CodePage& code_page, TextView path)
      : path_(FullPath(path)), name_(ExactName(code_page, path_)) {
    if (path_.empty() || !name_.empty()) return;
    stand_in_.emplace(code_page);
    name_ = stand_in_->name();
  }

  // What the stand-in stands for is in it.
  void Load() {
    if (!stand_in_) return;
    CopyFileW(path_.c_str(), stand_in_->path(), FALSE);
    SetFileAttributesW(stand_in_->path(), FILE_ATTRIBUTE_NORMAL);  // a copy may be read-only
  }

  std::string Read(std::string_view section, std::string_view key) override {
    if (name_.empty()) return {};
    std::array<char, kMostProfileBytes + 1> value;
    const DWORD length =
        GetPrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(), nullptr,
                                 value.data(), static_cast<DWORD>(value.size()), name_.c_str());
    return std::string(value.data(), length);
  }

  bool Write(const ProfileValue& value) override { return WriteAll({&value, 1}); }

  bool Replace(std::span<const ProfileValue> values) {
    if (name_.empty()) return false;
    DeleteFileW(path_.c_str());
    return WriteAll(values) && FlushAll();
  }

 private:
  // Takes no memory of ours.
  bool WriteAll(std::span<const ProfileValue> values) {
    if (name_.empty()) return false;
    const bool written = std::all_of(values.begin(), values.end(), [&](const ProfileValue& value) {
      return WriteValue(name_, value);
    });
    // As far as it came.
    const bool there = !stand_in_ || CopyFileW(stand_in_->path(), path_.c_str(), FALSE) != 0;
    return written && there;
  }

  // The profile functions do not wait for the disk. They have written everything by now: somebody
  // who looks at the file at this very moment makes that no failure.
  bool FlushAll() const {
    const HANDLE file = CreateFileW(path_.c_str(), GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    const bool flushed = Flush(file);
    CloseHandle(file);
    return flushed;
  }

  const std::wstring path_;
  std::string name_;  // empty: nothing is read or written
  std::optional<TemporaryFile> stand_in_;
};

}  // namespace

std::unique_ptr<ProfileFile> SystemProfiles::Open(TextView path) {
  auto profile = std::make_unique<SystemProfile>(code_page_, path);
  profile->Load();
  return profile;
}

bool SystemProfiles::Replace(TextView path, std::span<const ProfileValue> values) {
  return SystemProfile(code_page_, path).Replace(values);
}

}  // namespace conmuta
