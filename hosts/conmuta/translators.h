// The translators of one source.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "conmuta/layout_choice.h"
#include "platform/clock.h"
#include "translate/clsTradEST.h"

namespace conmuta::host {

// What became of a line.
struct Outcome {
  Verdict verdict;
  std::size_t layout = 0;               // which of them made the call, the first when none did
  const clsLlamadaTRD* call = nullptr;  // of that one; good until the next line
};

// One for each layout. A line is the first one's that makes a call of it.
class Translators {
 public:
  // UserError for a layout that no line can be translated with. The clock must live as long.
  Translators(std::span<const NamedLayout> layouts, const Clock& clock);

  Outcome Translate(TextView line);

  // After the last line: hands the calls to `made` that only another line would have brought out.
  template <class Made>
  void Finish(Made made) {
    for (std::size_t i = 0; i < desks_.size(); ++i) {
      const Outcome last = CloseBlock(i);
      if (last.verdict.IsCall()) made(last);
    }
  }

  // Calls that wait for the end of their transfer.
  std::size_t CallsWaiting() const;

 private:
  struct Desk {
    explicit Desk(const Clock& clock) : translator(clock) {}
    std::unique_ptr<clsCfgConmut> config;
    clsTradEST translator;
  };

  Outcome Judge(TextView line, std::size_t layout);
  Outcome CloseBlock(std::size_t layout);

  std::vector<std::unique_ptr<Desk>> desks_;
};

}  // namespace conmuta::host
