#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <exception>
#include <filesystem>
#include <system_error>

#include "platform/platform.h"
#include "taller/disk.h"
#include "taller/win32/main_window.h"

namespace {

// Where the program keeps its own things.
std::filesystem::path OwnFolder() {
  wchar_t path[MAX_PATH] = L"";
  SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path);
  const std::filesystem::path folder = std::filesystem::path(path) / L"Conmuta";
  std::error_code ignored;  // without it nothing is kept
  std::filesystem::create_directories(folder, ignored);
  return folder;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
  try {
    conmuta::taller::SystemDisk disk;
    conmuta::taller::MainWindow window(disk, conmuta::SystemPlatform().clock, OwnFolder());
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
      // The next run may begin in another folder.
      std::error_code error;
      const auto path = std::filesystem::absolute(arguments[i], error);
      window.OpenAny(error ? std::filesystem::path(arguments[i]) : path);
    }
    LocalFree(arguments);
    window.RunModal();
    return 0;
  } catch (const std::exception&) {
    MessageBoxW(nullptr,
                L"El taller tuvo que cerrarse. Lo que no se había guardado se recupera al abrirlo "
                L"otra vez.",
                L"Taller de conmutadores", MB_OK | MB_ICONERROR);
    return 1;
  }
}
