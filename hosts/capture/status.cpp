#include <ostream>

#include "capture/asking.h"
#include "capture/store.h"
#include "capture/store_address.h"
#include "platform/unicode.h"

namespace conmuta::capture {
namespace {

constexpr std::pair<Incident, const char*> kIncidents[] = {
    {Incident::kFraming, "errores de trama"},
    {Incident::kParity, "errores de paridad"},
    {Incident::kOverrun, "bytes perdidos en el puerto"},
    {Incident::kConnectionLost, "conexiones perdidas"},
    {Incident::kConnectionDropped, "conexiones cerradas para atender otra"},
    {Incident::kSpilled, "líneas que esperaron en el derrame"},
    {Incident::kLost, "LÍNEAS PERDIDAS"},
    {Incident::kUnprintable, "bloques de bytes que no son texto"},
};

std::string Utf8(TextView text) {
  return ToUtf8(text).value_or("?");
}

template <class Counts>
std::int64_t Sum(const Counts& counts) {
  std::int64_t sum = 0;
  for (const auto& [code, count] : counts) sum += count;
  return sum;
}

void Show(const SourceSummary& s, std::ostream& out) {
  out << Shown(s.row.name) << " (" << Shown(s.row.layout.empty() ? "sin traducir" : s.row.layout)
      << ")\n  " << s.lines << " líneas: " << s.calls << " llamadas, " << Sum(s.rejected)
      << " sin llamada, " << Sum(s.errors) << " con error, " << s.cut << " trozos de más, "
      << s.torn << " a medias"
      << (s.head > 0 ? ", " + std::to_string(s.head) + " de encabezado" : "") << '\n';
  const auto show = [&](std::int64_t count, const std::string& what) {
    out << "  "
        << std::string(std::to_string(count).size() < 8 ? 8 - std::to_string(count).size() : 0, ' ')
        << count << "  " << what << '\n';
  };
  if (s.by_layout.size() > 1) {
    for (const auto& [layout, count] : s.by_layout) show(count, "llamadas de " + Shown(layout));
  }
  for (const auto& [error, count] : s.errors) show(count, Utf8(Sentence(error)));
  for (const auto& [reason, count] : s.rejected) show(count, Utf8(Sentence(reason)));
  for (const auto& [incident, name] : kIncidents) {
    if (const auto found = s.incidents.find(incident); found != s.incidents.end()) {
      show(found->second, name);
    }
  }
}

// Gives whether the source is silent.
bool ShowSilence(const SourceSummary& s, const StatusOptions& options, std::ostream& out) {
  if (s.lines == 0) {
    out << "  todavía sin líneas\n";
    return options.silence_minutes.has_value();
  }
  const std::int64_t minutes = (options.now() - s.last_ms) / 60000;
  out << "  última línea: " << LocalTime(s.last_ms) << ", hace " << minutes << " min\n";
  if (!options.silence_minutes || minutes <= *options.silence_minutes) return false;
  out << "  EN SILENCIO desde hace más de " << *options.silence_minutes << " min\n";
  return true;
}

}  // namespace

int Status(const StatusOptions& options, std::ostream& out, std::ostream& err) {
  try {
    Store store(OpenForReading(options.store), SchemaUse::kRead);
    bool silent = false;
    for (const SourceRow& row : store.Sources()) {
      const SourceSummary summary = store.Summary(row);
      Show(summary, out);
      silent = ShowSilence(summary, options, out) || silent;
    }
    return silent ? kFailed : kDone;
  } catch (const StoreError& error) {
    Messages(err).Tell("no se puede leer el almacén " + ShownStore(options.store) + ": " +
                       error.what());
    return kUsage;
  }
}

}  // namespace conmuta::capture
