#include "capture/schema.h"

namespace conmuta::capture {
namespace {

struct Half {
  const char* name;
  std::int64_t version;  // that this program writes
  std::int64_t oldest;   // the oldest program that may use it
  bool can_be_made_again;
  std::array<const char*, 3> tables;
  std::array<const char*, 3> names;
};

// BYTES stands for the database's own word.
constexpr std::array<Half, 2> kHalves = {{
    {"recibido",
     1,
     1,
     false,
     {"CREATE TABLE IF NOT EXISTS fuentes(id BIGINT PRIMARY KEY, nombre TEXT NOT NULL UNIQUE, "
      "lugar TEXT NOT NULL)",
      "CREATE TABLE IF NOT EXISTS lineas(fuente BIGINT NOT NULL, numero BIGINT NOT NULL, "
      "momento BIGINT NOT NULL, estado BIGINT NOT NULL, bytes BYTES NOT NULL, "
      "PRIMARY KEY(fuente, numero))",
      "CREATE TABLE IF NOT EXISTS incidencias(fuente BIGINT NOT NULL, clase BIGINT NOT NULL, "
      "cuenta BIGINT NOT NULL, PRIMARY KEY(fuente, clase))"},
     {"fuentes", "lineas", "incidencias"}},
    {"concluido",
     2,
     2,
     true,
     {"CREATE TABLE IF NOT EXISTS avances(fuente BIGINT PRIMARY KEY, configuracion TEXT NOT NULL, "
      "traducida BIGINT NOT NULL, desde BIGINT NOT NULL)",
      "CREATE TABLE IF NOT EXISTS resultados(fuente BIGINT NOT NULL, numero BIGINT NOT NULL, "
      "error BIGINT NOT NULL, razon BIGINT NOT NULL, PRIMARY KEY(fuente, numero))",
      "CREATE TABLE IF NOT EXISTS llamadas(fuente BIGINT NOT NULL, numero BIGINT NOT NULL, "
      "dia BIGINT NOT NULL, hora BIGINT NOT NULL, tipo BIGINT NOT NULL, atributo BIGINT NOT NULL, "
      "duracion BIGINT NOT NULL, timbrado BIGINT NOT NULL, emisor TEXT NOT NULL, "
      "receptor TEXT NOT NULL, telefono TEXT NOT NULL, transferida TEXT NOT NULL, "
      "cuenta TEXT NOT NULL, configuracion TEXT NOT NULL, hora_de BIGINT NOT NULL, "
      "PRIMARY KEY(fuente, numero))"},
     {"avances", "resultados", "llamadas"}},
}};

std::string WithBytesType(std::string sql, const std::string& type) {
  static constexpr std::string_view kWord = " BYTES ";
  if (const auto at = sql.find(kWord); at != std::string::npos) {
    sql.replace(at + 1, kWord.size() - 2, type);
  }
  return sql;
}

struct Versions {
  std::int64_t written = 0;  // 0 where the half is not there
  std::int64_t oldest = 0;
};

Versions Read(Database& database, const char* half) {
  const auto statement =
      database.Prepare("SELECT version, lector_minimo FROM versiones WHERE parte = ?");
  statement->BindText(0, half);
  Versions versions;
  if (statement->Step()) {
    versions = {statement->Number(0), statement->Number(1)};
    statement->Reset();
  }
  return versions;
}

void Make(Database& database, const Half& half, const Versions& found) {
  if (found.written != 0) {
    for (const char* name : half.names) database.Run(std::string("DROP TABLE IF EXISTS ") + name);
  }
  for (const char* table : half.tables) database.Run(WithBytesType(table, database.BytesType()));
  const auto forget = database.Prepare("DELETE FROM versiones WHERE parte = ?");
  forget->BindText(0, half.name);
  forget->Run();
  const auto note =
      database.Prepare("INSERT INTO versiones(parte, version, lector_minimo) VALUES(?, ?, ?)");
  note->BindText(0, half.name);
  note->Bind(1, half.version);
  note->Bind(2, half.oldest);
  note->Run();
}

void PrepareHalf(Database& database, const Half& half, SchemaUse use) {
  const Versions found = Read(database, half.name);
  if (found.written == half.version) return;
  if (found.oldest > half.version) {
    throw StoreError(StoreError::Kind::kRefused,
                     "el almacén es de una versión posterior de este programa");
  }
  // A later version says that this one may use it as it is.
  if (found.written > half.version) return;
  if (use == SchemaUse::kRead) {
    throw StoreError(
        StoreError::Kind::kRefused,
        "lo traducido falta o es de otra versión: conmuta reprocesa, o la próxima captura, "
        "lo rehace");
  }
  if (found.written != 0 && !half.can_be_made_again) {
    throw StoreError(StoreError::Kind::kRefused, "el almacén es de una versión anterior");
  }
  Make(database, half, found);
}

}  // namespace

void PrepareSchema(Database& database, SchemaUse use) {
  database.Run("BEGIN");
  try {
    if (use == SchemaUse::kWrite) {
      database.Run(
          "CREATE TABLE IF NOT EXISTS versiones(parte TEXT PRIMARY KEY, version BIGINT NOT NULL, "
          "lector_minimo BIGINT NOT NULL)");
    }
    for (const Half& half : kHalves) PrepareHalf(database, half, use);
    database.Run("COMMIT");
  } catch (...) {
    database.Rollback();
    throw;
  }
}

}  // namespace conmuta::capture
