#include "platform/win32/system_profile.h"

#include <windows.h>

#include <array>

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

// A file that the profile functions can name. Without a name nothing is read or written.
class SystemProfile final : public ProfileFile {
 public:
  explicit SystemProfile(std::string name) : name_(std::move(name)) {}

  std::string Read(std::string_view section, std::string_view key) override {
    if (name_.empty()) return {};
    std::array<char, kMostProfileBytes + 1> value;
    const DWORD length =
        GetPrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(), nullptr,
                                 value.data(), static_cast<DWORD>(value.size()), name_.c_str());
    return std::string(value.data(), length);
  }

  bool Write(std::string_view section, std::string_view key, std::string_view value) override {
    return !name_.empty() &&
           WritePrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(),
                                      std::string(value).c_str(), name_.c_str()) > 0;
  }

 private:
  const std::string name_;
};

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

// A file whose path the code page lacks, by way of one that the profile functions can name. They
// cannot do without names in the code page, and not every disk has short names.
class StandInProfile final : public ProfileFile {
 public:
  StandInProfile(const CodePage& code_page, std::wstring path)
      : path_(std::move(path)), stand_in_(code_page), profile_(stand_in_.name()) {}

  void Load() {
    CopyFileW(path_.c_str(), stand_in_.path(), FALSE);
    SetFileAttributesW(stand_in_.path(), FILE_ATTRIBUTE_NORMAL);  // a copy may be read-only
  }

  std::string Read(std::string_view section, std::string_view key) override {
    return profile_.Read(section, key);
  }

  bool Write(std::string_view section, std::string_view key, std::string_view value) override {
    return profile_.Write(section, key, value) &&
           CopyFileW(stand_in_.path(), path_.c_str(), FALSE) != 0;
  }

 private:
  const std::wstring path_;
  TemporaryFile stand_in_;
  SystemProfile profile_;
};

}  // namespace

std::unique_ptr<ProfileFile> SystemProfiles::Open(TextView path) {
  const std::wstring full = FullPath(path);
  std::string name = ExactName(code_page_, full);
  if (full.empty() || !name.empty()) return std::make_unique<SystemProfile>(std::move(name));
  auto profile = std::make_unique<StandInProfile>(code_page_, full);
  profile->Load();
  return profile;
}

std::unique_ptr<ProfileFile> SystemProfiles::Create(TextView path) {
  const std::wstring full = FullPath(path);
  std::string name = ExactName(code_page_, full);
  // What a stand-in replaces goes with its first write.
  if (!full.empty() && name.empty()) return std::make_unique<StandInProfile>(code_page_, full);
  DeleteFileW(full.c_str());
  return std::make_unique<SystemProfile>(std::move(name));
}

}  // namespace conmuta
