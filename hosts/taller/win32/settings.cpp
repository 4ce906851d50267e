#include "taller/win32/settings.h"

#include <windows.h>

#include <array>
#include <string>

namespace conmuta::taller {
namespace {

constexpr wchar_t kSection[] = L"ventana";

}  // namespace

Settings::Settings(const std::filesystem::path& folder) : file_(folder / "taller.ini") {
  const auto number = [this](const wchar_t* key, int otherwise) {
    return static_cast<int>(GetPrivateProfileIntW(kSection, key, otherwise, file_.c_str()));
  };
  const auto path = [this](const wchar_t* key) {
    std::array<wchar_t, 1024> text{};
    GetPrivateProfileStringW(kSection, key, L"", text.data(), static_cast<DWORD>(text.size()),
                             file_.c_str());
    return std::filesystem::path(text.data());
  };
  width = number(L"ancho", 0);
  height = number(L"alto", 0);
  maximised = number(L"maximizada", 0) != 0;
  layout_width = number(L"ancho_layout", 0);
  result_height = number(L"alto_resultado", 0);
  zoom = number(L"acercamiento", 0);
  ended = number(L"cerrada", 1) != 0;
  layout = path(L"configuracion");
  capture = path(L"captura");
}

void Settings::Write() const {
  const auto write = [this](const wchar_t* key, const std::wstring& value) {
    WritePrivateProfileStringW(kSection, key, value.c_str(), file_.c_str());
  };
  write(L"ancho", std::to_wstring(width));
  write(L"alto", std::to_wstring(height));
  write(L"maximizada", std::to_wstring(maximised));
  write(L"ancho_layout", std::to_wstring(layout_width));
  write(L"alto_resultado", std::to_wstring(result_height));
  write(L"acercamiento", std::to_wstring(zoom));
  write(L"cerrada", std::to_wstring(ended));
  write(L"configuracion", layout.wstring());
  write(L"captura", capture.wstring());
}

}  // namespace conmuta::taller
