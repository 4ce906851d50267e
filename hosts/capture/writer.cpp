#include "capture/writer.h"

#include <algorithm>

namespace conmuta::capture {

Writer::Writer(Backlog& backlog, Recorder& recorder, Limits limits, Messages& messages,
               Events events)
    : backlog_(backlog),
      recorder_(recorder),
      limits_(limits),
      messages_(messages),
      events_(std::move(events)),
      complaint_(messages),
      silence_(messages) {}

Writer::~Writer() {
  Stop();
  if (thread_.joinable()) thread_.join();
}

void Writer::Start() {
  thread_ = std::thread([this] { Work(); });
}

bool Writer::Stop() {
  if (!thread_.joinable() || is_stuck_) return all_kept_;
  end_ = Clock::now() + limits_.end;
  stopping_ = true;
  backlog_.Hurry();
  std::unique_lock lock(mutex_);
  if (changed_.wait_for(lock, limits_.end + limits_.patience, [this] { return is_over_; })) {
    thread_.join();
  } else {
    is_stuck_ = true;
    all_kept_ = KeepRest();
  }
  return all_kept_;
}

void Writer::SetBusy(bool busy) {
  const std::lock_guard lock(mutex_);
  busy_since_ = busy ? std::optional(Clock::now()) : std::nullopt;
}

std::optional<Writer::Clock::duration> Writer::SilentFor() {
  const std::lock_guard lock(mutex_);
  if (!busy_since_) return std::nullopt;
  return Clock::now() - *busy_since_;
}

void Writer::Watch() {
  const auto silent = SilentFor();
  if (!silent) {
    silence_.Over("el almacén responde otra vez");
  } else if (*silent >= limits_.spill_after) {
    silence_.Tell("el almacén no responde; lo que llega espera en el derrame");
    backlog_.SpillAll();
  }
}

bool Writer::IsHeldUp() {
  const auto silent = SilentFor();
  return failed_ || (silent && *silent >= limits_.spill_after);
}

void Writer::Work() {
  Write();
  const std::lock_guard lock(mutex_);
  is_over_ = true;
  changed_.notify_all();
}

void Writer::Write() {
  auto pause = limits_.first_pause;
  Clock::time_point works_until = Clock::now();
  for (;;) {
    const bool last_round = stopping_;
    const bool any = backlog_.Wait(reached_ ? limits_.delay : limits_.delay.zero(), limits_.lines);
    if (!any && last_round) return;
    if (!any && reached_) {
      works_until = Clock::now();
      continue;
    }
    const bool written = WriteNext();
    failed_ = !written;
    if (is_stuck_) return;  // somebody else saw to what waits
    if (written) {
      pause = limits_.first_pause;
      works_until = Clock::now();
    }
    if (last_round && (!written || Clock::now() >= end_)) {
      all_kept_ = KeepRest();
      return;
    }
    if (written) continue;
    if (Clock::now() - works_until >= limits_.spill_after) backlog_.SpillAll();
    Pause(pause);
    pause = std::min(pause * 2, limits_.longest_pause);
  }
}

bool Writer::WriteNext() try {
  SetBusy(true);
  recorder_.Open(next_opening_);
  next_opening_ = Thoroughness::kQuick;
  const Backlog::Batch* batch = nullptr;
  if (reached_ || Reach()) batch = backlog_.Next(limits_.lines);
  if (batch != nullptr) {
    recorder_.Record(batch->lines, batch->incidents);
    backlog_.Done();
  }
  SetBusy(false);
  complaint_.Over("el almacén vuelve a tomar líneas");
  return batch != nullptr;
} catch (const StoreError& error) {
  complaint_.Tell(std::string("el almacén no toma líneas: ") + error.what());
  // Whether a commit that failed was one only the store can tell.
  recorder_.Close();
  SetBusy(false);
  if (error.kind() == StoreError::Kind::kDamaged) next_opening_ = Thoroughness::kChecked;
  if (error.kind() == StoreError::Kind::kRefused) events_.refused();
  return false;
}

// Lines get their numbers from the store and the spill: without both none can be written.
bool Writer::Reach() {
  std::vector<std::string> places;
  for (std::size_t i = 0; i < recorder_.size(); ++i) {
    const SourceRow& row = recorder_.Row(i);
    const auto place = backlog_.ContinueFrom(i, row.last, row.place);
    if (!place) return false;
    places.push_back(*place);
  }
  reached_ = true;
  events_.reached(places);
  // What is stored and was not translated; where it fails now it is made up for with the next
  // lines.
  recorder_.CatchUp();
  return true;
}

// What the store did not take: it is there at the next start.
bool Writer::KeepRest() {
  if (!backlog_.SpillAll()) {
    messages_.Tell("se pierden las líneas que no se pudieron guardar: " +
                   std::to_string(backlog_.waiting()));
    return false;
  }
  if (const std::int64_t count = backlog_.spilled(); count > 0) {
    messages_.Tell("quedan en el derrame " + std::to_string(count) +
                   " líneas; la próxima captura las pasa al almacén");
  }
  return true;
}

void Writer::Pause(std::chrono::milliseconds time) const {
  constexpr std::chrono::milliseconds kStep{20};
  for (; time > time.zero() && !stopping_; time -= kStep) std::this_thread::sleep_for(kStep);
}

}  // namespace conmuta::capture
