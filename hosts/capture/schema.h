// The tables of a store, and the versions of their two halves.
#pragma once

#include <array>
#include <string>

#include "capture/database.h"

namespace conmuta::capture {

enum class SchemaUse : std::uint8_t { kRead, kWrite };

// Makes the tables that are missing. Those of a half that another version made: what was concluded
// is dropped, what was received is never touched. StoreError kRefused when the store was made by a
// later version that forbids this one, or has no tables and may not get any.
void PrepareSchema(Database& database, SchemaUse use);

}  // namespace conmuta::capture
