// Files that a host works with, and the numbers under which their failures are known.
#pragma once

#include <optional>
#include <string>

#include "component/scratch_files.h"
#include "windows/samples.h"

namespace conmuta::test {

inline constexpr HRESULT kCannotWrite = static_cast<HRESULT>(0x800405DC);
inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x800405DD);
inline constexpr HRESULT kExportFailed = static_cast<HRESULT>(0x800405DF);
inline constexpr HRESULT kImportFailed = static_cast<HRESULT>(0x800405E0);
inline constexpr HRESULT kCannotOpen = static_cast<HRESULT>(0x800405E1);

inline std::optional<std::string> FileIn(const ScratchFolder& folder, TextView name) {
  if (!folder.Exists(name)) return std::nullopt;
  return folder.Bytes(name);
}

// All that a configuration holds: the bytes of a file of it.
inline std::string ContentOf(const ComPtr<Cfg>& config, const ScratchFolder& folder) {
  Do(config, &Cfg::GuardarComo, folder.Path(u"content.tmp"));
  return folder.Bytes(u"content.tmp");
}

}  // namespace conmuta::test
