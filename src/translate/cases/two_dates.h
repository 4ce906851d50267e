// Fixed places, with the moment of the call's end where others have its duration.
#pragma once

#include "translate/cases/case.h"

namespace conmuta {

class TwoDates {
 public:
  template <class Watch>
  bool Translate(Work<Watch>& work);
};

}  // namespace conmuta
