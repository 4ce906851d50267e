// When a call began, where its line may tell when it ended.
#pragma once

#include <cstdint>
#include <optional>

#include "layouts/layout.h"
#include "translate/enums.h"

namespace conmuta::translation {

// A date and time as the record holds them, in the calendar or not.
struct Moment {
  int year = 0;
  int month = 0;
  int day = 0;
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
};

struct TimedCall {
  Moment printed;
  std::optional<std::int32_t> duration;  // seconds; nothing when it is not known
  std::int32_t ring = 0;                 // seconds
  emTiposLlamadas type = emLlamadaIndefinida;
};

// The printed moment, or where that is the end, as long before as the call lasted and, if it came
// in, rang. Nothing where the layout does not say what its time is, or the moment is none of the
// calendar, or the duration is needed and not known.
std::optional<Moment> BeginningOf(const TimedCall& call, layouts::Sheet::TimeOf time_of);

}  // namespace conmuta::translation
