// A parser written by hand for one layout, the yardstick of the configured one: same record, same
// rules, columns known at compile time.
#pragma once

#include "platform/clock.h"
#include "translate/clsLlamadaTRD.h"

namespace conmuta::bench {

class HandwrittenKx {
 public:
  explicit HandwrittenKx(const Clock& clock) : clock_(clock), call_(clock) {}

  void Translate(TextView line);
  const clsLlamadaTRD& call() const { return call_; }

 private:
  const Clock& clock_;
  Text line_;
  clsLlamadaTRD call_;
};

}  // namespace conmuta::bench
