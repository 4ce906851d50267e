// A file system in memory whose operations fail on demand.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/files.h"

namespace conmuta::test {

class FakeFiles final : public FileSystem {
 public:
  struct Entry {
    std::string bytes;
    std::uint32_t attributes = kAttributeArchive;
  };

  std::optional<std::uint32_t> Attributes(TextView path) override {
    operations.push_back("attributes");
    const auto entry = Find(path);
    if (entry == nullptr) return std::nullopt;
    return entry->attributes;
  }

  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    operations.push_back("read");
    const auto entry = Find(path);
    if (entry == nullptr || fail_read || (entry->attributes & kAttributeDirectory) != 0) {
      return std::nullopt;
    }
    return FileContent{entry->bytes.size(), entry->bytes.substr(0, limit)};
  }

  bool Write(TextView path, std::string_view bytes) override {
    operations.push_back("write");
    ++writes;
    const auto entry = Find(path);
    if (fail_open || (entry != nullptr && IsProtected(*entry))) return false;
    if (bytes.size() > room) {
      entries.erase(Text(path));  // a full disk leaves nothing behind
      return false;
    }
    entries[Text(path)] = {std::string(bytes), kAttributeArchive};
    return true;
  }

  bool Remove(TextView path) override {
    operations.push_back("remove");
    ++removals;
    const auto entry = Find(path);
    if (entry == nullptr || IsProtected(*entry) || fail_remove) return false;
    entries.erase(Text(path));
    return true;
  }

  bool Copy(TextView from, TextView to) override {
    operations.push_back("copy");
    const auto source = Find(from);
    const auto target = Find(to);
    if (source == nullptr || fail_copy || (target != nullptr && IsProtected(*target))) return false;
    Entry copy = *source;
    copy.attributes &= ~kAttributeReadOnly;
    entries[Text(to)] = std::move(copy);
    return true;
  }

  std::vector<Text> List(TextView pattern) override {
    operations.push_back("list");
    std::vector<Text> names;
    const std::size_t folder = pattern.find_last_of(u"/\\") + 1;  // 0 when there is none
    for (const auto& [path, entry] : entries) {
      if (path.compare(0, folder, pattern.substr(0, folder)) != 0) continue;
      const TextView name = TextView(path).substr(folder);
      if (name.find_first_of(u"/\\") != TextView::npos) continue;
      if (Matches(name, pattern.substr(folder))) names.emplace_back(name);
    }
    return names;
  }

  Text LastError() const override { return last_error; }
  Text CurrentDirectory() const override { return current_directory; }
  void CurrentDirectory(TextView path) override { current_directory = path; }

  std::map<Text, Entry> entries;
  bool fail_read = false;
  bool fail_remove = false;
  bool fail_open = false;  // for writing
  bool fail_copy = false;
  std::size_t room = SIZE_MAX;  // bytes that a written file may have
  int writes = 0;
  int removals = 0;
  Text last_error = u"Acceso denegado.";
  Text current_directory = u"C:\\";
  std::vector<std::string> operations;  // in their order

 private:
  static bool IsProtected(const Entry& entry) {
    return (entry.attributes & (kAttributeReadOnly | kAttributeDirectory)) != 0;
  }
  static bool Matches(TextView name, TextView pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == u'*') {
      return Matches(name, pattern.substr(1)) ||
             (!name.empty() && Matches(name.substr(1), pattern));
    }
    return !name.empty() && ToUpper(name[0]) == ToUpper(pattern[0]) &&
           Matches(name.substr(1), pattern.substr(1));
  }
  Entry* Find(TextView path) {
    const auto found = entries.find(Text(path));
    return found != entries.end() ? &found->second : nullptr;
  }
};

}  // namespace conmuta::test
