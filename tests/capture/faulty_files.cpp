#include "capture/faulty_files.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace conmuta::test {
namespace {

struct FaultyFile {
  sqlite3_file base;
  FaultyFiles* layer;
  std::string* path;
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

FaultyFile* Of(sqlite3_file* file) {
  return reinterpret_cast<FaultyFile*>(file);
}

const sqlite3_io_methods& Methods() {
  static const sqlite3_io_methods methods = [] {
    sqlite3_io_methods m{};
    m.iVersion = 2;
    m.xClose = [](sqlite3_file* f) {
      FaultyFile* file = Of(f);
      const int code = file->real()->pMethods->xClose(file->real());
      delete file->path;
      return code;
    };
    m.xRead = [](sqlite3_file* f, void* to, int size, sqlite3_int64 offset) {
      return Of(f)->real()->pMethods->xRead(Of(f)->real(), to, size, offset);
    };
    m.xWrite = [](sqlite3_file* f, const void* from, int size, sqlite3_int64 offset) {
      FaultyFile* file = Of(f);
      if (const int code = file->layer->Operation(); code != SQLITE_OK) return code;
      file->layer->Changing(*file->path, file->real(), offset, size);
      return file->real()->pMethods->xWrite(file->real(), from, size, offset);
    };
    m.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) {
      FaultyFile* file = Of(f);
      if (const int code = file->layer->Operation(); code != SQLITE_OK) return code;
      sqlite3_int64 now = 0;
      file->real()->pMethods->xFileSize(file->real(), &now);
      if (now > size) file->layer->Changing(*file->path, file->real(), size, now - size);
      return file->real()->pMethods->xTruncate(file->real(), size);
    };
    // Noted, not done: a power cut is only played here, and a disk is slow.
    m.xSync = [](sqlite3_file* f, int) {
      FaultyFile* file = Of(f);
      const int code = file->layer->Operation();
      if (code == SQLITE_OK) file->layer->Flushed(*file->path);
      return code;
    };
    m.xFileSize = [](sqlite3_file* f, sqlite3_int64* size) {
      return Of(f)->real()->pMethods->xFileSize(Of(f)->real(), size);
    };
    m.xLock = [](sqlite3_file* f, int level) {
      return Of(f)->real()->pMethods->xLock(Of(f)->real(), level);
    };
    m.xUnlock = [](sqlite3_file* f, int level) {
      return Of(f)->real()->pMethods->xUnlock(Of(f)->real(), level);
    };
    m.xCheckReservedLock = [](sqlite3_file* f, int* result) {
      return Of(f)->real()->pMethods->xCheckReservedLock(Of(f)->real(), result);
    };
    m.xFileControl = [](sqlite3_file* f, int what, void* argument) {
      return Of(f)->real()->pMethods->xFileControl(Of(f)->real(), what, argument);
    };
    m.xSectorSize = [](sqlite3_file* f) {
      return Of(f)->real()->pMethods->xSectorSize(Of(f)->real());
    };
    // Nothing that a disk may not promise.
    m.xDeviceCharacteristics = [](sqlite3_file*) { return 0; };
    m.xShmMap = [](sqlite3_file* f, int page, int size, int extend, void volatile** at) {
      return Of(f)->real()->pMethods->xShmMap(Of(f)->real(), page, size, extend, at);
    };
    m.xShmLock = [](sqlite3_file* f, int offset, int count, int flags) {
      return Of(f)->real()->pMethods->xShmLock(Of(f)->real(), offset, count, flags);
    };
    m.xShmBarrier = [](sqlite3_file* f) { Of(f)->real()->pMethods->xShmBarrier(Of(f)->real()); };
    m.xShmUnmap = [](sqlite3_file* f, int remove) {
      return Of(f)->real()->pMethods->xShmUnmap(Of(f)->real(), remove);
    };
    return m;
  }();
  return methods;
}

int Open(sqlite3_vfs* vfs, sqlite3_filename path, sqlite3_file* f, int flags, int* out) {
  auto* layer = static_cast<FaultyFiles*>(vfs->pAppData);
  FaultyFile* file = Of(f);
  file->base.pMethods = nullptr;
  const int code = layer->usual()->xOpen(layer->usual(), path, file->real(), flags, out);
  if (code != SQLITE_OK) return code;
  file->layer = layer;
  file->path = new std::string(path != nullptr ? path : "");
  file->base.pMethods = &Methods();
  return SQLITE_OK;
}

}  // namespace

FaultyFiles::FaultyFiles() : usual_(sqlite3_vfs_find(nullptr)), vfs_(*usual_) {
  static int instances = 0;
  name_ = "faulty-" + std::to_string(++instances);
  vfs_.szOsFile = static_cast<int>(sizeof(FaultyFile)) + usual_->szOsFile;
  vfs_.zName = name_.c_str();
  // What is opened by the usual layer is asked for by its own data.
  vfs_.pAppData = this;
  vfs_.xOpen = Open;
  vfs_.xDelete = [](sqlite3_vfs* v, const char* path, int sync) {
    auto* layer = static_cast<FaultyFiles*>(v->pAppData);
    if (const int code = layer->Operation(); code != SQLITE_OK) return code;
    layer->Flushed(path);
    return layer->usual()->xDelete(layer->usual(), path, sync);
  };
  vfs_.xAccess = [](sqlite3_vfs* v, const char* path, int flags, int* result) {
    auto* usual = static_cast<FaultyFiles*>(v->pAppData)->usual();
    return usual->xAccess(usual, path, flags, result);
  };
  vfs_.xFullPathname = [](sqlite3_vfs* v, const char* path, int size, char* out) {
    auto* usual = static_cast<FaultyFiles*>(v->pAppData)->usual();
    return usual->xFullPathname(usual, path, size, out);
  };
  sqlite3_vfs_register(&vfs_, 0);
}

FaultyFiles::~FaultyFiles() {
  sqlite3_vfs_unregister(&vfs_);
}

void FaultyFiles::FailAfter(std::int64_t operations, int code, bool lasting) {
  const std::lock_guard lock(mutex_);
  until_failure_ = operations;
  code_ = code;
  lasting_ = lasting;
}

void FaultyFiles::StopFailing() {
  const std::lock_guard lock(mutex_);
  until_failure_ = -1;
}

int FaultyFiles::Operation() {
  const std::lock_guard lock(mutex_);
  ++operations_;
  if (until_failure_ < 0) return SQLITE_OK;
  if (until_failure_ > 0) {
    --until_failure_;
    return SQLITE_OK;
  }
  if (!lasting_) until_failure_ = -1;
  ++failures_;
  return code_;
}

void FaultyFiles::Changing(const std::string& path, sqlite3_file* file, sqlite3_int64 offset,
                           sqlite3_int64 size) {
  const std::lock_guard lock(mutex_);
  Change change{offset, {}, 0};
  file->pMethods->xFileSize(file, &change.size);
  const sqlite3_int64 there = std::max<sqlite3_int64>(0, std::min(size, change.size - offset));
  change.bytes.resize(static_cast<std::size_t>(there));
  if (there > 0) {
    file->pMethods->xRead(file, change.bytes.data(), static_cast<int>(there), offset);
  }
  unflushed_[path].push_back(std::move(change));
}

void FaultyFiles::Flushed(const std::string& path) {
  const std::lock_guard lock(mutex_);
  unflushed_.erase(path);
}

void FaultyFiles::PowerCut(const std::filesystem::path& path, const std::filesystem::path& to) {
  const std::lock_guard lock(mutex_);
  for (const char* part : {"", "-wal"}) {
    std::filesystem::path from = path;
    std::filesystem::path copy = to;
    from += part;
    copy += part;
    std::filesystem::remove(copy);
    if (!std::filesystem::exists(from)) continue;
    std::ifstream file(from, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    for (const auto& [name, changes] : unflushed_) {
      if (std::filesystem::path(name).filename() != from.filename()) continue;
      for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        const auto offset = static_cast<std::size_t>(change->offset);
        if (bytes.size() < offset + change->bytes.size()) {
          bytes.resize(offset + change->bytes.size());
        }
        std::memcpy(bytes.data() + offset, change->bytes.data(), change->bytes.size());
        bytes.resize(static_cast<std::size_t>(change->size));
      }
    }
    std::ofstream(copy, std::ios::binary) << bytes;
  }
}

}  // namespace conmuta::test
