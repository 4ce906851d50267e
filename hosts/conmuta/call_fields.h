// The fields of a row as all formats have them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "conmuta/translators.h"
#include "layouts/layout.h"
#include "translate/verdict.h"

namespace conmuta::host {

// The words of expected.txt in UTF-8; none ("") for a call without transfer and for a call's
// reason.
std::string_view TypeWord(emTiposLlamadas type);
std::string_view TransferWord(emAtributosLlamadas attribute);
std::string_view ReasonWord(const Verdict& verdict);

// A date and time as the record holds them, in the calendar or not.
struct Moment {
  int year = 0;
  int month = 0;
  int day = 0;
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
};

Moment MomentOf(const clsLlamadaTRD& call);

// When a call was, and how long.
struct CallTimes {
  Moment printed;
  std::optional<std::int32_t> duration;  // seconds; nothing when it is not known
  // The moment at which it began: the printed one, or where that is the end, as long before as the
  // call lasted and, if it came in, rang. Nothing where the layout does not say what its time is,
  // or the moment is none of the calendar, or the duration is not known.
  std::optional<Moment> beginning;
};
CallTimes TimesOf(const clsLlamadaTRD& call, layouts::Sheet::TimeOf time_of);

}  // namespace conmuta::host
