#include <algorithm>
#include <ostream>

#include "capture/asking.h"
#include "capture/store_address.h"

namespace conmuta::capture {

int Reprocess(const ReprocessOptions& options, const LoadLayouts& load, std::ostream& err) {
  Messages messages(err);
  std::vector<SourceLayout> sources;
  for (const auto& [name, layout] : options.layouts) {
    sources.push_back({name, layout, load(layout)});
  }
  try {
    {
      // A store that is not there must not be made, nor a source by a name with a mistake.
      OpenForReading(options.store);
      Store store(OpenerForWriting(options.store, messages)(Thoroughness::kQuick),
                  SchemaUse::kWrite);
      const auto rows = store.Sources();
      for (const SourceLayout& source : sources) {
        const auto has_name = [&](const SourceRow& row) { return row.name == source.name; };
        if (std::none_of(rows.begin(), rows.end(), has_name)) {
          messages.Tell("el almacén no tiene la fuente " + source.name);
          return kUsage;
        }
      }
    }
    Recorder recorder(sources, OpenerForWriting(options.store, messages));
    recorder.Open(Thoroughness::kQuick);
    recorder.TranslateAnew();
    return kDone;
  } catch (const StoreError& error) {
    if (error.kind() == StoreError::Kind::kInUse) {
      messages.Tell("la captura está en marcha; deténgala, y repita la orden (" +
                    std::string(error.what()) + ")");
    } else {
      messages.Tell("no se puede traducir el almacén " + ShownStore(options.store) + ": " +
                    error.what());
    }
    return kUsage;
  }
}

}  // namespace conmuta::capture
