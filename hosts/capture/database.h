// A database as the store sees it: SQL with question marks, numbers of 64 bits, texts, bytes.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace conmuta::capture {

class StoreError : public std::runtime_error {
 public:
  enum class Kind : std::uint8_t {
    kFailed,   // may pass: disk full, read-only, busy, unreachable
    kDamaged,  // the file is no database any more
    kRefused,  // never passes: made by a later version
    kInUse,    // passes when another program ends
  };

  StoreError(Kind kind, const std::string& what) : std::runtime_error(what), kind_(kind) {}
  Kind kind() const { return kind_; }

 private:
  Kind kind_;
};

// All of these throw StoreError. Parameters and columns count from 0.
class Statement {
 public:
  virtual ~Statement() = default;

  virtual void Bind(int parameter, std::int64_t number) = 0;
  virtual void BindText(int parameter, std::string_view utf8) = 0;
  virtual void BindBytes(int parameter, std::string_view bytes) = 0;

  // Goes to the next row, the first at first; false behind the last, and then from the beginning.
  virtual bool Step() = 0;
  // Whoever does not read all rows.
  virtual void Reset() = 0;

  virtual std::int64_t Number(int column) = 0;  // 0 for NULL
  virtual std::string Bytes(int column) = 0;    // text as UTF-8

  // For what has no rows: gives how many it touched.
  virtual std::int64_t Run() = 0;
};

class Database {
 public:
  virtual ~Database() = default;
  virtual std::unique_ptr<Statement> Prepare(const std::string& sql) = 0;
  virtual void Run(const std::string& sql) = 0;
  // What this database calls a column of bytes.
  virtual std::string BytesType() const = 0;
  // Whether this one may write lines of a source: nobody else may then, until this is closed.
  virtual bool Claim(std::int64_t source) = 0;
  // What the present transaction does may take as long as it likes.
  virtual void AllowLongWork() {}
  // Rolls back what is open, if anything; never throws.
  virtual void Rollback() noexcept = 0;
};

enum class Access : std::uint8_t { kReadOnly, kReadWrite };

enum class Thoroughness : std::uint8_t { kQuick, kChecked };

// Opens the same database again each time it is called.
using OpenDatabase = std::function<std::unique_ptr<Database>(Thoroughness)>;

}  // namespace conmuta::capture
