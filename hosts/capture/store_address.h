// Which store, as a person names it.
#pragma once

#include <filesystem>
#include <string>

#include "capture/database.h"
#include "capture/messages.h"

namespace conmuta::capture {

// A path of the system, from UTF-8.
std::filesystem::path PathOf(const std::string& utf8);

// What of an address may be shown: that of a database has a password in it.
std::string ShownStore(const std::string& address);

// Writing into a store: one that is damaged is set aside.
OpenDatabase OpenerForWriting(const std::string& address, Messages& messages);

// Opens a store that is there. StoreError.
std::unique_ptr<Database> OpenForReading(const std::string& address);

}  // namespace conmuta::capture
