// Every translation, by the case of a configuration that asks for it.
#pragma once

#include "translate/cases/meridian.h"
#include "translate/cases/norstar.h"
#include "translate/cases/samsung.h"
#include "translate/cases/standard.h"
#include "translate/cases/two_dates.h"

namespace conmuta {

// Their state between lines: one translator's.
struct TranslationStates {
  explicit TranslationStates(const Clock& clock) : norstar(clock) {}

  Standard standard;
  Samsung samsung;
  TwoDates two_dates;
  Meridian meridian;
  Norstar norstar;
};

// A row of the table: which case, and the translation for it.
struct Translation {
  emCasos code;
  bool (*translate)(TranslationStates& states, Work<Unwatched>& work);
  bool (*translate_watched)(TranslationStates& states, Work<Watched>& work);

  bool Run(TranslationStates& states, Work<Unwatched>& work) const {
    return translate(states, work);
  }
  bool Run(TranslationStates& states, Work<Watched>& work) const {
    return translate_watched(states, work);
  }
};

// Null for a case without a translation.
const Translation* FindTranslation(emCasos code);

}  // namespace conmuta
