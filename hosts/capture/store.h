// The store: what was received, which is never changed, and what was made of it, which can be made
// again. Each half has tables and a version of its own.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "capture/database.h"
#include "capture/received.h"
#include "capture/schema.h"
#include "layouts/expected_calls.h"
#include "layouts/layout.h"

namespace conmuta::capture {

struct SourceRow {
  std::int64_t id = 0;
  std::string name;
  std::string place;           // where a source that can be read again goes on
  std::int64_t last = 0;       // the highest number of a line; 0 without lines
  std::string layout;          // that the lines were translated with last
  std::int64_t concluded = 0;  // lines up to this one were translated
  // A fresh translator that gets the lines from this one on is where that one is.
  std::int64_t replay_from = 1;
};

// What is known of a source, for people.
struct SourceSummary {
  SourceRow row;
  std::int64_t lines = 0;
  std::int64_t calls = 0;
  std::int64_t cut = 0;
  std::int64_t torn = 0;
  std::int64_t head = 0;                          // of files, about the lines
  std::int64_t last_ms = 0;                       // when the last line came
  std::map<std::string, std::int64_t> by_layout;  // calls
  std::map<NoCall, std::int64_t> rejected;        // lines, by reason
  std::map<LineError, std::int64_t> errors;
  std::map<Incident, std::int64_t> incidents;
};

struct StoredCall {
  std::string source;
  std::string layout;
  layouts::Sheet::TimeOf time_of = layouts::Sheet::TimeOf::kUnknown;
  std::int64_t number = 0;
  layouts::ExpectedCall call;
};

// Everything throws StoreError. What is written between Begin and Commit is there whole or not.
class Store {
 public:
  Store(std::unique_ptr<Database> database, SchemaUse use);

  void Begin();
  void Commit();
  void Rollback() noexcept;

  // The source of that name; made when it is new.
  SourceRow Source(const std::string& name);
  std::vector<SourceRow> Sources();

  // Whether this one may write lines of the source: nobody else may then.
  bool Claim(std::int64_t source) { return database_->Claim(source); }
  void AllowLongWork() { database_->AllowLongWork(); }

  // False when the line is there already; another one of its number is a StoreError, for then
  // somebody else keeps lines of this source.
  bool Keep(std::int64_t source, const Received& line);
  void Place(std::int64_t source, const std::string& place);
  void Count(std::int64_t source, Incident incident, std::int64_t count);

  // The lines from one number to another, in their order.
  void Lines(std::int64_t source, std::int64_t first, std::int64_t last,
             const std::function<void(const Received&)>& take);

  // A call is kept with the name of the layout that made it.
  void Conclude(std::int64_t source, std::int64_t number, const layouts::Outcome& outcome,
                const std::string& layout, layouts::Sheet::TimeOf time_of);
  void Progress(const SourceRow& row);
  // As if no line of the source had been translated yet.
  void Forget(const SourceRow& row);

  SourceSummary Summary(const SourceRow& row);
  // By source and number; days as yyyymmdd, both included. Of all sources when the name is empty.
  void Calls(const std::string& source, std::int64_t first_day, std::int64_t last_day,
             const std::function<void(const StoredCall&)>& take);

 private:
  // Rows that are asked for at once.
  static constexpr std::int64_t kPortion = 1000;

  bool IsKept(std::int64_t source, const Received& line);
  // Prepared once each, by their text.
  Statement& Get(const char* sql);

  std::unique_ptr<Database> database_;
  std::map<const char*, std::unique_ptr<Statement>> statements_;
};

}  // namespace conmuta::capture
