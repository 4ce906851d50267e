#include "capture/capture.h"

#include <memory>
#include <optional>
#include <set>

#include "capture/odbc_database.h"
#include "capture/store_address.h"

namespace conmuta::capture {
namespace {

// How often it is asked whether the store answers.
constexpr std::chrono::milliseconds kWatch{500};
constexpr std::chrono::milliseconds kWaitStep{20};
// How long sources may take to end.
constexpr std::chrono::milliseconds kLastBytes{3000};

std::string SpillAddress(const CaptureOptions& options) {
  if (!options.spill.empty()) return options.spill;
  return IsOdbcAddress(options.store) ? "conmuta-derrame.db" : options.store + "-derrame";
}

class Run {
 public:
  Run(const CaptureOptions& options, const LoadLayouts& load, std::ostream& err)
      : options_(options), messages_(err) {
    for (const NamedSource& source : options_.sources) {
      names_.push_back(source.name);
      layouts_.push_back({source.name, source.layout, load(source.layout)});
    }
    sources_.resize(names_.size());
    const std::string spill = SpillAddress(options_);
    recorder_.emplace(layouts_, OpenerForWriting(options_.store, messages_));
    backlog_.emplace(names_, OpenerForWriting(spill, messages_), options_.backlog, messages_,
                     options_.now);
    const Writer::Events events{
        [this](const auto& places) { loop_.Post([this, places] { GoOn(places); }); },
        [this] { loop_.Post([this] { Refuse(); }); }};
    writer_.emplace(*backlog_, *recorder_, options_.writer, messages_, events);
  }

  int Work() {
    loop_.OnSignal([this] { End(); });
    // What a PBX sends now it will not send again: the store is not waited for.
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      if (!HasPlaces(i)) StartSource(i, {});
    }
    writer_->Start();
    Watch();
    loop_.Run();
    const bool kept = writer_->Stop();
    if (refused_) return kUsage;
    return kept ? kDone : kFailed;
  }

  bool is_stuck() const { return writer_->is_stuck(); }

 private:
  // A file waits by itself, till it is known how far it was read.
  bool HasPlaces(std::size_t i) const {
    return options_.sources[i].address.kind == Address::Kind::kFile;
  }

  void GoOn(const std::vector<std::string>& places) {
    if (ending_) return;
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      if (HasPlaces(i)) StartSource(i, places[i]);
    }
  }

  void StartSource(std::size_t i, const std::string& place) {
    sources_[i] = MakeSource(Context(i, place));
    sources_[i]->Start();
  }

  void Watch() {
    writer_->Watch();
    loop_.After(kWatch, [this] { Watch(); });
  }

  void Refuse() {
    refused_ = true;
    End();
  }

  SourceContext Context(std::size_t i, const std::string& place) {
    return {loop_,
            *backlog_,
            messages_,
            i,
            names_[i],
            options_.sources[i].address,
            LineEnd(layouts_[i].layouts.front().config->Separador()),
            place,
            options_.once,
            options_.source,
            [this, i] { Ended(i); }};
  }

  void Ended(std::size_t i) {
    ended_.insert(i);
    if (ended_.size() < sources_.size()) return;
    ending_ ? loop_.Stop() : AwaitTheStore();
  }

  // Who waits for the end of a file wants it in the store, however long that is.
  void AwaitTheStore() {
    if (backlog_->IsEmpty() || writer_->IsHeldUp()) return loop_.Stop();
    loop_.After(kWaitStep, [this] {
      if (!ending_) AwaitTheStore();
    });
  }

  void End() {
    if (std::exchange(ending_, true)) return;
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      sources_[i] != nullptr ? sources_[i]->Stop() : Ended(i);
    }
    loop_.After(kLastBytes, [this] { loop_.Stop(); });
  }

  const CaptureOptions options_;
  Messages messages_;
  std::vector<std::string> names_;
  std::vector<SourceLayout> layouts_;
  std::optional<Recorder> recorder_;
  std::optional<Backlog> backlog_;
  std::optional<Writer> writer_;
  Loop loop_;
  std::vector<std::unique_ptr<Source>> sources_;
  std::set<std::size_t> ended_;
  bool ending_ = false;
  bool refused_ = false;
};

}  // namespace

int Capture(const CaptureOptions& options, const LoadLayouts& load, std::ostream& err) {
  auto run = std::make_unique<Run>(options, load, err);
  const int code = run->Work();
  // A thread of its own may wait for a silent store for ever: then the program ends around it.
  if (run->is_stuck()) static_cast<void>(run.release());
  return code;
}

}  // namespace conmuta::capture
