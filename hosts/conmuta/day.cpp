#include "conmuta/day.h"

#include "layouts/numbers.h"
#include "platform/unicode.h"

namespace conmuta::host {

std::optional<CivilDate> ReadDay(std::string_view text) {
  return layouts::ReadDate(FromUtf8(text));
}

}  // namespace conmuta::host
