// A store in a database server, by the driver that the system has for it.
#pragma once

#include <memory>
#include <string>

#include "capture/database.h"

namespace conmuta::capture {

// Whether a store's address is one of ODBC's: "DRIVER={PostgreSQL Unicode};Servername=…;…" or
// "DSN=…;…".
bool IsOdbcAddress(const std::string& address);

// Connects. StoreError kFailed. Whoever writes is not kept waiting for long by a server that does
// not answer, or by locks of a client that vanished.
std::unique_ptr<Database> OpenOdbc(const std::string& address, Access access);

}  // namespace conmuta::capture
