// A file system that is one file in memory: what reads or writes files works on bytes through it.
#pragma once

#include "platform/files.h"

namespace conmuta::taller {

class MemoryFile final : public FileSystem {
 public:
  // Every path names it.
  static constexpr TextView kPath = u"archivo";

  explicit MemoryFile(std::string bytes = {}) : bytes_(std::move(bytes)) {}

  const std::string& bytes() const { return bytes_; }

  std::optional<std::uint32_t> Attributes(TextView) override { return kAttributeArchive; }
  std::optional<FileContent> Read(TextView, std::size_t limit) override {
    return FileContent{bytes_.size(), bytes_.substr(0, limit)};
  }
  bool Write(TextView, std::string_view bytes) override {
    bytes_ = bytes;
    return true;
  }
  bool Remove(TextView) override {
    bytes_.clear();
    return true;
  }
  bool Copy(TextView, TextView) override { return false; }
  std::vector<Text> List(TextView) override { return {}; }
  Text LastError() const override { return {}; }
  Text CurrentDirectory() const override { return {}; }
  void CurrentDirectory(TextView) override {}

 private:
  std::string bytes_;
};

}  // namespace conmuta::taller
