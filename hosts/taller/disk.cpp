#include "taller/disk.h"

#include <system_error>

#include "conmuta/files.h"
#include "conmuta/user_error.h"

namespace conmuta::taller {
namespace {

namespace fs = std::filesystem;

fs::path Beside(const fs::path& path) {
  fs::path beside = path;
  return beside += ".nuevo";
}

}  // namespace

std::string SystemDisk::Read(const fs::path& path) {
  return host::ReadWhole(path);
}

void SystemDisk::Write(const fs::path& path, std::string_view bytes) {
  host::CheckMayWrite(path, host::Existing::kIsReplaced);
  // Beside it first: a disk that gets full meanwhile must not cost what was there.
  const fs::path beside = Beside(path);
  std::error_code error;
  try {
    host::WriteWhole(beside, bytes, host::Existing::kIsReplaced);
  } catch (const host::UserError&) {
    fs::remove(beside, error);
    throw;
  }
  fs::rename(beside, path, error);
  if (!error) return;
  std::error_code ignored;
  fs::remove(beside, ignored);
  throw host::UserError(host::ShownPath(path) + ": no se puede reemplazar");
}

bool SystemDisk::Exists(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

void SystemDisk::Remove(const fs::path& path) {
  std::error_code error;
  fs::remove(path, error);
  if (error) throw host::UserError(host::ShownPath(path) + ": no se puede borrar");
}

}  // namespace conmuta::taller
