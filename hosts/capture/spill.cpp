#include "capture/spill.h"

namespace conmuta::capture {

Spill::Spill(std::vector<std::string> sources, const OpenDatabase& open)
    : names_(std::move(sources)), database_(open(Thoroughness::kChecked)), ends_(names_.size()) {
  database_->Run(
      "CREATE TABLE IF NOT EXISTS derrame(fuente TEXT NOT NULL, numero BIGINT NOT NULL, "
      "momento BIGINT NOT NULL, estado BIGINT NOT NULL, bytes BLOB NOT NULL, lugar TEXT NOT NULL, "
      "PRIMARY KEY(fuente, numero))");
  add_ = database_->Prepare(
      "INSERT INTO derrame(fuente, numero, momento, estado, bytes, lugar) "
      "VALUES(?, ?, ?, ?, ?, ?) ON CONFLICT DO NOTHING");
  first_ = database_->Prepare(
      "SELECT numero, momento, estado, bytes, lugar FROM derrame WHERE fuente = ? "
      "ORDER BY numero LIMIT ?");
  remove_ = database_->Prepare("DELETE FROM derrame WHERE fuente = ? AND numero = ?");
  FindEnds();
}

void Spill::FindEnds() {
  const auto count = database_->Prepare("SELECT COUNT(*) FROM derrame WHERE fuente = ?");
  const auto last = database_->Prepare(
      "SELECT numero, lugar FROM derrame WHERE fuente = ? AND (numero > 0) = ? "
      "ORDER BY numero DESC LIMIT 1");
  for (std::size_t i = 0; i < names_.size(); ++i) {
    count->BindText(0, names_[i]);
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
      added += add_->Run();
    }
  });
  count_ += added;
}

std::vector<Arrival> Spill::First(std::size_t count) {
  std::vector<Arrival> lines;
  for (std::size_t i = 0; i < names_.size() && lines.size() < count; ++i) {
    first_->BindText(0, names_[i]);
    first_->Bind(1, static_cast<std::int64_t>(count - lines.size()));
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

void Spill::Remove(std::span<const Arrival> lines) {
  std::int64_t removed = 0;
  InTransaction([&] {
    for (const Arrival& arrival : lines) {
      remove_->BindText(0, names_[arrival.source]);
      remove_->Bind(1, arrival.line.number);
      removed += remove_->Run();
    }
  });
  count_ -= removed;
}

}  // namespace conmuta::capture
