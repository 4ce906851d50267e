// The plain-text report of one translation.
#pragma once

#include "platform/month_names.h"
#include "translate/clsTradEST.h"

namespace conmuta {

// The switch, the raw line and every field of the call made from it. ObjectNotSetError without a
// configuration; InvalidArgumentError for a call dated after 9999.
Text TranslationReport(clsTradEST& translator, const MonthNames& months);

}  // namespace conmuta
