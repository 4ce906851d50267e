// A folder of its own for one test, deleted with all that is in it.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/text.h"

namespace conmuta::test {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    const std::filesystem::path base = std::filesystem::temp_directory_path();
    // Numbers go on from folder to folder: a system may remember files by their path.
    static int number = 0;
    do {
      path_ = base / ("conmuta-test-" + std::to_string(++number));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  Text Path(TextView name) const { return (path_ / name).u16string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace conmuta::test
