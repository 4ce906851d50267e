// Files that a test writes and reads as bytes, in a folder of its own.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "host.h"

namespace conmuta::test {

class ScratchFolder {
 public:
  ScratchFolder() {
    wchar_t temporary[MAX_PATH + 1];
    GetTempPathW(MAX_PATH + 1, temporary);
    folder_ = std::wstring(temporary) + L"conmuta-" + std::to_wstring(GetCurrentProcessId());
    CreateDirectoryW(folder_.c_str(), nullptr);
  }
  ~ScratchFolder() {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder_ + L"\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
      do {
        const std::wstring path = folder_ + L"\\" + found.cFileName;
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(path.c_str());
      } while (FindNextFileW(search, &found));
      FindClose(search);
    }
    RemoveDirectoryW(folder_.c_str());
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  Text Path(TextView name) const { return FromWide(folder_) + u"\\" + Text(name); }

  bool Exists(TextView name) const {
    return GetFileAttributesW(Wide(Path(name)).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  void Write(TextView name, std::string_view bytes) const {
    const HANDLE file = CreateFileW(Wide(Path(name)).c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_ARCHIVE, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    ASSERT_EQ(written, bytes.size());
  }

  std::string Bytes(TextView name) const {
    std::string bytes;
    const HANDLE file = CreateFileW(Wide(Path(name)).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return bytes;
    bytes.resize(GetFileSize(file, nullptr));
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    return bytes;
  }

 private:
  std::wstring folder_;
};

}  // namespace conmuta::test
