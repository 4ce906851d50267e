#include "capture/spill.h"

namespace conmuta::capture {
namespace {

// Which part of the spill is a source's: captures of several may share one. (FNV-1a; what is
// claimed has 62 bits.)
std::int64_t PartOf(const std::string& source) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : source) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return static_cast<std::int64_t>(hash >> 2);
}

}  // namespace

Spill::Spill(std::vector<std::string> sources, std::vector<std::int64_t> taken,
             std::unique_ptr<Database> database)
    : names_(std::move(sources)),
      taken_(std::move(taken)),
      database_(std::move(database)),
      ends_(names_.size()) {
  for (const std::string& name : names_) {
    if (!database_->Claim(PartOf(name))) {
      throw StoreError(StoreError::Kind::kInUse, "otro conmuta derrama ahí la fuente " + name +
                                                     ": dé otro archivo con --derrame");
    }
  }
  database_->Run(
      "CREATE TABLE IF NOT EXISTS derrame(fuente TEXT NOT NULL, numero BIGINT NOT NULL, "
      "momento BIGINT NOT NULL, estado BIGINT NOT NULL, bytes BLOB NOT NULL, lugar TEXT NOT NULL, "
      "PRIMARY KEY(fuente, numero))");
  add_ = database_->Prepare(
      "INSERT INTO derrame(fuente, numero, momento, estado, bytes, lugar) "
      "VALUES(?, ?, ?, ?, ?, ?) ON CONFLICT DO NOTHING");
  same_ = database_->Prepare("SELECT momento, bytes FROM derrame WHERE fuente = ? AND numero = ?");
  first_ = database_->Prepare(
      "SELECT numero, momento, estado, bytes, lugar FROM derrame "
      "WHERE fuente = ? AND numero > ? ORDER BY numero LIMIT ?");
  remove_ = database_->Prepare("DELETE FROM derrame WHERE fuente = ? AND numero BETWEEN 1 AND ?");
  FindEnds();
}

void Spill::FindEnds() {
  const auto count = database_->Prepare(
      "SELECT COUNT(*) FROM derrame WHERE fuente = ? AND numero NOT BETWEEN 1 AND ?");
  const auto last = database_->Prepare(
      "SELECT numero, lugar FROM derrame WHERE fuente = ? AND (numero > 0) = ? "
      "ORDER BY numero DESC LIMIT 1");
  for (std::size_t i = 0; i < names_.size(); ++i) {
    count->BindText(0, names_[i]);
    count->Bind(1, taken_[i]);
    if (count->Step()) count_ += count->Number(0);
    count->Reset();
    for (const bool numbered : {false, true}) {
      last->BindText(0, names_[i]);
      last->Bind(1, numbered ? 1 : 0);
      if (!last->Step()) continue;
      if (numbered) {
        ends_[i].numbered.number = last->Number(0);
        ends_[i].numbered.place = last->Bytes(1);
      } else {
        ends_[i].unnumbered = last->Number(0);
      }
      last->Reset();
    }
  }
}

void Spill::Number(std::size_t source, std::int64_t shift) {
  const auto number =
      database_->Prepare("UPDATE derrame SET numero = numero + ? WHERE fuente = ? AND numero < 0");
  number->Bind(0, shift);
  number->BindText(1, names_[source]);
  number->Run();
}

template <class Work>
void Spill::InTransaction(Work work) {
  try {
    database_->Run("BEGIN");
    work();
    database_->Run("COMMIT");
  } catch (...) {
    database_->Rollback();
    throw;
  }
}

void Spill::Add(std::span<const Arrival> lines) {
  std::int64_t added = 0;
  InTransaction([&] {
    for (const Arrival& arrival : lines) {
      add_->BindText(0, names_[arrival.source]);
      add_->Bind(1, arrival.line.number);
      add_->Bind(2, arrival.line.time_ms);
      add_->Bind(3, static_cast<std::int64_t>(arrival.line.wholeness));
      add_->BindBytes(4, arrival.line.bytes);
      add_->BindText(5, arrival.line.place);
      const std::int64_t rows = add_->Run();
      if (rows == 0 && !Holds(arrival)) {
        throw StoreError(StoreError::Kind::kFailed,
                         "tiene ya otras líneas de la fuente " + names_[arrival.source]);
      }
      added += rows;
    }
  });
  count_ += added;
}

bool Spill::Holds(const Arrival& arrival) {
  same_->BindText(0, names_[arrival.source]);
  same_->Bind(1, arrival.line.number);
  const bool holds = same_->Step() && same_->Number(0) == arrival.line.time_ms &&
                     same_->Bytes(1) == arrival.line.bytes;
  same_->Reset();
  return holds;
}

std::vector<Arrival> Spill::First(std::size_t count) {
  std::vector<Arrival> lines;
  for (std::size_t i = 0; i < names_.size() && lines.size() < count; ++i) {
    first_->BindText(0, names_[i]);
    first_->Bind(1, taken_[i]);
    first_->Bind(2, static_cast<std::int64_t>(count - lines.size()));
    while (first_->Step()) {
      Received line;
      line.number = first_->Number(0);
      line.time_ms = first_->Number(1);
      line.wholeness = static_cast<Wholeness>(first_->Number(2));
      line.bytes = first_->Bytes(3);
      line.place = first_->Bytes(4);
      lines.push_back({i, std::move(line)});
    }
  }
  return lines;
}

void Spill::Take(std::span<const Arrival> lines) {
  count_ -= static_cast<std::int64_t>(lines.size());
  for (const Arrival& arrival : lines) taken_[arrival.source] = arrival.line.number;
  InTransaction([&] {
    for (std::size_t i = 0; i < names_.size(); ++i) {
      remove_->BindText(0, names_[i]);
      remove_->Bind(1, taken_[i]);
      remove_->Run();
    }
  });
}

}  // namespace conmuta::capture
