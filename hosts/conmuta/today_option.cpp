#include "conmuta/today_option.h"

#include "conmuta/files.h"
#include "conmuta/user_error.h"

namespace conmuta::host {

TodayOption::TodayOption(const Arguments& arguments) {
  if (!arguments.Has(kTodayOption.name)) return;
  const std::string value = arguments.Value(kTodayOption.name, "");
  is_of_file_ = value == "archivo";
  if (is_of_file_) return;
  day_ = ReadDay(value);
  if (!day_) throw UserError("--hoy: «" + value + "» no es una fecha como 2019-01-16 ni «archivo»");
}

void TodayOption::Set(DayClock& clock, const LineSource& lines, const std::string& file) const {
  if (day_) return clock.Set(*day_);
  if (!is_of_file_) return;
  if (lines.date()) return clock.Set(*lines.date());
  if (file == "-") {
    throw UserError(
        "--hoy archivo: la entrada estándar no tiene fecha; dé el día, como 2019-01-16");
  }
  clock.Set(DateOfFile(PathOf(file)));
}

}  // namespace conmuta::host
