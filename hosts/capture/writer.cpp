#include "capture/writer.h"

#include <algorithm>

namespace conmuta::capture {

Writer::Writer(Backlog& backlog, Recorder& recorder, Limits limits, Messages& messages)
    : backlog_(backlog),
      recorder_(recorder),
      limits_(limits),
      messages_(messages),
      complaint_(messages) {}

void Writer::Start() {
  thread_ = std::thread([this] { Work(); });
}

bool Writer::Stop() {
  if (!thread_.joinable()) return all_kept_;
  stopping_ = true;
  backlog_.Hurry();
  thread_.join();
  return all_kept_;
}

void Writer::Work() {
  using Clock = std::chrono::steady_clock;
  auto pause = limits_.first_pause;
  Clock::time_point works_until = Clock::now();
  // What is stored and was not translated; sources are heard meanwhile. Where it fails now it is
  // made up for with the next lines.
  try {
    recorder_.CatchUp();
  } catch (const StoreError&) {
    recorder_.Close();
  }
  for (;;) {
    const bool last_round = stopping_;
    const bool any = backlog_.Wait(limits_.delay, limits_.lines);
    if (!any) {
      if (last_round) return;
      works_until = Clock::now();
      continue;
    }
    if (WriteNext()) {
      pause = limits_.first_pause;
      works_until = Clock::now();
      continue;
    }
    if (last_round || Clock::now() - works_until >= limits_.spill_after) {
      const bool spilled = backlog_.SpillAll();
      if (last_round) {
        all_kept_ = spilled;
        if (!spilled) {
          messages_.Tell("se pierden las líneas que no se pudieron guardar: " +
                         std::to_string(backlog_.waiting()));
        }
        return;
      }
    }
    Pause(pause);
    pause = std::min(pause * 2, limits_.longest_pause);
  }
}

bool Writer::WriteNext() {
  try {
    recorder_.Open(next_opening_);
    next_opening_ = Thoroughness::kQuick;
    const Backlog::Batch& batch = backlog_.Next(limits_.lines);
    recorder_.Record(batch.lines, batch.incidents);
    backlog_.Done();
    complaint_.Over("el almacén vuelve a tomar líneas");
    return true;
  } catch (const StoreError& error) {
    complaint_.Tell(std::string("el almacén no toma líneas: ") + error.what());
    // Whether a commit that failed was one only the store can tell.
    recorder_.Close();
    if (error.kind() == StoreError::Kind::kDamaged) next_opening_ = Thoroughness::kChecked;
    return false;
  }
}

void Writer::Pause(std::chrono::milliseconds time) const {
  constexpr std::chrono::milliseconds kStep{20};
  for (; time > time.zero() && !stopping_; time -= kStep) std::this_thread::sleep_for(kStep);
}

}  // namespace conmuta::capture
