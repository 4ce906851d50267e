// A database that asks before each statement.
#pragma once

#include <functional>
#include <string>

#include "capture/database.h"

namespace conmuta::test {

// Called with the statement before it runs: may wait, or throw what the database would.
using BeforeSql = std::function<void(const std::string& sql)>;

class HookedStatement final : public capture::Statement {
 public:
  HookedStatement(std::unique_ptr<Statement> statement, std::string sql, const BeforeSql& before)
      : statement_(std::move(statement)), sql_(std::move(sql)), before_(before) {}

  void Bind(int parameter, std::int64_t number) override { statement_->Bind(parameter, number); }
  void BindText(int parameter, std::string_view utf8) override {
    statement_->BindText(parameter, utf8);
  }
  void BindBytes(int parameter, std::string_view bytes) override {
    statement_->BindBytes(parameter, bytes);
  }
  bool Step() override {
    before_(sql_);
    return statement_->Step();
  }
  void Reset() override { statement_->Reset(); }
  std::int64_t Number(int column) override { return statement_->Number(column); }
  std::string Bytes(int column) override { return statement_->Bytes(column); }
  std::int64_t Run() override {
    before_(sql_);
    return statement_->Run();
  }

 private:
  std::unique_ptr<Statement> statement_;
  std::string sql_;
  const BeforeSql& before_;
};

class HookedDatabase final : public capture::Database {
 public:
  HookedDatabase(std::unique_ptr<Database> database, BeforeSql before)
      : database_(std::move(database)), before_(std::move(before)) {}

  std::unique_ptr<capture::Statement> Prepare(const std::string& sql) override {
    return std::make_unique<HookedStatement>(database_->Prepare(sql), sql, before_);
  }
  void Run(const std::string& sql) override {
    before_(sql);
    database_->Run(sql);
  }
  std::string BytesType() const override { return database_->BytesType(); }
  bool Claim(std::int64_t source) override { return database_->Claim(source); }
  void Rollback() noexcept override { database_->Rollback(); }

 private:
  std::unique_ptr<Database> database_;
  BeforeSql before_;
};

}  // namespace conmuta::test
