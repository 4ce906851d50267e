#include "taller/autosave.h"

#include "conmuta/user_error.h"

namespace conmuta::taller {
namespace {

namespace fs = std::filesystem;

constexpr const char* kExtension = ".recuperado";

}  // namespace

fs::path Autosave::PathOf(const fs::path& document) const {
  fs::path copy = document.empty() ? folder_ / "sin-nombre" : document;
  return copy += kExtension;
}

Messages Autosave::Keep(const Document& document) {
  const fs::path copy = PathOf(document.path());
  if (copy == kept_path_ && kept_revision_ == document.revision() && document.IsModified())
    return {};
  // One of a document that got its name meanwhile is of no use any more.
  if (!kept_path_.empty() && (copy != kept_path_ || !document.IsModified())) RemoveKept();
  if (!document.IsModified()) return {};
  try {
    disk_.Write(copy, document.toml());
  } catch (const host::UserError& error) {
    return {MessageOf(error.what())};
  }
  kept_path_ = copy;
  kept_revision_ = document.revision();
  return {};
}

bool Autosave::HasCopyOf(const fs::path& path) const {
  return disk_.Exists(PathOf(path));
}

Messages Autosave::Restore(Document& document) {
  const fs::path copy = PathOf(document.path());
  try {
    Messages messages = document.Replace(disk_.Read(copy), u"Recuperar");
    if (!messages.empty()) return messages;
  } catch (const host::UserError& error) {
    return {MessageOf(error.what())};
  }
  kept_path_ = copy;
  kept_revision_ = document.revision();
  return {};
}

void Autosave::Discard(const fs::path& path) {
  if (kept_path_.empty() || kept_path_ != PathOf(path)) return;
  RemoveKept();
}

void Autosave::RemoveKept() {
  try {
    disk_.Remove(kept_path_);
  } catch (const host::UserError&) {
    // It will be offered again.
  }
  kept_path_.clear();
  kept_revision_.reset();
}

}  // namespace conmuta::taller
