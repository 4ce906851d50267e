// What becomes of the lines of one source.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "capture/moment.h"
#include "capture/received.h"
#include "layouts/expected_calls.h"
#include "translation/translators.h"

namespace conmuta::capture {

// Of a line.
struct Conclusion {
  layouts::Outcome outcome;
  std::size_t layout = 0;  // which of them made the call
};

class LineTranslation {
 public:
  // The configurations must outlive this and are this one's alone.
  explicit LineTranslation(std::vector<clsCfgConmut*> configs) : configs_(std::move(configs)) {
    StartAfresh();
  }

  // Forgets what waits.
  void StartAfresh() { translators_.emplace(configs_, day_); }

  // Translates what a host would see of the line, on the day on which it was received. It is to be
  // whole.
  Conclusion Translate(const Received& line);

  // Translators tells what it means.
  bool Waits() const { return translators_->Waits(); }

 private:
  std::vector<clsCfgConmut*> configs_;
  ReceiptDay day_;
  std::optional<translation::Translators> translators_;
  std::string printed_;
};

}  // namespace conmuta::capture
