#include "translate/translations.h"

#include <algorithm>
#include <iterator>

namespace conmuta {
namespace {

template <auto State, class Watch>
bool Run(TranslationStates& states, Work<Watch>& work) {
  return (states.*State).Translate(work);
}

template <auto State>
constexpr Translation Row(emCasos code) {
  return {code, &Run<State, Unwatched>, &Run<State, Watched>};
}

constexpr Translation kTranslations[] = {
    Row<&TranslationStates::standard>(emCasoEstandar),
    Row<&TranslationStates::samsung>(emCasoSamsungNX_820),
    Row<&TranslationStates::meridian>(emCasoNortelMeridian01),
    Row<&TranslationStates::norstar>(emCasoNortelNorstar0x32SMDR6),
    Row<&TranslationStates::two_dates>(emCasoRestaFechasDuracion),
};

}  // namespace

const Translation* FindTranslation(emCasos code) {
  const auto* row = std::find_if(std::begin(kTranslations), std::end(kTranslations),
                                 [&](const Translation& t) { return t.code == code; });
  return row != std::end(kTranslations) ? row : nullptr;
}

}  // namespace conmuta
