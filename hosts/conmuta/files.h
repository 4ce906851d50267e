// Files of the system: found, read and written, with a sentence where that fails.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "platform/calendar.h"
#include "platform/text.h"

namespace conmuta::host {

// An argument, which is UTF-8, as a path, and a path as something to be shown.
std::filesystem::path PathOf(std::string_view argument);
// As the core takes names; UserError for one that has no letters.
Text CorePath(const std::filesystem::path& path);

std::string ShownPath(const std::filesystem::path& path);

// All raise UserError, which names the file and what is the matter with it.

std::ifstream OpenToRead(const std::filesystem::path& path);
// A file of more than `most` bytes is none of those that are read whole.
std::string ReadWhole(const std::filesystem::path& path, std::size_t most = 16 << 20);

// What may happen to a file that is there.
enum class Existing { kStays, kIsReplaced };

// Nothing is there that would be lost, or it may be.
void CheckMayWrite(const std::filesystem::path& path, Existing existing);
// Opens a file to be written, checked as above.
std::ofstream OpenToWrite(const std::filesystem::path& path, Existing existing);
void WriteWhole(const std::filesystem::path& path, std::string_view bytes, Existing existing);
void MakeFolder(const std::filesystem::path& path);

// The day on which a file was last written, here.
CivilDate DateOfFile(const std::filesystem::path& path);

}  // namespace conmuta::host
