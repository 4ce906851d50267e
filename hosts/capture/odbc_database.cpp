#include "capture/odbc_database.h"

#ifdef _WIN32  // its sql.h does not include what it needs
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <deque>
#include <type_traits>

#include "platform/unicode.h"

namespace conmuta::capture {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

SQLWCHAR* Wide(Text& text) {
  return reinterpret_cast<SQLWCHAR*>(text.data());
}

std::string Utf8(TextView text) {
  return ToUtf8(text).value_or("?");
}

// What is the matter, and what a person can do, by how the state begins.
constexpr std::pair<TextView, const char*> kSentences[] = {
    {u"IM", "falta el controlador ODBC: instálelo, o corrija DRIVER"},
    {u"08", "no hay conexión con el servidor: vea que esté en marcha y que la red llegue"},
    {u"28", "el servidor no admite a ese usuario: corrija Uid y Pwd"},
    {u"3D", "el servidor no tiene esa base: corrija Database"},
    {u"42501", "falta permiso en la base: délo al usuario"},
    {u"53", "el servidor no tiene recursos: vea su disco y su memoria"},
    {u"57", "el servidor se detuvo o tarda demasiado: véalo"},
    {u"HYT", "el servidor tarda demasiado: vea qué lo ocupa"},
};

[[noreturn]] void Throw(SQLSMALLINT kind, SQLHANDLE handle) {
  std::array<SQLWCHAR, 6> state{};
  std::array<SQLWCHAR, 512> message{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  std::string what = "la base de datos no responde";
  if (SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, 1, state.data(), &native, message.data(),
                                   static_cast<SQLSMALLINT>(message.size()), &length))) {
    const TextView which(reinterpret_cast<const char16_t*>(state.data()));
    what = "el servidor no lo hizo";
    for (const auto& [of, sentence] : kSentences) {
      if (which.starts_with(of)) what = sentence;
    }
    std::string own = Utf8(reinterpret_cast<const char16_t*>(message.data()));
    std::replace_if(
        own.begin(), own.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
    what += " (ODBC: " + own + ")";
  }
  throw StoreError(StoreError::Kind::kFailed, what);
}

// A handle of ODBC's, freed with this.
class Handle {
 public:
  Handle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_))) {
      throw StoreError(StoreError::Kind::kFailed, "ODBC no responde");
    }
  }
  ~Handle() { SQLFreeHandle(kind_, handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE get() const { return handle_; }
  SQLRETURN Check(SQLRETURN code) const {
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) Throw(kind_, handle_);
    return code;
  }

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = nullptr;
};

class OdbcStatement final : public Statement {
 public:
  OdbcStatement(SQLHDBC connection, const std::string& sql) : handle_(SQL_HANDLE_STMT, connection) {
    Text text = FromUtf8(sql);
    Check(SQLPrepareW(handle_.get(), Wide(text), static_cast<SQLINTEGER>(text.size())));
  }

  void Bind(int parameter, std::int64_t number) override {
    Parameter& p = At(parameter);
    p.number = number;
    Bind(parameter, SQL_C_SBIGINT, SQL_BIGINT, &p.number, sizeof p.number);
  }
  void BindText(int parameter, std::string_view utf8) override {
    Parameter& p = At(parameter);
    p.text = FromUtf8(utf8);
    Bind(parameter, SQL_C_WCHAR, SQL_WVARCHAR, p.text.data(), p.text.size() * sizeof(char16_t));
  }
  void BindBytes(int parameter, std::string_view bytes) override {
    Parameter& p = At(parameter);
    p.bytes = bytes;
    Bind(parameter, SQL_C_BINARY, SQL_VARBINARY, p.bytes.data(), p.bytes.size());
  }

  bool Step() override {
    if (!executed_) {
      Check(SQLExecute(handle_.get()));
      executed_ = true;
    }
    if (Check(SQLFetch(handle_.get())) != SQL_NO_DATA) return true;
    Reset();
    return false;
  }
  void Reset() override {
    SQLFreeStmt(handle_.get(), SQL_CLOSE);
    executed_ = false;
  }

  std::int64_t Number(int column) override {
    SQLBIGINT number = 0;
    SQLLEN length = 0;
    Check(
        SQLGetData(handle_.get(), Column(column), SQL_C_SBIGINT, &number, sizeof number, &length));
    return length == SQL_NULL_DATA ? 0 : std::int64_t{number};
  }

  std::string Bytes(int column) override {
    SQLLEN type = 0;
    Check(SQLColAttributeW(handle_.get(), Column(column), SQL_DESC_CONCISE_TYPE, nullptr, 0,
                           nullptr, &type));
    if (type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY) {
      return Pieces<char>(column, SQL_C_BINARY, 0);
    }
    return Utf8(Pieces<char16_t>(column, SQL_C_WCHAR, 1));
  }

  std::int64_t Run() override {
    const SQLRETURN code = Check(SQLExecute(handle_.get()));
    SQLLEN rows = 0;
    if (code != SQL_NO_DATA) Check(SQLRowCount(handle_.get(), &rows));
    Reset();
    return rows;
  }

 private:
  struct Parameter {
    SQLBIGINT number = 0;
    Text text;
    std::string bytes;
    SQLLEN length = 0;
  };

  SQLRETURN Check(SQLRETURN code) const { return handle_.Check(code); }
  static SQLUSMALLINT Column(int column) { return static_cast<SQLUSMALLINT>(column + 1); }
  Parameter& At(int parameter) {
    const auto index = static_cast<std::size_t>(parameter);
    if (parameters_.size() <= index) parameters_.resize(index + 1);
    return parameters_[index];
  }
  void Bind(int parameter, SQLSMALLINT c_type, SQLSMALLINT type, void* value, std::size_t size) {
    SQLLEN& length = At(parameter).length;
    length = static_cast<SQLLEN>(size);
    // A column of no size is none.
    const SQLULEN width = std::max<SQLULEN>(1, type == SQL_WVARCHAR ? size / 2 : size);
    Check(SQLBindParameter(handle_.get(), static_cast<SQLUSMALLINT>(parameter + 1), SQL_PARAM_INPUT,
                           c_type, type, width, 0, value, length, &length));
  }

  // A long value comes in pieces; texts end with a NUL each.
  template <class Char>
  std::basic_string<Char> Pieces(int column, SQLSMALLINT c_type, std::size_t ending) {
    std::basic_string<Char> value;
    std::array<Char, 4096> room;
    for (;;) {
      SQLLEN length = 0;
      const SQLRETURN code = Check(
          SQLGetData(handle_.get(), Column(column), c_type, room.data(), sizeof room, &length));
      if (code == SQL_NO_DATA || length == SQL_NULL_DATA) return value;
      const std::size_t fits = room.size() - ending;
      const std::size_t there =
          length == SQL_NO_TOTAL ? fits : static_cast<std::size_t>(length) / sizeof(Char);
      value.append(room.data(), std::min(fits, there));
      if (code == SQL_SUCCESS) return value;
    }
  }

  Handle handle_;
  // Where they are is where the driver looks for them.
  std::deque<Parameter> parameters_;
  bool executed_ = false;
};

// A line that is cut without a word is noticed by either end: what was sent is confirmed within
// 10 s, and one that is quiet is asked. The client's half goes to the driver's own library.
std::string WithLineChecks(const std::string& address) {
  if (ToUpper(FromUtf8(address)).find(u"PQOPT=") != Text::npos) return address;
  return address + (address.ends_with(';') ? "" : ";") +
         "pqopt={connect_timeout=5 tcp_user_timeout=10000 keepalives_idle=10 "
         "keepalives_interval=5 keepalives_count=3};";
}

// The server's half. Each statement of the capture touches a few rows: one that takes longer waits
// for something that will not come.
constexpr const char* kServerLimits[] = {
    "SET tcp_keepalives_idle = 10", "SET tcp_keepalives_interval = 5",
    "SET tcp_keepalives_count = 3", "SET idle_in_transaction_session_timeout = '60s'",
    "SET statement_timeout = '60s'"};

class Environment {
 public:
  Environment() : handle_(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    handle_.Check(SQLSetEnvAttr(handle_.get(), SQL_ATTR_ODBC_VERSION,
                                reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
  }
  SQLHANDLE get() const { return handle_.get(); }

 private:
  Handle handle_;
};

// Among all that programs claim in a server.
constexpr std::int64_t kClaims = 0x636D7461;

class OdbcDatabase final : public Database {
 public:
  OdbcDatabase(const std::string& address, Access access)
      : connection_(SQL_HANDLE_DBC, environment_.get()) {
    // A server that is away must not stop the capture for long.
    SQLSetConnectAttr(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(5),
                      SQL_IS_UINTEGER);
    Text text = FromUtf8(WithLineChecks(address));
    connection_.Check(SQLDriverConnectW(connection_.get(), nullptr, Wide(text),
                                        static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                                        SQL_DRIVER_NOPROMPT));
    try {
      Limit(access);
    } catch (...) {  // the server would keep a session whose handle is gone
      SQLDisconnect(connection_.get());
      throw;
    }
  }
  ~OdbcDatabase() override {
    Rollback();
    SQLDisconnect(connection_.get());
  }
  OdbcDatabase(const OdbcDatabase&) = delete;
  OdbcDatabase& operator=(const OdbcDatabase&) = delete;

  std::unique_ptr<Statement> Prepare(const std::string& sql) override {
    return std::make_unique<OdbcStatement>(connection_.get(), sql);
  }
  // Transactions are the driver's own: it must not hear of them as statements.
  void Run(const std::string& sql) override {
    if (sql == "BEGIN") return SetAutocommit(false);
    if (sql == "COMMIT") return Commit();
    const Handle statement(SQL_HANDLE_STMT, connection_.get());
    Text text = FromUtf8(sql);
    statement.Check(
        SQLExecDirectW(statement.get(), Wide(text), static_cast<SQLINTEGER>(text.size())));
  }
  void AllowLongWork() override { Run("SET LOCAL statement_timeout = 0"); }
  void Rollback() noexcept override { SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK); }
  std::string BytesType() const override { return "BYTEA"; }
  // The session's: a server that notices that a client is gone lets go.
  bool Claim(std::int64_t source) override {
    OdbcStatement claim(connection_.get(),
                        "SELECT CASE WHEN pg_try_advisory_lock(CAST(? AS INTEGER), "
                        "CAST(? AS INTEGER)) THEN 1 ELSE 0 END");
    claim.Bind(0, kClaims);
    claim.Bind(1, source);
    return claim.Step() && claim.Number(0) == 1;
  }

 private:
  void Limit(Access access) {
    if (access == Access::kReadOnly) {
      Run("SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL REPEATABLE READ");
    } else {
      for (const char* limit : kServerLimits) Run(limit);
    }
  }
  void Commit() const {
    connection_.Check(SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_COMMIT));
    SetAutocommit(true);
  }
  void SetAutocommit(bool on) const {
    const auto value = static_cast<SQLULEN>(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): ODBC takes numbers as pointers.
    auto* number = reinterpret_cast<SQLPOINTER>(value);
    connection_.Check(
        SQLSetConnectAttr(connection_.get(), SQL_ATTR_AUTOCOMMIT, number, SQL_IS_UINTEGER));
  }

  Environment environment_;
  Handle connection_;
};

}  // namespace

bool IsOdbcAddress(const std::string& address) {
  const Text upper = ToUpper(FromUtf8(address.substr(0, 7)));
  return upper == u"DRIVER=" || upper.starts_with(u"DSN=");
}

std::unique_ptr<Database> OpenOdbc(const std::string& address, Access access) {
  return std::make_unique<OdbcDatabase>(address, access);
}

}  // namespace conmuta::capture
