// --salida and --reemplaza: where a command writes, if not to the standard output.
#pragma once

#include <string_view>

#include "conmuta/command.h"
#include "conmuta/files.h"

namespace conmuta::host {

inline constexpr Option kOutputOption = {"--salida", "-o",
                                         "ARCHIVO",  "Dónde se escribe. Si no se da, en la salida.",
                                         "",         Offers::kFiles};
inline constexpr Option kReplaceOption = {"--reemplaza", "", "",
                                          "Escribe también sobre lo que ya existe.", ""};

inline Existing ExistingOf(const Arguments& arguments) {
  return arguments.Has(kReplaceOption.name) ? Existing::kIsReplaced : Existing::kStays;
}

// To the file that was asked for, or the standard output.
inline void WriteOut(const Arguments& arguments, Console& console, std::string_view text) {
  if (arguments.Has(kOutputOption.name)) {
    WriteWhole(PathOf(arguments.Value(kOutputOption.name, "")), text, ExistingOf(arguments));
  } else {
    console.out << text;
  }
}

}  // namespace conmuta::host
