// Files of the project that tests read: switches, examples, sources.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace conmuta::test {

inline std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// What is in a folder, in the same order everywhere.
inline std::vector<std::filesystem::path> Entries(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  if (!std::filesystem::is_directory(folder)) return paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

}  // namespace conmuta::test
