#include "capture/recorder.h"

namespace conmuta::capture {

namespace {

std::vector<clsCfgConmut*> ConfigsOf(const SourceLayout& source) {
  std::vector<clsCfgConmut*> configs;
  for (const LoadedLayout& layout : source.layouts) configs.push_back(layout.config.get());
  return configs;
}

}  // namespace

Recorder::Source::Source(const SourceLayout& l) : layout(l), translation(ConfigsOf(l)) {}

Recorder::Recorder(const std::vector<SourceLayout>& sources, OpenDatabase open)
    : open_(std::move(open)) {
  for (const SourceLayout& source : sources) sources_.emplace_back(source);
}

void Recorder::Open(Thoroughness thoroughness) {
  if (store_ != nullptr) return;
  auto store = std::make_unique<Store>(open_(thoroughness), SchemaUse::kWrite);
  for (Source& source : sources_) {
    const std::int64_t id = store->Source(source.layout.name).id;
    if (!store->Claim(id)) {
      throw StoreError(StoreError::Kind::kInUse,
                       "otro conmuta guarda la fuente " + source.layout.name + ": deténgalo");
    }
    // Nobody else writes it now.
    source.row = store->Source(source.layout.name);
    source.row.layout = source.layout.layout;
    source.stands = false;
  }
  store_ = std::move(store);
}

// What fails has changed nothing in the store, but perhaps the translators.
template <class Work>
void Recorder::InTransaction(Work work) {
  std::vector<SourceRow> rows;
  for (const Source& source : sources_) rows.push_back(source.row);
  try {
    for (Source& source : sources_) {
      source.touched = false;
      source.place.clear();
    }
    store_->Begin();
    work();
    for (const Source& source : sources_) {
      if (source.touched) store_->Progress(source.row);
    }
    store_->Commit();
  } catch (...) {
    store_->Rollback();
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      sources_[i].row = rows[i];
      sources_[i].stands = false;
    }
    throw;
  }
}

void Recorder::Record(std::span<const Arrival> lines, const Incidents& incidents) {
  InTransaction([&] {
    for (const Arrival& arrival : lines) {
      Source& source = sources_[arrival.source];
      if (!store_->Keep(source.row.id, arrival.line)) continue;
      Stand(source);
      source.row.last = arrival.line.number;
      if (!arrival.line.place.empty()) source.place = arrival.line.place;
      Conclude(source, arrival.line, true);
    }
    for (Source& source : sources_) {
      if (!source.place.empty()) store_->Place(source.row.id, source.row.place = source.place);
    }
    for (const auto& [key, count] : incidents) {
      store_->Count(sources_[key.first].row.id, key.second, count);
    }
  });
}

// A translator that does not stand gets the lines from the last quiet point on; those that were not
// translated by then are written, too.
void Recorder::Stand(Source& source) {
  if (source.stands) return;
  source.translation.StartAfresh();
  const std::int64_t concluded = source.row.concluded;
  store_->Lines(source.row.id, source.row.replay_from, source.row.last,
                [&](const Received& line) { Conclude(source, line, line.number > concluded); });
  source.stands = true;
}

void Recorder::Conclude(Source& source, const Received& line, bool write) {
  // A piece of a line has its columns elsewhere: it could only become a wrong call.
  if (line.wholeness == Wholeness::kWhole) {
    const Conclusion made = source.translation.Translate(line);
    const LoadedLayout& layout = source.layout.layouts[made.layout];
    if (write) {
      store_->Conclude(source.row.id, line.number, made.outcome, layout.name, layout.time_of);
    }
  }
  if (!write) return;
  source.touched = true;
  source.row.concluded = line.number;
  if (!source.translation.Waits()) source.row.replay_from = line.number + 1;
}

void Recorder::CatchUp() {
  InTransaction([&] {
    for (Source& source : sources_) Stand(source);
  });
}

void Recorder::TranslateAnew() {
  InTransaction([&] {
    store_->AllowLongWork();
    for (Source& source : sources_) {
      store_->Forget(source.row);
      source.row.concluded = 0;
      source.row.replay_from = 1;
      source.stands = false;
      Stand(source);
    }
  });
}

}  // namespace conmuta::capture
