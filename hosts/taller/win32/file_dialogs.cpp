#include "taller/win32/file_dialogs.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

namespace conmuta::taller {
namespace {

constexpr wchar_t kCaptures[] =
    L"Capturas (*.txt; *.log; *.cap)\0*.txt;*.log;*.cap\0Todos los archivos\0*.*\0";
constexpr wchar_t kLayouts[] =
    L"Configuraciones (*.cfg; *.toml; *.ini)\0*.cfg;*.toml;*.ini\0Todos los archivos\0*.*\0";
// In the order of Format.
constexpr wchar_t kTargets[] =
    L"Layout (*.toml)\0*.toml\0Configuración (*.cfg)\0*.cfg\0Archivo de intercambio "
    L"(*.ini)\0*.ini\0";
constexpr std::array<const wchar_t*, 3> kExtensions = {L".toml", L".cfg", L".ini"};

class FileDialog {
 public:
  FileDialog(HWND owner, const wchar_t* title, const wchar_t* filter) {
    request_.lStructSize = sizeof request_;
    request_.hwndOwner = owner;
    request_.lpstrTitle = title;
    request_.lpstrFilter = filter;
    request_.lpstrFile = room_.data();
    request_.nMaxFile = static_cast<DWORD>(room_.size());
    request_.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
  }

  void Name(const std::filesystem::path& path) {
    const std::wstring name = path.wstring();
    if (name.size() < room_.size()) std::copy(name.begin(), name.end(), room_.begin());
  }
  OPENFILENAMEW& request() { return request_; }

  std::optional<std::filesystem::path> Open() {
    request_.Flags |= OFN_FILEMUSTEXIST;
    return Answer(GetOpenFileNameW(&request_));
  }
  std::optional<std::filesystem::path> Save() {
    request_.Flags |= OFN_OVERWRITEPROMPT;
    return Answer(GetSaveFileNameW(&request_));
  }

 private:
  std::optional<std::filesystem::path> Answer(BOOL chosen) const {
    if (!chosen) return std::nullopt;
    return std::filesystem::path(room_.data());
  }

  OPENFILENAMEW request_{};
  std::array<wchar_t, 4096> room_{};
};

}  // namespace

std::optional<std::filesystem::path> AskForCapture(HWND owner) {
  return FileDialog(owner, L"Abrir captura", kCaptures).Open();
}

std::optional<std::filesystem::path> AskForLayout(HWND owner) {
  return FileDialog(owner, L"Abrir configuración", kLayouts).Open();
}

std::optional<Format> FormatOf(const std::filesystem::path& path) {
  for (std::size_t i = 0; i < kExtensions.size(); ++i) {
    if (lstrcmpiW(path.extension().c_str(), kExtensions[i]) == 0) return static_cast<Format>(i);
  }
  return std::nullopt;
}

std::optional<Target> AskWhereToSave(HWND owner, const std::filesystem::path& present,
                                     Format format) {
  FileDialog dialog(owner, L"Guardar configuración como", kTargets);
  dialog.Name(present);
  dialog.request().nFilterIndex = static_cast<DWORD>(format) + 1;
  dialog.request().lpstrDefExt = kExtensions[static_cast<std::size_t>(format)] + 1;
  auto path = dialog.Save();
  if (!path) return std::nullopt;
  // The name decides; where it says nothing, the kind that was chosen.
  const auto chosen = static_cast<std::size_t>(dialog.request().nFilterIndex) - 1;
  const auto named = FormatOf(*path);
  const Format wanted =
      named.value_or(chosen < kExtensions.size() ? static_cast<Format>(chosen) : format);
  return Target{std::move(*path), wanted};
}

}  // namespace conmuta::taller
