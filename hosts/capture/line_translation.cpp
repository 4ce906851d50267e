#include "capture/line_translation.h"

#include "layouts/capture_head.h"
#include "layouts/host_line.h"

namespace conmuta::capture {

Conclusion LineTranslation::Translate(const Received& line) {
  day_.Set(line.time_ms);
  printed_.clear();
  const std::string_view bytes = line.bytes;
  for (const char c : bytes.substr(layouts::SizeOfMark(bytes))) {
    if (layouts::IsPrinted(c)) printed_ += c;
  }
  const translation::Outcome made =
      translators_->Translate(SystemPlatform().code_page.FromBytes(printed_));
  return {layouts::OutcomeOf(made.verdict, *made.call), made.layout};
}

}  // namespace conmuta::capture
