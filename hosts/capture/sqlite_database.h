// A store in a file of its own.
#pragma once

#include <filesystem>
#include <string>

#include "capture/database.h"
#include "capture/messages.h"

namespace conmuta::capture {

// Opens the file, for writing with a log that is flushed at each commit. kChecked looks through all
// of it. StoreError kDamaged when it is no database. `vfs` names SQLite's file layer; the usual one
// when it is null.
std::unique_ptr<Database> OpenSqlite(const std::filesystem::path& path, Access access,
                                     Thoroughness thoroughness, const char* vfs = nullptr);

// The same for writing; a damaged file is renamed, with what belongs to it, told of, and a new one
// made in its place.
std::unique_ptr<Database> OpenSqliteOrSetAside(const std::filesystem::path& path,
                                               Thoroughness thoroughness, Messages& messages,
                                               const char* vfs = nullptr);

}  // namespace conmuta::capture
