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
  Statement& calls = Get("SELECT COUNT(*) FROM llamadas WHERE fuente = ?");
  calls.Bind(0, row.id);
  if (calls.Step()) {
    summary.calls = calls.Number(0);
    calls.Reset();
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

void Store::Calls(const std::string& source, std::int64_t first_day, std::int64_t last_day,
                  const std::function<void(const StoredCall&)>& take) {
  Statement& calls =
      Get("SELECT f.nombre, c.numero, c.dia, c.hora, c.tipo, c.atributo, c.duracion, c.timbrado, "
          "c.emisor, c.receptor, c.telefono, c.transferida, c.cuenta, a.configuracion "
          "FROM llamadas c JOIN fuentes f ON f.id = c.fuente "
          "JOIN avances a ON a.fuente = c.fuente "
          "WHERE c.dia BETWEEN ? AND ? AND (CAST(? AS TEXT) = '' OR f.nombre = ?) "
          "ORDER BY c.fuente, c.numero");
  calls.Bind(0, first_day);
  calls.Bind(1, last_day);
  calls.BindText(2, source);
  calls.BindText(3, source);
  while (calls.Step()) {
    StoredCall stored;
    stored.source = calls.Bytes(0);
    stored.number = calls.Number(1);
    stored.layout = calls.Bytes(13);
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
    take(stored);
  }
}

}  // namespace conmuta::capture
