// A file layer for SQLite that fails when it is told to, and knows what a power cut would leave.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace conmuta::test {

// Stands on SQLite's usual layer, under a name of its own, as long as this lives. What counts are
// writes, flushes and changes of a file's length.
class FaultyFiles {
 public:
  FaultyFiles();
  ~FaultyFiles();
  FaultyFiles(const FaultyFiles&) = delete;
  FaultyFiles& operator=(const FaultyFiles&) = delete;

  const char* name() const { return name_.c_str(); }

  // After `operations` more the next one fails with SQLite's code; all that follow, too, when
  // `lasting`.
  void FailAfter(std::int64_t operations, int code, bool lasting);
  void StopFailing();
  std::int64_t operations() const { return operations_; }
  std::int64_t failures() const { return failures_; }

  // Copies the file and what belongs to it, without any write that was not flushed.
  void PowerCut(const std::filesystem::path& path, const std::filesystem::path& to);

  // For the layer itself: how an operation ends, SQLITE_OK when it is to be done.
  int Operation();
  // Before a change: what the bytes were since the last flush.
  void Changing(const std::string& path, sqlite3_file* file, sqlite3_int64 offset,
                sqlite3_int64 size);
  void Flushed(const std::string& path);
  sqlite3_vfs* usual() const { return usual_; }

 private:
  struct Change {
    sqlite3_int64 offset;
    std::string bytes;
    sqlite3_int64 size;  // of the file
  };

  std::string name_;
  sqlite3_vfs* usual_;
  sqlite3_vfs vfs_;
  std::recursive_mutex mutex_;
  std::int64_t operations_ = 0;
  std::int64_t failures_ = 0;
  std::int64_t until_failure_ = -1;
  int code_ = SQLITE_OK;
  bool lasting_ = false;
  std::map<std::string, std::vector<Change>> unflushed_;
};

}  // namespace conmuta::test
