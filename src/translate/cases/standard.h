// The standard translation: every item stands at a fixed place of the line.
#pragma once

#include "translate/cases/case.h"

namespace conmuta {

class Standard {
 public:
  template <class Watch>
  bool Translate(Work<Watch>& work);
};

}  // namespace conmuta
