#include "capture/backlog.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace conmuta::capture {
namespace {

std::size_t SizeOf(const Arrival& arrival) {
  return sizeof arrival + arrival.line.bytes.size() + arrival.line.place.size();
}

}  // namespace

Backlog::Backlog(std::vector<std::string> sources, OpenDatabase open_spill, Limits limits,
                 Messages& messages, Now now)
    : names_(std::move(sources)),
      open_spill_(std::move(open_spill)),
      limits_(limits),
      spill_complaint_(messages),
      lost_complaint_(messages),
      now_(std::move(now)),
      last_(names_.size(), kUnnumbered),
      taken_(names_.size()),
      spill_pause_(limits.first_pause) {}

std::optional<std::string> Backlog::ContinueFrom(std::size_t source, std::int64_t last,
                                                 const std::string& place) {
  const std::lock_guard lock(mutex_);
  std::string from = place;
  const bool known = UseSpill([&](Spill& spill) {
    const Received& spilled = spill.Last(source);
    if (spilled.number > last && !spilled.place.empty()) from = spilled.place;
    if (last_[source] >= 0) return;
    // First on the disk: a line that has its number there keeps it.
    const std::int64_t shift = std::max(last, spilled.number) - kUnnumbered;
    spill.Number(source, shift);
    Shift(source, shift);
  });
  return known ? std::optional(from) : std::nullopt;
}

void Backlog::Shift(std::size_t source, std::int64_t shift) {
  last_[source] += shift;
  for (Arrival& arrival : memory_) {
    if (arrival.source == source) arrival.line.number += shift;
  }
}

bool Backlog::MustWait() const {
  const std::lock_guard lock(mutex_);
  return bytes_ >= limits_.memory;
}

bool Backlog::IsEmpty() const {
  const std::lock_guard lock(mutex_);
  return HasNothing();
}

std::size_t Backlog::waiting() const {
  const std::lock_guard lock(mutex_);
  return memory_.size();
}

std::int64_t Backlog::spilled() const {
  const std::lock_guard lock(mutex_);
  return spill_ ? spill_->count() : 0;
}

void Backlog::Put(std::size_t source, std::string bytes, Wholeness wholeness, std::string place,
                  bool can_wait) {
  const std::lock_guard lock(mutex_);
  if (!can_wait && bytes_ >= limits_.memory && !SpillMemory() && bytes_ >= limits_.refuse) {
    ++incidents_[{source, Incident::kLost}];
    lost_complaint_.Tell(names_[source] + ": no queda dónde guardar una línea, y se pierde");
    return;
  }
  Arrival arrival{source, {}};
  arrival.line.number = ++last_[source];
  arrival.line.time_ms = now_();
  arrival.line.wholeness = wholeness;
  arrival.line.bytes = std::move(bytes);
  arrival.line.place = std::move(place);
  bytes_ += SizeOf(arrival);
  memory_.push_back(std::move(arrival));
  changed_.notify_one();
}

void Backlog::Count(std::size_t source, Incident incident, std::int64_t count) {
  const std::lock_guard lock(mutex_);
  incidents_[{source, incident}] += count;
  changed_.notify_one();
}

bool Backlog::Wait(std::chrono::milliseconds delay, std::size_t enough) {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, delay, [&] { return hurry_ || !HasNothing(); });
  if (HasNothing()) return false;
  changed_.wait_for(lock, delay, [&] { return hurry_ || memory_.size() >= enough; });
  return true;
}

void Backlog::Hurry() {
  const std::lock_guard lock(mutex_);
  hurry_ = true;
  changed_.notify_all();
}

const Backlog::Batch* Backlog::Next(std::size_t count) {
  const std::lock_guard lock(mutex_);
  if (!batch_.Empty()) return &batch_;
  batch_.spilled = SpillHoldsLines();
  if (batch_.spilled) {
    if (!UseSpill([&](Spill& spill) { batch_.lines = spill.First(count); })) return nullptr;
  } else {
    const auto end = memory_.begin() + static_cast<std::ptrdiff_t>(std::min(count, memory_.size()));
    batch_.lines.assign(std::make_move_iterator(memory_.begin()), std::make_move_iterator(end));
    memory_.erase(memory_.begin(), end);
    for (const Arrival& arrival : batch_.lines) bytes_ -= SizeOf(arrival);
  }
  batch_.incidents = std::exchange(incidents_, {});
  return &batch_;
}

void Backlog::Done() {
  const std::lock_guard lock(mutex_);
  if (batch_.spilled && spill_) {
    try {
      spill_->Take(batch_.lines);
    } catch (const StoreError& error) {
      // They do not come again: whether there is room can wait.
      if (error.kind() == StoreError::Kind::kDamaged) SpillFailed(error);
    }
  }
  batch_ = {};
  if (memory_.empty()) lost_complaint_.Over("las líneas se guardan otra vez");
}

bool Backlog::SpillAll() {
  const std::lock_guard lock(mutex_);
  return SpillMemory();
}

bool Backlog::SpillMemory() {
  if (memory_.empty() && (batch_.spilled || batch_.lines.empty())) return true;
  const bool added = UseSpill([&](Spill& spill) {
    // What the writer has in hand comes first by its numbers, wherever it lies.
    std::vector<Arrival> lines = batch_.spilled ? std::vector<Arrival>() : batch_.lines;
    lines.insert(lines.end(), memory_.begin(), memory_.end());
    spill.Add(lines);
  });
  if (!added) return false;
  for (const Arrival& arrival : memory_) ++incidents_[{arrival.source, Incident::kSpilled}];
  memory_.clear();
  bytes_ = 0;
  return true;
}

template <class Work>
bool Backlog::UseSpill(Work work) {
  if (!hurry_ && std::chrono::steady_clock::now() < spill_again_) return false;
  try {
    OpenSpill();
    work(*spill_);
  } catch (const StoreError& error) {
    SpillFailed(error);
    return false;
  }
  spill_pause_ = limits_.first_pause;
  spill_complaint_.Over("el derrame sirve otra vez");
  return true;
}

void Backlog::OpenSpill() {
  if (spill_) return;
  spill_.emplace(names_, taken_, open_spill_(spill_opening_));
  spill_opening_ = Thoroughness::kQuick;
  if (std::exchange(spill_known_, true)) return;
  for (std::size_t i = 0; i < names_.size(); ++i) {
    Shift(i, spill_->LastUnnumbered(i) - kUnnumbered);
  }
}

// It is closed, and opened again later: one that is damaged is set aside then.
void Backlog::SpillFailed(const StoreError& error) {
  spill_complaint_.Tell(std::string("no se puede usar el derrame: ") + error.what());
  if (spill_) {
    spill_held_lines_ = spill_->count() > 0;
    taken_ = spill_->taken();
    spill_.reset();
  }
  if (error.kind() == StoreError::Kind::kDamaged) spill_opening_ = Thoroughness::kChecked;
  spill_again_ = std::chrono::steady_clock::now() + spill_pause_;
  spill_pause_ = std::min(spill_pause_ * 2, limits_.longest_pause);
}

}  // namespace conmuta::capture
