#include "taller/recent_files.h"

#include <algorithm>
#include <string>

#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/unicode.h"

namespace conmuta::taller {

namespace fs = std::filesystem;

RecentFiles::RecentFiles(Disk& disk, fs::path list) : disk_(disk), list_(std::move(list)) {
  std::string bytes;
  try {
    bytes = disk_.Read(list_);
  } catch (const host::UserError&) {
    return;  // the first time there is none
  }
  for (std::size_t begin = 0; begin < bytes.size() && paths_.size() < kMost;) {
    const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
    if (end != begin) paths_.emplace_back(FromUtf8(bytes.substr(begin, end - begin)));
    begin = end + 1;
  }
}

void RecentFiles::Add(const fs::path& path) {
  std::erase(paths_, path);
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > kMost) paths_.resize(kMost);
  Write();
}

void RecentFiles::Remove(const fs::path& path) {
  std::erase(paths_, path);
  Write();
}

void RecentFiles::Write() {
  std::string bytes;
  for (const fs::path& path : paths_) bytes += host::Utf8(path.u16string()) + "\n";
  try {
    disk_.Write(list_, bytes);
  } catch (const host::UserError&) {
    // A menu that forgets is no reason to stop somebody's work.
  }
}

}  // namespace conmuta::taller
