#include "capture/line_translation.h"

#include "layouts/host_line.h"

namespace conmuta::capture {

Conclusion LineTranslation::Translate(const Received& line) {
  day_.Set(line.time_ms);
  printed_.clear();
  for (const char c : line.bytes) {
    if (layouts::IsPrinted(c)) printed_ += c;
  }
  const translation::Outcome made =
      translators_->Translate(SystemPlatform().code_page.FromBytes(printed_));
  return {layouts::OutcomeOf(made.verdict, *made.call), made.layout};
}

}  // namespace conmuta::capture
