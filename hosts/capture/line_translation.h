// The translator of one source.
#pragma once

#include <memory>
#include <string_view>

#include "capture/moment.h"
#include "capture/received.h"
#include "layouts/expected_calls.h"
#include "translate/clsTradEST.h"

namespace conmuta::capture {

class LineTranslation {
 public:
  // The configuration must outlive this and is this one's alone.
  explicit LineTranslation(clsCfgConmut& config) : config_(config) { StartAfresh(); }

  // Forgets what waits.
  void StartAfresh();

  // Translates what a host would see of the line, on the day on which it was received. It is to be
  // whole.
  layouts::Outcome Translate(const Received& line);

  // clsTradEST tells what it means.
  bool Waits() const { return translator_->Waits(); }

 private:
  clsCfgConmut& config_;
  ReceiptDay day_;
  std::unique_ptr<clsTradEST> translator_;
  std::string printed_;
};

}  // namespace conmuta::capture
