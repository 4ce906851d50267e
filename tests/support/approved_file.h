// Text files that somebody looked at and approved.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace conmuta::test {

// The approved file at that path. With CONMUTA_APPROVE set in the environment, what was made takes
// its place first.
inline std::string ApprovedFile(const std::filesystem::path& path, const std::string& made) {
  if (std::getenv("CONMUTA_APPROVE") != nullptr) {
    std::ofstream(path, std::ios::binary) << made;
  }
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << "nothing was approved as " << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace conmuta::test
