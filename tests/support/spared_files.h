// A file system whose own memory is not the matter of a test.
#pragma once

#include "platform/files.h"
#include "support/memory.h"

namespace conmuta::test {

// What it gives back is still the caller's to keep.
class SparedFiles final : public FileSystem {
 public:
  explicit SparedFiles(FileSystem& files) : files_(files) {}

  std::optional<std::uint32_t> Attributes(TextView path) override {
    const memory::Spared spared;
    return files_.Attributes(path);
  }
  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    const memory::Spared spared;
    return files_.Read(path, limit);
  }
  bool Write(TextView path, std::string_view bytes) override {
    const memory::Spared spared;
    return files_.Write(path, bytes);
  }
  bool Remove(TextView path) override {
    const memory::Spared spared;
    return files_.Remove(path);
  }
  bool Copy(TextView from, TextView to) override {
    const memory::Spared spared;
    return files_.Copy(from, to);
  }
  std::vector<Text> List(TextView pattern) override {
    const memory::Spared spared;
    return files_.List(pattern);
  }
  Text LastError() const override {
    const memory::Spared spared;
    return files_.LastError();
  }
  Text CurrentDirectory() const override {
    const memory::Spared spared;
    return files_.CurrentDirectory();
  }
  void CurrentDirectory(TextView path) override {
    const memory::Spared spared;
    files_.CurrentDirectory(path);
  }

 private:
  FileSystem& files_;
};

}  // namespace conmuta::test
