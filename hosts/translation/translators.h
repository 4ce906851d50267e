// The translators of one source.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "config/clsCfgConmut.h"
#include "platform/clock.h"
#include "translate/clsTradEST.h"

namespace conmuta::translation {

// What became of a line.
struct Outcome {
  Verdict verdict;
  std::size_t layout = 0;               // which of them made the call, the first when none did
  const clsLlamadaTRD* call = nullptr;  // of that one; good until the next line
};

// Why no line at all can be translated with a configuration; nothing when lines can.
std::optional<NoCall> WhyUseless(clsCfgConmut& config);

// After the last line: judges what only another line would have brought out. The call, if there is
// one, is then the translator's record; kEmptyLine where nothing can be waited for.
Verdict JudgeEnd(clsTradEST& translator);

// One for each configuration, of which there is at least one. A line is the first one's that makes
// a call of it.
class Translators {
 public:
  // Configurations and clock must live as long; the configurations are this one's alone.
  Translators(std::span<clsCfgConmut* const> configs, const Clock& clock);

  Outcome Translate(TextView line);

  // After the last line: hands the calls to `made` that only another line would have brought out.
  template <class Made>
  void Finish(Made made) {
    for (std::size_t i = 0; i < desks_.size(); ++i) {
      const Verdict last = JudgeEnd(desks_[i]->translator);
      if (last.IsCall()) made(Outcome{last, i, &desks_[i]->translator.InfoLlamada()});
    }
  }

  // Calls that wait for the end of their transfer.
  std::size_t CallsWaiting() const;

  // Whether anything of the lines so far bears on those to come, with any of them: while nothing
  // does, fresh ones go on just as these.
  bool Waits() const;

 private:
  struct Desk {
    Desk(clsCfgConmut* its_config, const Clock& clock);
    clsCfgConmut* config;
    clsTradEST translator;
  };

  Outcome Judge(TextView line, std::size_t layout);

  std::vector<std::unique_ptr<Desk>> desks_;
};

}  // namespace conmuta::translation
