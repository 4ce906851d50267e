// --hoy: the day on which a capture's lines are read.
#pragma once

#include <optional>
#include <string>

#include "conmuta/command.h"
#include "conmuta/day.h"
#include "conmuta/line_source.h"

namespace conmuta::host {

inline constexpr Option kTodayOption = {
    "--hoy",
    "",
    "FECHA|archivo",
    "El día en que se leen las líneas, como 2019-01-16: un año impreso nunca es anterior. "
    "«archivo»: "
    "el día de la captura, el de su encabezado o el del archivo. Si no se da, hoy.",
    "",
    Offers::kNothing};

class TodayOption {
 public:
  // UserError for what is no day.
  explicit TodayOption(const Arguments& arguments);

  // Before the first line that is handed out: `file` is "-" for what has no date of its own.
  void Set(DayClock& clock, const LineSource& lines, const std::string& file) const;

 private:
  std::optional<CivilDate> day_;
  bool is_of_file_ = false;
};

}  // namespace conmuta::host
