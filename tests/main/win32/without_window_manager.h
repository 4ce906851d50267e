// Wine on a screen without a window manager waits two seconds for one whenever a window goes.
#pragma once

#include <windows.h>

#include <string>

namespace conmuta::test {

// Has Wine manage this program's windows itself. To be told before there is any window; elsewhere
// than under Wine nothing happens.
inline void ManageWindowsWithoutManager() {
  if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) return;
  wchar_t program[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::wstring path = program;
  const std::wstring key = L"Software\\Wine\\AppDefaults\\" +
                           path.substr(path.find_last_of(L'\\') + 1) + L"\\X11 Driver";
  HKEY settings = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                      KEY_SET_VALUE, nullptr, &settings, nullptr) != ERROR_SUCCESS) {
    return;
  }
  RegSetValueExW(settings, L"Managed", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"N"), 4);
  RegCloseKey(settings);
}

}  // namespace conmuta::test
