// Puts lines into the store, and what is made of them, in one transaction.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "capture/line_translation.h"
#include "capture/source_layout.h"
#include "capture/store.h"

namespace conmuta::capture {

// Increments of what is counted, by source.
using Incidents = std::map<std::pair<std::size_t, Incident>, std::int64_t>;

// The store knows best: a translator is where the store says that it is, or is brought there by
// translating again from the last line before which nothing waited.
class Recorder {
 public:
  Recorder(const std::vector<SourceLayout>& sources, OpenDatabase open);

  // Opens the store if it is not open, and keeps others from writing lines of these sources.
  // StoreError, kInUse when somebody else does.
  void Open(Thoroughness thoroughness);
  void Close() { store_.reset(); }

  std::size_t size() const { return sources_.size(); }
  // What the store had of a source when it was opened last.
  const SourceRow& Row(std::size_t source) const { return sources_[source].row; }

  // All of these or, with StoreError, nothing. Lines that are there already change nothing; those
  // of one source come in the order of their numbers.
  void Record(std::span<const Arrival> lines, const Incidents& incidents);

  // Translates what is stored and was not translated yet.
  void CatchUp();
  // Translates anew all that is stored, with the layout that the sources have now.
  void TranslateAnew();

 private:
  struct Source {
    explicit Source(const SourceLayout& l);

    SourceLayout layout;
    LineTranslation translation;
    SourceRow row;
    bool stands = false;   // the translator is where the row says
    bool touched = false;  // in this transaction
    std::string place;     // likewise
  };

  void Stand(Source& source);
  void Conclude(Source& source, const Received& line, bool write);
  template <class Work>
  void InTransaction(Work work);

  OpenDatabase open_;
  std::deque<Source> sources_;
  std::unique_ptr<Store> store_;
};

}  // namespace conmuta::capture
