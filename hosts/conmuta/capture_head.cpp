#include "conmuta/capture_head.h"

#include "conmuta/day.h"
#include "layouts/capture_head.h"

namespace conmuta::host {

bool CaptureHead::Take(std::string_view line) {
  constexpr std::string_view kDate = "# fecha: ";
  open_ = open_ && layouts::IsOfHead(line);
  if (open_ && line.starts_with(kDate)) date_ = ReadDay(line.substr(kDate.size()));
  return open_;
}

}  // namespace conmuta::host
