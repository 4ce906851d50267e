// The copy of a document that a crash leaves.
#pragma once

#include <filesystem>
#include <optional>

#include "taller/disk.h"
#include "taller/document.h"

namespace conmuta::taller {

// Lies beside the document's file, never over it; that of a document without one in a folder of the
// program's. It is there only while the document has changes that no file has.
class Autosave {
 public:
  Autosave(Disk& disk, std::filesystem::path folder) : disk_(disk), folder_(std::move(folder)) {}

  // To be called now and then; writes only what is new.
  [[nodiscard]] Messages Keep(const Document& document);

  // Whether a session ended without saving or throwing away what it had changed. An empty path
  // stands for a document without a file.
  bool HasCopyOf(const std::filesystem::path& path) const;

  // Puts the copy into the document that was opened from that path, as a change that can be undone.
  [[nodiscard]] Messages Restore(Document& document);

  // The person does not want the copy that this one wrote or restored, or ends the program knowing
  // what is lost. Another one's stays: it may be that of a window that is still open.
  void Discard(const std::filesystem::path& path);

 private:
  void RemoveKept();
  std::filesystem::path PathOf(const std::filesystem::path& document) const;

  Disk& disk_;
  std::filesystem::path folder_;
  std::filesystem::path kept_path_;  // of the copy
  std::optional<std::size_t> kept_revision_;
};

}  // namespace conmuta::taller
