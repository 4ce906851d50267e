// The files that were worked on last.
#pragma once

#include <filesystem>
#include <vector>

#include "taller/disk.h"

namespace conmuta::taller {

// Kept in a file of its own, a path a line in UTF-8. That it cannot be read or written bothers
// nobody.
class RecentFiles {
 public:
  static constexpr std::size_t kMost = 10;

  RecentFiles(Disk& disk, std::filesystem::path list);

  // Latest first, none twice.
  const std::vector<std::filesystem::path>& paths() const { return paths_; }

  void Add(const std::filesystem::path& path);
  void Remove(const std::filesystem::path& path);

 private:
  void Write();

  Disk& disk_;
  std::filesystem::path list_;
  std::vector<std::filesystem::path> paths_;
};

}  // namespace conmuta::taller
