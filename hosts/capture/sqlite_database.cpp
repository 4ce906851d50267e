#include "capture/sqlite_database.h"

#include <sqlite3.h>

#include <ctime>
#include <optional>
#include <system_error>

#include "capture/system.h"

namespace conmuta::capture {
namespace {

// How long another program may hold the store.
constexpr int kBusyMilliseconds = 2000;

std::string Utf8(const std::filesystem::path& path) {
  const auto text = path.u8string();
  return {text.begin(), text.end()};
}

// What is the matter, and what a person can do.
constexpr std::pair<int, const char*> kSentences[] = {
    {SQLITE_FULL, "el disco está lleno: haga lugar"},
    {SQLITE_READONLY, "no se puede escribir: dé permiso en el archivo y en su carpeta"},
    {SQLITE_PERM, "no hay permiso: délo en el archivo y en su carpeta"},
    {SQLITE_AUTH, "no hay permiso: délo en el archivo y en su carpeta"},
    {SQLITE_CANTOPEN, "no se puede abrir: vea el nombre, la carpeta y los permisos"},
    {SQLITE_BUSY, "otro programa lo tiene ocupado: ciérrelo o espere"},
    {SQLITE_LOCKED, "otro programa lo tiene ocupado: ciérrelo o espere"},
    {SQLITE_IOERR, "el disco falla: revíselo"},
    {SQLITE_CORRUPT, "el archivo está dañado: recupere un respaldo"},
    {SQLITE_NOTADB, "el archivo no es un almacén: dé el nombre de uno"},
    {SQLITE_NOMEM, "no alcanza la memoria: cierre programas"},
};

[[noreturn]] void Throw(sqlite3* database) {
  const int code = database != nullptr ? sqlite3_errcode(database) & 0xFF : SQLITE_NOMEM;
  std::string what = "la base de datos no lo hizo";
  for (const auto& [of, sentence] : kSentences) {
    if (of == code) what = sentence;
  }
  const char* own = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
  const bool damaged = code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
  throw StoreError(damaged ? StoreError::Kind::kDamaged : StoreError::Kind::kFailed,
                   what + " (SQLite: " + own + ")");
}

class SqliteStatement final : public Statement {
 public:
  SqliteStatement(sqlite3* database, const std::string& sql) : database_(database) {
    if (sqlite3_prepare_v3(database, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement_,
                           nullptr) != SQLITE_OK) {
      Throw(database);
    }
  }
  ~SqliteStatement() override { sqlite3_finalize(statement_); }
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  void Bind(int parameter, std::int64_t number) override {
    Check(sqlite3_bind_int64(statement_, parameter + 1, number));
  }
  void BindText(int parameter, std::string_view utf8) override {
    Check(sqlite3_bind_text64(statement_, parameter + 1, Data(utf8), utf8.size(), SQLITE_TRANSIENT,
                              SQLITE_UTF8));
  }
  void BindBytes(int parameter, std::string_view bytes) override {
    Check(sqlite3_bind_blob64(statement_, parameter + 1, Data(bytes), bytes.size(),
                              SQLITE_TRANSIENT));
  }

  bool Step() override {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    Finish();
    return false;
  }
  void Reset() override { sqlite3_reset(statement_); }

  std::int64_t Number(int column) override { return sqlite3_column_int64(statement_, column); }
  std::string Bytes(int column) override {
    const void* data = sqlite3_column_blob(statement_, column);
    const int size = sqlite3_column_bytes(statement_, column);
    return data != nullptr
               ? std::string(static_cast<const char*>(data), static_cast<std::size_t>(size))
               : std::string();
  }

  std::int64_t Run() override {
    sqlite3_step(statement_);
    Finish();
    return sqlite3_changes64(database_);
  }

 private:
  // A null pointer would be NULL, and not empty.
  static const char* Data(std::string_view bytes) {
    return bytes.data() != nullptr ? bytes.data() : "";
  }
  void Check(int code) const {
    if (code != SQLITE_OK) Throw(database_);
  }
  // Resetting tells how the last step ended.
  void Finish() const { Check(sqlite3_reset(statement_)); }

  sqlite3* database_;
  sqlite3_stmt* statement_ = nullptr;
};

class SqliteDatabase final : public Database {
 public:
  SqliteDatabase(const std::filesystem::path& path, Access access, const char* vfs) : path_(path) {
    const int flags = access == Access::kReadWrite ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE
                                                   : SQLITE_OPEN_READONLY;
    if (sqlite3_open_v2(Utf8(path).c_str(), &database_, flags, vfs) != SQLITE_OK) Fail();
    sqlite3_busy_timeout(database_, kBusyMilliseconds);
    if (access == Access::kReadOnly) return;
    Try("PRAGMA journal_mode=WAL");
    Try("PRAGMA synchronous=FULL");
  }
  ~SqliteDatabase() override { sqlite3_close_v2(database_); }
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  std::unique_ptr<Statement> Prepare(const std::string& sql) override {
    return std::make_unique<SqliteStatement>(database_, sql);
  }
  void Run(const std::string& sql) override {
    if (sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      Throw(database_);
    }
  }
  std::string BytesType() const override { return "BLOB"; }
  // In a file of its own: closing another handle of the database's would end SQLite's locks.
  bool Claim(std::int64_t source) override try {
    auto beside = path_;
    beside += "-captura";
    if (!claims_) claims_.emplace(beside);
    return claims_->Take(source);
  } catch (const std::system_error& error) {
    throw StoreError(StoreError::Kind::kFailed,
                     "no se puede escribir junto al almacén: " + SystemText(error.code()));
  }
  void Rollback() noexcept override {
    if (sqlite3_get_autocommit(database_) == 0) {
      sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
    }
  }

 private:
  // Within the constructor nobody else closes it.
  [[noreturn]] void Fail() {
    try {
      Throw(database_);
    } catch (...) {
      sqlite3_close_v2(database_);
      throw;
    }
  }
  void Try(const char* sql) {
    if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
  }

  sqlite3* database_ = nullptr;
  std::filesystem::path path_;
  std::optional<FileClaims> claims_;
};

void LookThrough(Database& database) {
  const auto check = database.Prepare("PRAGMA quick_check(1)");
  if (!check->Step()) return;
  const std::string found = check->Bytes(0);
  check->Reset();
  if (found != "ok") throw StoreError(StoreError::Kind::kDamaged, found);
}

// Where nothing stands yet.
std::filesystem::path FreeName(const std::filesystem::path& path) {
  std::filesystem::path free;
  for (auto number = std::time(nullptr);; ++number) {
    free = path;
    free += ".apartado-" + std::to_string(number);
    if (!std::filesystem::exists(free)) return free;
  }
}

}  // namespace

std::unique_ptr<Database> OpenSqlite(const std::filesystem::path& path, Access access,
                                     Thoroughness thoroughness, const char* vfs) {
  auto database = std::make_unique<SqliteDatabase>(path, access, vfs);
  if (thoroughness == Thoroughness::kChecked) LookThrough(*database);
  return database;
}

std::unique_ptr<Database> OpenSqliteOrSetAside(const std::filesystem::path& path,
                                               Thoroughness thoroughness, Messages& messages,
                                               const char* vfs) {
  try {
    return OpenSqlite(path, Access::kReadWrite, thoroughness, vfs);
  } catch (const StoreError& error) {
    if (error.kind() != StoreError::Kind::kDamaged) throw;
    const auto aside = FreeName(path);
    // The log first: an old one must never be taken for that of the new file.
    for (const char* part : {"-wal", "-shm", ""}) {
      auto from = path;
      auto to = aside;
      from += part;
      to += part;
      std::error_code failure;
      std::filesystem::rename(from, to, failure);
      if (failure && std::filesystem::exists(from)) {
        throw StoreError(StoreError::Kind::kFailed, "no se puede apartar " + Utf8(path));
      }
    }
    messages.Tell(Utf8(path) + " está dañado (" + error.what() + "); se apartó como " +
                  Utf8(aside) + " y se empieza otro");
    return OpenSqlite(path, Access::kReadWrite, Thoroughness::kQuick, vfs);
  }
}

}  // namespace conmuta::capture
