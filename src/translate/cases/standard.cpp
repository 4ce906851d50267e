#include "translate/cases/standard.h"

#include "translate/cases/fixed_columns.h"

namespace conmuta {

template <class Watch>
bool Standard::Translate(Work<Watch>& work) {
  return ReadFixedColumns(work);
}

CONMUTA_TRANSLATION(Standard);

}  // namespace conmuta
