// Nortel Meridian: one line a record, whose first letter tells what it is. Records of one call are
// tied together by their trunk.
#pragma once

#include "translate/cases/case.h"

namespace conmuta {

class Meridian {
 public:
  template <class Watch>
  bool Translate(Work<Watch>& work);
};

}  // namespace conmuta
