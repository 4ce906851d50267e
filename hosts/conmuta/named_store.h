// What the commands of the capture have in common: which store, which layouts.
#pragma once

#include "capture/source_layout.h"
#include "conmuta/command.h"

namespace conmuta::host {

inline constexpr Option kStoreOption = {
    "--almacen",
    "-a",
    "ALMACEN",
    "El archivo del almacén, o la conexión ODBC de una base PostgreSQL. Si no se da, conmuta.db.",
    "",
    Offers::kFiles};

// A LAYOUT as a person names it, with what it names beside itself. UserError.
std::vector<capture::LoadedLayout> LoadNamedLayouts(const std::string& name);

}  // namespace conmuta::host
