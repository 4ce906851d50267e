// What people ask of a store.
#include "capture/store.h"
#include "platform/unicode.h"

namespace conmuta::capture {

SourceSummary Store::Summary(const SourceRow& row) {
  SourceSummary summary;
  summary.row = row;
  Statement& lines =
      Get("SELECT COUNT(*), SUM(CASE estado WHEN 1 THEN 1 ELSE 0 END), "
          "SUM(CASE estado WHEN 2 THEN 1 ELSE 0 END), "
          "SUM(CASE estado WHEN 3 THEN 1 ELSE 0 END) FROM lineas WHERE fuente = ?");
  lines.Bind(0, row.id);
  if (lines.Step()) {
    summary.lines = lines.Number(0);
    summary.cut = lines.Number(1);
    summary.torn = lines.Number(2);
    summary.head = lines.Number(3);
    lines.Reset();
  }
  Lines(row.id, row.last, row.last, [&](const Received& line) { summary.last_ms = line.time_ms; });
  Statement& calls =
      Get("SELECT configuracion, COUNT(*) FROM llamadas WHERE fuente = ? GROUP BY configuracion");
  calls.Bind(0, row.id);
  while (calls.Step()) {
    summary.by_layout[calls.Bytes(0)] = calls.Number(1);
    summary.calls += calls.Number(1);
  }
  Statement& results =
      Get("SELECT error, razon, COUNT(*) FROM resultados WHERE fuente = ? GROUP BY error, razon "
          "ORDER BY error, razon");
  results.Bind(0, row.id);
  while (results.Step()) {
    const auto error = static_cast<LineError>(results.Number(0));
    if (error != LineError::kNone) {
      summary.errors[error] += results.Number(2);
    } else {
      summary.rejected[static_cast<NoCall>(results.Number(1))] += results.Number(2);
    }
  }
  Statement& incidents =
      Get("SELECT clase, cuenta FROM incidencias WHERE fuente = ? ORDER BY clase");
  incidents.Bind(0, row.id);
  while (incidents.Step()) {
    summary.incidents[static_cast<Incident>(incidents.Number(0))] = incidents.Number(1);
  }
  return summary;
}

namespace {

StoredCall CallOf(Statement& calls) {
  StoredCall stored;
  stored.source = calls.Bytes(0);
  stored.number = calls.Number(1);
  stored.layout = calls.Bytes(13);
  stored.time_of = static_cast<layouts::Sheet::TimeOf>(calls.Number(14));
  layouts::ExpectedCall& call = stored.call;
  const auto day = static_cast<int>(calls.Number(2));
  call.year = day / 10000;
  call.month = day / 100 % 100;
  call.day = day % 100;
  const auto time = static_cast<int>(calls.Number(3));
  call.hours = time / 3600;
  call.minutes = time / 60 % 60;
  call.seconds = time % 60;
  call.type = static_cast<emTiposLlamadas>(calls.Number(4));
  call.attribute = static_cast<emAtributosLlamadas>(calls.Number(5));
  if (const auto duration = static_cast<int>(calls.Number(6)); duration >= 0) {
    call.duration = duration;
  }
  call.ring = static_cast<int>(calls.Number(7));
  call.caller = FromUtf8(calls.Bytes(8));
  call.callee = FromUtf8(calls.Bytes(9));
  call.phone = FromUtf8(calls.Bytes(10));
  call.transferred_to = FromUtf8(calls.Bytes(11));
  call.account = FromUtf8(calls.Bytes(12));
  return stored;
}

}  // namespace

// In portions, like Lines: each begins behind the last row of the one before.
void Store::Calls(const std::string& source, std::int64_t first_day, std::int64_t last_day,
                  const std::function<void(const StoredCall&)>& take) {
  Statement& calls =
      Get("SELECT f.nombre, c.numero, c.dia, c.hora, c.tipo, c.atributo, c.duracion, c.timbrado, "
          "c.emisor, c.receptor, c.telefono, c.transferida, c.cuenta, c.configuracion, c.hora_de "
          "FROM llamadas c JOIN fuentes f ON f.id = c.fuente "
          "WHERE c.fuente = ? AND c.numero > ? AND c.dia BETWEEN ? AND ? "
          "ORDER BY c.numero LIMIT ?");
  for (const SourceRow& row : Sources()) {
    if (!source.empty() && row.name != source) continue;
    std::int64_t behind = 0;
    for (std::int64_t count = kPortion; count == kPortion;) {
      calls.Bind(0, row.id);
      calls.Bind(1, behind);
      calls.Bind(2, first_day);
      calls.Bind(3, last_day);
      calls.Bind(4, kPortion);
      for (count = 0; calls.Step(); ++count) {
        const StoredCall call = CallOf(calls);
        behind = call.number;
        take(call);
      }
    }
  }
}

}  // namespace conmuta::capture
