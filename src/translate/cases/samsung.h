// Samsung NX-820: fixed places, and transfers that come as two lines, joined by their trunk.
#pragma once

#include "translate/cases/case.h"

namespace conmuta {

class Samsung {
 public:
  template <class Watch>
  bool Translate(Work<Watch>& work);
};

}  // namespace conmuta
