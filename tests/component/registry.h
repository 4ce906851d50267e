// The registry as tests look at it, and a registry of their own to write into.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace conmuta::test {

// Every key and value below a key, one line each, sorted: "key" or "key [value] = text".
using Snapshot = std::vector<std::wstring>;

inline void AppendKeys(HKEY key, const std::wstring& path, Snapshot& lines) {
  wchar_t name[512];
  for (DWORD i = 0;; ++i) {
    DWORD length = 512;
    BYTE data[2048] = {};
    DWORD size = sizeof data - sizeof(wchar_t);
    DWORD type = 0;
    if (RegEnumValueW(key, i, name, &length, nullptr, &type, data, &size) != ERROR_SUCCESS) break;
    const std::wstring text =
        type == REG_SZ ? reinterpret_cast<const wchar_t*>(data) : L"<no text>";
    lines.push_back(path + L" [" + name + L"] = " + text);
  }
  for (DWORD i = 0;; ++i) {
    DWORD length = 512;
    if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
      break;
    }
    const std::wstring child = path.empty() ? name : path + L"\\" + name;
    lines.push_back(child);
    HKEY opened = nullptr;
    if (RegOpenKeyExW(key, name, 0, KEY_READ, &opened) != ERROR_SUCCESS) continue;
    AppendKeys(opened, child, lines);
    RegCloseKey(opened);
  }
}

inline Snapshot SnapshotOf(HKEY root, const std::wstring& path) {
  Snapshot lines;
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return lines;
  AppendKeys(key, L"", lines);
  RegCloseKey(key);
  std::sort(lines.begin(), lines.end());
  return lines;
}

// The text of a value; empty without one.
inline std::wstring ValueOf(HKEY root, const std::wstring& path, const wchar_t* name = nullptr) {
  wchar_t text[1024] = {};
  DWORD size = sizeof text - sizeof(wchar_t);
  RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
  return text;
}

// While one lives, this process finds an empty registry in the place of a root key.
class EmptyRegistry {
 public:
  explicit EmptyRegistry(HKEY root)
      : root_(root),
        path_(L"Software\\ConmutaTests\\" + std::to_wstring(GetCurrentProcessId()) + L"-" +
              std::to_wstring(reinterpret_cast<UINT_PTR>(root) & 0xF)) {
    RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                    nullptr);
    RegOverridePredefKey(root_, key_);
  }
  ~EmptyRegistry() {
    RegOverridePredefKey(root_, nullptr);
    RegDeleteTreeW(key_, nullptr);
    RegCloseKey(key_);
    RegDeleteKeyW(HKEY_CURRENT_USER, path_.c_str());
    RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\ConmutaTests");  // the last one's goes
  }
  EmptyRegistry(const EmptyRegistry&) = delete;
  EmptyRegistry& operator=(const EmptyRegistry&) = delete;

  HKEY key() const { return key_; }

  void Add(const std::wstring& path, DWORD options = 0) const {
    HKEY added = nullptr;
    RegCreateKeyExW(key_, path.c_str(), 0, nullptr, options, KEY_ALL_ACCESS, nullptr, &added,
                    nullptr);
    RegCloseKey(added);
  }

  // From here on the root key is a deleted one: every call below it fails.
  void Break() const {
    RegDeleteTreeW(key_, nullptr);
    RegDeleteKeyW(key_, L"");
  }

  // What is below Software\Classes.
  Snapshot Classes() const { return SnapshotOf(key_, L"Software\\Classes"); }

 private:
  HKEY root_;
  std::wstring path_;
  HKEY key_ = nullptr;
};

}  // namespace conmuta::test
