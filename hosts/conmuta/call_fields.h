// The fields of a row as all formats have them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "conmuta/translators.h"
#include "layouts/layout.h"
#include "translate/verdict.h"
#include "translation/beginning.h"

namespace conmuta::host {

// The words of expected.txt in UTF-8; none ("") for a call without transfer and for a call's
// reason.
std::string_view TypeWord(emTiposLlamadas type);
std::string_view TransferWord(emAtributosLlamadas attribute);
std::string_view ReasonWord(const Verdict& verdict);

using translation::Moment;
Moment MomentOf(const clsLlamadaTRD& call);

// When a call was, and how long.
struct CallTimes {
  Moment printed;
  std::optional<std::int32_t> duration;  // seconds; nothing when it is not known
  // Nothing when that is not known.
  std::optional<Moment> beginning;
};
CallTimes TimesOf(const clsLlamadaTRD& call, layouts::Sheet::TimeOf time_of);

}  // namespace conmuta::host
