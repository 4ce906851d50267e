#include "translate/cases/two_dates.h"

#include "translate/cases/fixed_columns.h"

namespace conmuta {

template <class Watch>
bool TwoDates::Translate(Work<Watch>& work) {
  return ReadFixedColumns(
      work, [](clsLlamadaTRD& call) { return call.TryAjustaDuracionPorRestaFechas(); });
}

CONMUTA_TRANSLATION(TwoDates);

}  // namespace conmuta
