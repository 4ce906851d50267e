#include "capture/line_translation.h"

#include "layouts/capture_head.h"
#include "layouts/host_line.h"

namespace conmuta::capture {

void LineTranslation::StartAfresh() {
  translator_ = std::make_unique<clsTradEST>(day_);
  translator_->Conmutador(&config_);
}

layouts::Outcome LineTranslation::Translate(const Received& line) {
  day_.Set(line.time_ms);
  printed_.clear();
  const std::string_view bytes = line.bytes;
  for (const char c : bytes.substr(layouts::SizeOfMark(bytes))) {
    if (layouts::IsPrinted(c)) printed_ += c;
  }
  LineObserver nobody;
  const Verdict verdict =
      translator_->Translate(SystemPlatform().code_page.FromBytes(printed_), nobody);
  return layouts::OutcomeOf(verdict, translator_->InfoLlamada());
}

}  // namespace conmuta::capture
