#include "capture/line_quality.h"

namespace conmuta::capture {

LineQuality::LineQuality(Backlog& backlog, Messages& messages, std::size_t source,
                         const std::string& name, const std::string& port)
    : backlog_(backlog), source_(source), name_(name), port_(port), complaint_(messages) {}

void LineQuality::Look(const std::optional<SerialErrors>& errors) {
  if (errors) {
    Count(Incident::kFraming, errors->framing);
    Count(Incident::kParity, errors->parity);
    Count(Incident::kOverrun, errors->overrun);
    if (errors->framing + errors->parity > 0) {
      port_knows_ = true;
      complaint_.Tell(name_ + ": errores de " + (errors->framing > 0 ? "trama" : "paridad") +
                      " en " + port_ + "; ¿otra velocidad, otra paridad?");
    }
  }
  if (const std::int64_t blocks = guess_.Suspicious(); blocks > 0 && !port_knows_) {
    Count(Incident::kUnprintable, blocks);
    complaint_.Tell(name_ + ": por " + port_ +
                    " vienen bytes que no son texto; ¿otra velocidad, otra paridad?");
  }
}

void LineQuality::Count(Incident incident, std::int64_t count) {
  if (count > 0) backlog_.Count(source_, incident, count);
}

}  // namespace conmuta::capture
