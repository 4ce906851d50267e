// A disk in memory that fails on demand.
#pragma once

#include <map>

#include "conmuta/user_error.h"
#include "taller/disk.h"

namespace conmuta::test {

class MapDisk final : public taller::Disk {
 public:
  std::string Read(const std::filesystem::path& path) override {
    if (fails || !Exists(path)) throw host::UserError("no se puede leer");
    return files[path];
  }
  void Write(const std::filesystem::path& path, std::string_view bytes) override {
    ++writes;
    if (fails) throw host::UserError("el disco está lleno");
    files[path] = bytes;
  }
  bool Exists(const std::filesystem::path& path) override { return files.count(path) != 0; }
  void Remove(const std::filesystem::path& path) override { files.erase(path); }

  std::map<std::filesystem::path, std::string> files;
  bool fails = false;
  int writes = 0;
};

}  // namespace conmuta::test
