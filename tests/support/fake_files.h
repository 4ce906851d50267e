// A file system in memory whose operations fail on demand.
#pragma once

#include <map>

#include "platform/files.h"

namespace conmuta::test {

class FakeFiles final : public FileSystem {
 public:
  struct Entry {
    std::string bytes;
    std::uint32_t attributes = kAttributeArchive;
  };

  std::optional<std::uint32_t> Attributes(TextView path) override {
    const auto entry = Find(path);
    if (entry == nullptr) return std::nullopt;
    return entry->attributes;
  }

  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    const auto entry = Find(path);
    if (entry == nullptr || fail_read || (entry->attributes & kAttributeDirectory) != 0) {
      return std::nullopt;
    }
    return FileContent{entry->bytes.size(), entry->bytes.substr(0, limit)};
  }

  bool Write(TextView path, std::string_view bytes) override {
    ++writes;
    const auto entry = Find(path);
    if (entry != nullptr && (entry->attributes & kAttributeReadOnly) != 0) return false;
    if (bytes.size() > room) {
      entries.erase(Text(path));  // a full disk leaves nothing behind
      return false;
    }
    entries[Text(path)] = {std::string(bytes), kAttributeArchive};
    return true;
  }

  bool Remove(TextView path) override {
    ++removals;
    const auto entry = Find(path);
    if (entry == nullptr || (entry->attributes & kAttributeReadOnly) != 0 || fail_remove) {
      return false;
    }
    entries.erase(Text(path));
    return true;
  }

  std::map<Text, Entry> entries;
  bool fail_read = false;
  bool fail_remove = false;
  std::size_t room = SIZE_MAX;  // bytes that a written file may have
  int writes = 0;
  int removals = 0;

 private:
  Entry* Find(TextView path) {
    const auto found = entries.find(Text(path));
    return found != entries.end() ? &found->second : nullptr;
  }
};

}  // namespace conmuta::test
