#include "taller/verdicts.h"

#include <algorithm>

#include "taller/judging_run.h"

namespace conmuta::taller {

Verdicts::Verdicts(const Clock& clock, std::function<void()> told)
    : clock_(clock), told_(std::move(told)), thread_([this] { Work(); }) {}

Verdicts::~Verdicts() {
  {
    const std::scoped_lock lock(mutex_);
    ends_ = true;
  }
  wake_.notify_one();
  thread_.join();
}

void Verdicts::Judge(std::shared_ptr<const CaptureBytes> bytes, const layouts::Layout& layout) {
  auto run = std::make_shared<JudgingRun>(bytes, layout, clock_);
  {
    const std::scoped_lock lock(mutex_);
    if (bytes != bytes_) {
      kinds_.clear();
      counts_ = {};
      end_.reset();
      end_line_ = 0;
    }
    bytes_ = std::move(bytes);
    run_ = std::move(run);
    bytes_done_ = 0;
    rests_.clear();
    goes_on_ = true;
  }
  wake_.notify_one();
}

void Verdicts::More() {
  {
    const std::scoped_lock lock(mutex_);
    goes_on_ = run_ != nullptr;
  }
  wake_.notify_one();
}

void Verdicts::Stop() {
  const std::scoped_lock lock(mutex_);
  run_.reset();
  goes_on_ = false;
}

void Verdicts::Work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    wake_.wait(lock, [this] { return ends_ || goes_on_; });
    if (ends_) return;
    const std::shared_ptr<JudgingRun> run = run_;
    // Before the chunk: what is appended meanwhile is another one.
    goes_on_ = false;
    works_ = true;
    lock.unlock();
    const std::vector<LineKind>& kinds = run->Chunk();
    lock.lock();
    works_ = false;
    const bool is_wanted = run == run_;
    if (is_wanted) {
      Publish(*run, kinds);
      goes_on_ = goes_on_ || !run->IsDone();
    }
    if (!goes_on_) done_.notify_all();
    if (!is_wanted) continue;
    lock.unlock();
    told_();
    lock.lock();
  }
}

void Verdicts::Publish(const JudgingRun& run, const std::vector<LineKind>& kinds) {
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const auto at = static_cast<std::size_t>(run.first_line() - 1 + i);
    if (at == kinds_.size()) {
      kinds_.push_back(kinds[i]);
    } else {
      counts_.Remove(kinds_[at]);
      kinds_[at] = kinds[i];
    }
    counts_.Add(kinds[i]);
  }
  rests_.erase(std::lower_bound(rests_.begin(), rests_.end(), run.first_line()), rests_.end());
  rests_.insert(rests_.end(), run.rests().begin(), run.rests().end());
  bytes_done_ = run.bytes_done();
  if (!run.IsDone()) return;
  end_ = run.end();
  counts_.SetEnd(end_);
  end_line_ = 0;
  if (!end_) return;
  const auto last =
      std::find_if(kinds_.rbegin(), kinds_.rend(), [](LineKind kind) { return kind.IsOfBlock(); });
  end_line_ = static_cast<std::uint64_t>(kinds_.rend() - last);
}

bool Verdicts::Wait(std::chrono::milliseconds most) {
  std::unique_lock lock(mutex_);
  return done_.wait_for(lock, most, [this] { return !goes_on_ && !works_; });
}

Verdicts::Progress Verdicts::progress() const {
  const std::scoped_lock lock(mutex_);
  return {bytes_done_, bytes_ ? bytes_->size() : 0, !goes_on_ && !works_};
}

LineKind Verdicts::Of(std::uint64_t line) const {
  const std::scoped_lock lock(mutex_);
  return line >= 1 && line <= kinds_.size() ? kinds_[static_cast<std::size_t>(line - 1)]
                                            : LineKind();
}

LineCounts Verdicts::counts() const {
  const std::scoped_lock lock(mutex_);
  return counts_;
}

std::uint64_t Verdicts::RestBefore(std::uint64_t line) const {
  const std::scoped_lock lock(mutex_);
  const auto behind = std::lower_bound(rests_.begin(), rests_.end(), line);
  return behind != rests_.begin() ? *(behind - 1) : 0;
}

std::vector<std::uint64_t> Verdicts::LinesOf(Counter counter, std::uint64_t behind) const {
  const std::scoped_lock lock(mutex_);
  std::vector<std::uint64_t> lines;
  for (auto at = static_cast<std::size_t>(behind); at < kinds_.size(); ++at) {
    if (Counts(counter, at)) lines.push_back(at + 1);
  }
  return lines;
}

std::optional<std::uint64_t> Verdicts::Next(Counter counter, std::uint64_t line) const {
  const std::scoped_lock lock(mutex_);
  for (auto at = static_cast<std::size_t>(line); at < kinds_.size(); ++at) {
    if (Counts(counter, at)) return at + 1;
  }
  return std::nullopt;
}

std::optional<std::uint64_t> Verdicts::Previous(Counter counter, std::uint64_t line) const {
  const std::scoped_lock lock(mutex_);
  for (auto at = std::min<std::size_t>(kinds_.size() + 1, static_cast<std::size_t>(line)); at > 1;
       --at) {
    if (Counts(counter, at - 2)) return at - 1;
  }
  return std::nullopt;
}

}  // namespace conmuta::taller
