// Whether a call may be one, without knowing what the switch meant.
#pragma once

#include "translate/watch.h"

namespace conmuta::layouts {

// Watches the reading of a line. Where the columns of a layout lie on other fields, numbers of
// dates and times are cut in two or beyond any clock, and parties hold two words.
class Plausibility final : public LineObserver {
 public:
  void Read(const ItemRead& item) override;

  // Of the line that was read since the last time; the next one begins.
  bool Take();

 private:
  bool plausible_ = true;
};

}  // namespace conmuta::layouts
