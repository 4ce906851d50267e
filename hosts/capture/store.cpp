#include "capture/store.h"

#include "platform/unicode.h"

namespace conmuta::capture {
namespace {

constexpr const char* kSourceColumns =
    "SELECT f.id, f.nombre, f.lugar, (SELECT MAX(l.numero) FROM lineas l WHERE l.fuente = f.id), "
    "a.configuracion, a.traducida, a.desde FROM fuentes f LEFT JOIN avances a ON a.fuente = f.id ";

// A duration that nobody knows.
constexpr std::int64_t kNoDuration = -1;

SourceRow RowOf(Statement& s) {
  SourceRow row;
  row.id = s.Number(0);
  row.name = s.Bytes(1);
  row.place = s.Bytes(2);
  row.last = s.Number(3);
  row.layout = s.Bytes(4);
  row.concluded = s.Number(5);
  row.replay_from = row.concluded != 0 ? s.Number(6) : 1;
  return row;
}

std::string Utf8(TextView text) {
  return ToUtf8(text).value_or("?");
}

}  // namespace

Store::Store(std::unique_ptr<Database> database, SchemaUse use) : database_(std::move(database)) {
  PrepareSchema(*database_, use);
}

Statement& Store::Get(const char* sql) {
  auto& statement = statements_[sql];
  if (statement == nullptr) statement = database_->Prepare(sql);
  return *statement;
}

void Store::Begin() {
  database_->Run("BEGIN");
}

void Store::Commit() {
  database_->Run("COMMIT");
}

void Store::Rollback() noexcept {
  database_->Rollback();
}

SourceRow Store::Source(const std::string& name) {
  static const std::string sql = std::string(kSourceColumns) + "WHERE f.nombre = ?";
  Statement& find = Get(sql.c_str());
  const auto read = [&]() -> std::optional<SourceRow> {
    find.BindText(0, name);
    if (!find.Step()) return std::nullopt;
    SourceRow row = RowOf(find);
    find.Reset();
    return row;
  };
  if (const auto row = read()) return *row;
  Statement& make =
      Get("INSERT INTO fuentes(id, nombre, lugar) "
          "SELECT COALESCE(MAX(id), 0) + 1, CAST(? AS TEXT), '' FROM fuentes");
  make.BindText(0, name);
  make.Run();
  return read().value();
}

std::vector<SourceRow> Store::Sources() {
  static const std::string sql = std::string(kSourceColumns) + "ORDER BY f.id";
  Statement& all = Get(sql.c_str());
  std::vector<SourceRow> rows;
  while (all.Step()) rows.push_back(RowOf(all));
  return rows;
}

bool Store::Keep(std::int64_t source, const Received& line) {
  Statement& keep =
      Get("INSERT INTO lineas(fuente, numero, momento, estado, bytes) VALUES(?, ?, ?, ?, ?) "
          "ON CONFLICT DO NOTHING");
  keep.Bind(0, source);
  keep.Bind(1, line.number);
  keep.Bind(2, line.time_ms);
  keep.Bind(3, static_cast<std::int64_t>(line.wholeness));
  keep.BindBytes(4, line.bytes);
  if (keep.Run() == 1) return true;
  if (!IsKept(source, line)) {
    throw StoreError(StoreError::Kind::kFailed, "otra captura guarda líneas de la misma fuente");
  }
  return false;
}

bool Store::IsKept(std::int64_t source, const Received& line) {
  Statement& there = Get("SELECT momento, bytes FROM lineas WHERE fuente = ? AND numero = ?");
  there.Bind(0, source);
  there.Bind(1, line.number);
  const bool is_same =
      there.Step() && there.Number(0) == line.time_ms && there.Bytes(1) == line.bytes;
  there.Reset();
  return is_same;
}

void Store::Place(std::int64_t source, const std::string& place) {
  Statement& set = Get("UPDATE fuentes SET lugar = ? WHERE id = ?");
  set.BindText(0, place);
  set.Bind(1, source);
  set.Run();
}

void Store::Count(std::int64_t source, Incident incident, std::int64_t count) {
  Statement& add =
      Get("INSERT INTO incidencias(fuente, clase, cuenta) VALUES(?, ?, ?) "
          "ON CONFLICT(fuente, clase) DO UPDATE SET cuenta = incidencias.cuenta + excluded.cuenta");
  add.Bind(0, source);
  add.Bind(1, static_cast<std::int64_t>(incident));
  add.Bind(2, count);
  add.Run();
}

// In portions: a driver may take all rows of an answer into memory.
void Store::Lines(std::int64_t source, std::int64_t first, std::int64_t last,
                  const std::function<void(const Received&)>& take) {
  Statement& lines =
      Get("SELECT numero, momento, estado, bytes FROM lineas "
          "WHERE fuente = ? AND numero BETWEEN ? AND ? ORDER BY numero LIMIT ?");
  std::int64_t count = kPortion;
  while (count == kPortion) {
    lines.Bind(0, source);
    lines.Bind(1, first);
    lines.Bind(2, last);
    lines.Bind(3, kPortion);
    for (count = 0; lines.Step(); ++count) {
      Received line;
      line.number = lines.Number(0);
      line.time_ms = lines.Number(1);
      line.wholeness = static_cast<Wholeness>(lines.Number(2));
      line.bytes = lines.Bytes(3);
      first = line.number + 1;
      take(line);
    }
  }
}

void Store::Conclude(std::int64_t source, std::int64_t number, const layouts::Outcome& outcome,
                     const std::string& layout, layouts::Sheet::TimeOf time_of) {
  if (!outcome.call) {
    Statement& reject =
        Get("INSERT INTO resultados(fuente, numero, error, razon) VALUES(?, ?, ?, ?)");
    reject.Bind(0, source);
    reject.Bind(1, number);
    reject.Bind(2, static_cast<std::int64_t>(outcome.error));
    reject.Bind(3, static_cast<std::int64_t>(outcome.reason));
    reject.Run();
    return;
  }
  const layouts::ExpectedCall& call = *outcome.call;
  Statement& add = Get(
      "INSERT INTO llamadas(fuente, numero, dia, hora, tipo, atributo, duracion, timbrado, emisor, "
      "receptor, telefono, transferida, cuenta, configuracion, hora_de) "
      "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  add.Bind(0, source);
  add.Bind(1, number);
  add.Bind(2, (std::int64_t{call.year} * 100 + call.month) * 100 + call.day);
  // Hours beyond a day are printed, too.
  add.Bind(3, SecondsOfDay(call.hours, call.minutes, call.seconds));
  add.Bind(4, call.type);
  add.Bind(5, call.attribute);
  add.Bind(6, call.duration ? *call.duration : kNoDuration);
  add.Bind(7, call.ring);
  add.BindText(8, Utf8(call.caller));
  add.BindText(9, Utf8(call.callee));
  add.BindText(10, Utf8(call.phone));
  add.BindText(11, Utf8(call.transferred_to));
  add.BindText(12, Utf8(call.account));
  add.BindText(13, layout);
  add.Bind(14, static_cast<std::int64_t>(time_of));
  add.Run();
}

void Store::Progress(const SourceRow& row) {
  Statement& note =
      Get("INSERT INTO avances(fuente, configuracion, traducida, desde) VALUES(?, ?, ?, ?) "
          "ON CONFLICT(fuente) DO UPDATE SET configuracion = excluded.configuracion, "
          "traducida = excluded.traducida, desde = excluded.desde");
  note.Bind(0, row.id);
  note.BindText(1, row.layout);
  note.Bind(2, row.concluded);
  note.Bind(3, row.replay_from);
  note.Run();
}

void Store::Forget(const SourceRow& row) {
  for (const char* sql :
       {"DELETE FROM llamadas WHERE fuente = ?", "DELETE FROM resultados WHERE fuente = ?",
        "DELETE FROM avances WHERE fuente = ?"}) {
    Statement& forget = Get(sql);
    forget.Bind(0, row.id);
    forget.Run();
  }
}

}  // namespace conmuta::capture
