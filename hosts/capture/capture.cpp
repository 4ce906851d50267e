#include "capture/capture.h"

#include <deque>
#include <optional>
#include <stdexcept>
#include <thread>

#include "capture/odbc_database.h"
#include "capture/store_address.h"

namespace conmuta::capture {
namespace {

std::string SpillAddress(const CaptureOptions& options) {
  if (!options.spill.empty()) return options.spill;
  return IsOdbcAddress(options.store) ? "conmuta-derrame.db" : options.store + "-derrame";
}

class Run {
 public:
  Run(const CaptureOptions& options, const LoadLayout& load, std::ostream& err)
      : options_(options), messages_(err) {
    for (const NamedSource& source : options_.sources) {
      clsCfgConmut& config = configs_.emplace_back(SystemPlatform());
      load(source.layout, config);
      names_.push_back(source.name);
      layouts_.push_back({source.name, source.layout, &config});
    }
    places_.resize(names_.size());
    const std::string spill = SpillAddress(options_);
    recorder_.emplace(layouts_, OpenerForWriting(options_.store, messages_));
    backlog_.emplace(names_, OpenerForWriting(spill, messages_), options_.backlog, messages_,
                     options_.now);
    writer_.emplace(*backlog_, *recorder_, options_.writer, messages_);
  }

  int Work() {
    // A signal counts from the beginning, also while the store cannot be had.
    loop_.OnSignal([this] { End(); });
    Prepare(options_.source.first_pause);
    loop_.Run();
    const bool kept = writer_->Stop();
    return kept && !refused_ ? kDone : kFailed;
  }

 private:
  // Lines get their numbers from the store and the spill: without both there is no first line.
  void Prepare(std::chrono::milliseconds pause) {
    try {
      recorder_->Open(Thoroughness::kChecked);
      for (std::size_t i = 0; i < names_.size(); ++i) {
        const SourceRow& row = recorder_->Row(i);
        places_[i] = backlog_->ContinueFrom(i, row.last, row.place);
      }
    } catch (const StoreError& error) {
      recorder_->Close();
      complaint_.Tell(std::string("no se puede usar el almacén: ") + error.what());
      if (error.kind() == StoreError::Kind::kRefused) {
        refused_ = true;
        return loop_.Stop();
      }
      return loop_.After(
          pause, [this, pause] { Prepare(std::min(pause * 2, options_.source.longest_pause)); });
    }
    complaint_.Over("el almacén se puede usar otra vez");
    for (std::size_t i = 0; i < names_.size(); ++i) sources_.push_back(MakeSource(Context(i)));
    writer_->Start();
    for (const auto& source : sources_) source->Start();
  }

  SourceContext Context(std::size_t i) {
    return {loop_,
            *backlog_,
            messages_,
            i,
            names_[i],
            options_.sources[i].address,
            LineEnd(configs_[i].Separador()),
            places_[i],
            options_.once,
            options_.source,
            [this] {
              if (++ended_ == sources_.size()) End();
            }};
  }

  void End() {
    for (const auto& source : sources_) source->Stop();
    loop_.Stop();
  }

  const CaptureOptions& options_;
  Messages messages_;
  Complaint complaint_{messages_};
  std::deque<clsCfgConmut> configs_;
  std::vector<std::string> names_;
  std::vector<std::string> places_;  // from which the sources go on
  std::vector<SourceLayout> layouts_;
  std::optional<Recorder> recorder_;
  std::optional<Backlog> backlog_;
  std::optional<Writer> writer_;
  Loop loop_;
  std::vector<std::unique_ptr<Source>> sources_;
  std::size_t ended_ = 0;
  bool refused_ = false;
};

}  // namespace

int Capture(const CaptureOptions& options, const LoadLayout& load, std::ostream& err) {
  return Run(options, load, err).Work();
}

}  // namespace conmuta::capture
