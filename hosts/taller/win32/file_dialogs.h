// Asking for files.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

#include "taller/layout_files.h"

namespace conmuta::taller {

// Nothing when the person leaves the dialog.
std::optional<std::filesystem::path> AskForCapture(HWND owner);
std::optional<std::filesystem::path> AskForLayout(HWND owner);

struct Target {
  std::filesystem::path path;
  Format format;
};
std::optional<Target> AskWhereToSave(HWND owner, const std::filesystem::path& present,
                                     Format format);

// What the name of a file says of its form.
std::optional<Format> FormatOf(const std::filesystem::path& path);

}  // namespace conmuta::taller
