#include "platform/win32/system_profile.h"

#include <windows.h>

#include <array>

namespace conmuta {
namespace {

// The system looks for a path without a folder among its own files; the full path names the file
// that every other function would find.
Text FullPath(TextView path) {
  const std::wstring given(path.begin(), path.end());
  std::wstring full(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return Text(full.begin(), full.end());
}

class SystemProfile final : public ProfileFile {
 public:
  explicit SystemProfile(std::string path) : path_(std::move(path)) {}

  std::string Read(std::string_view section, std::string_view key) override {
    std::array<char, kMostProfileBytes + 1> value;
    const DWORD length =
        GetPrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(), nullptr,
                                 value.data(), static_cast<DWORD>(value.size()), path_.c_str());
    return std::string(value.data(), length);
  }

  bool Write(std::string_view section, std::string_view key, std::string_view value) override {
    return WritePrivateProfileStringA(std::string(section).c_str(), std::string(key).c_str(),
                                      std::string(value).c_str(), path_.c_str()) > 0;
  }

 private:
  const std::string path_;
};

}  // namespace

std::unique_ptr<ProfileFile> SystemProfiles::Open(TextView path) {
  const bool names_a_file = path.find(kNul) == TextView::npos && !path.empty();
  return std::make_unique<SystemProfile>(names_a_file ? code_page_.ToBytes(FullPath(path))
                                                      : std::string());
}

}  // namespace conmuta
