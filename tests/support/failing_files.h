// A file system that hands on to another one, writes down what is asked of it, and fails at the
// operation that a test names.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "support/config_snapshot.h"

namespace conmuta::test {

class FailingFiles final : public FileSystem {
 public:
  explicit FailingFiles(FileSystem& files) : files_(files) {}

  std::optional<std::uint32_t> Attributes(TextView path) override {
    if (Fails("attributes", path)) return std::nullopt;
    return files_.Attributes(path);
  }
  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    if (Fails(limit == 0 ? "probe" : "read", path)) return std::nullopt;
    return files_.Read(path, limit);
  }
  bool Write(TextView path, std::string_view bytes) override {
    return !Fails("write", path) && files_.Write(path, bytes);
  }
  bool Remove(TextView path) override { return !Fails("remove", path) && files_.Remove(path); }
  bool Copy(TextView from, TextView to) override {
    return !Fails("copy to", to) && files_.Copy(from, to);
  }
  std::vector<Text> List(TextView pattern) override {
    if (Fails("list", pattern)) return {};
    return files_.List(pattern);
  }
  Text LastError() const override { return files_.LastError(); }
  Text CurrentDirectory() const override { return files_.CurrentDirectory(); }
  void CurrentDirectory(TextView path) override { files_.CurrentDirectory(path); }

  // Starts counting anew; 0 for no failure.
  void FailAt(int operation) {
    failing_ = operation;
    operations.clear();
  }

  // "operation file", the one that failed included.
  std::vector<std::string> operations;

 private:
  bool Fails(const char* operation, TextView path) {
    const std::size_t folder = path.find_last_of(u"/\\") + 1;  // 0 when there is none
    operations.push_back(std::string(operation) + " " + Shown(path.substr(folder)));
    return std::cmp_equal(operations.size(), failing_);
  }

  FileSystem& files_;
  int failing_ = 0;
};

}  // namespace conmuta::test
