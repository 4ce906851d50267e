#include "capture/store_address.h"

#include "capture/odbc_database.h"
#include "capture/sqlite_database.h"

namespace conmuta::capture {

std::filesystem::path PathOf(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

std::string ShownStore(const std::string& address) {
  return IsOdbcAddress(address) ? "de la base de datos" : address;
}

OpenDatabase OpenerForWriting(const std::string& address, Messages& messages) {
  if (IsOdbcAddress(address))
    return [address](Thoroughness) { return OpenOdbc(address, Access::kReadWrite); };
  return [path = PathOf(address), &messages](Thoroughness thoroughness) {
    return OpenSqliteOrSetAside(path, thoroughness, messages);
  };
}

std::unique_ptr<Database> OpenForReading(const std::string& address) {
  if (IsOdbcAddress(address)) return OpenOdbc(address, Access::kReadOnly);
  return OpenSqlite(PathOf(address), Access::kReadOnly, Thoroughness::kQuick);
}

}  // namespace conmuta::capture
