#include "translation/beginning.h"

#include "layouts/numbers.h"
#include "platform/calendar.h"

namespace conmuta::translation {

std::optional<Moment> BeginningOf(const TimedCall& call, layouts::Sheet::TimeOf time_of) {
  const Moment& printed = call.printed;
  if (time_of == layouts::Sheet::TimeOf::kUnknown || printed.hours > 23) return std::nullopt;
  if (!layouts::IsInCalendar({printed.year, printed.month, printed.day})) return std::nullopt;
  if (time_of == layouts::Sheet::TimeOf::kStart) return printed;
  if (!call.duration) return std::nullopt;

  std::int64_t before = *call.duration;
  if (call.type == emLlamadaEntrante) before += call.ring;
  const std::int64_t end = SecondsOfDay(printed.hours, printed.minutes, printed.seconds);
  std::int64_t begin = end - before;
  CivilDate date{printed.year, printed.month, printed.day};
  if (begin < 0) [[unlikely]] {  // on a day before
    const std::int64_t days = (-begin + kSecondsPerDay - 1) / kSecondsPerDay;
    begin += days * kSecondsPerDay;
    date = DateOfDayNumber(DayNumber(date.year, date.month, date.day) - days);
  }
  const auto rest = static_cast<int>(begin);
  return Moment{date.year, date.month, date.day, rest / 3600, rest / 60 % 60, rest % 60};
}

}  // namespace conmuta::translation
