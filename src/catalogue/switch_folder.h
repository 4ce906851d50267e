// The catalogue on the disk: how its files are named and listed, and the default-switch file that
// is copied from one of them.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

namespace conmuta {

struct SwitchFolder {
  Text directory;  // with a backslash at its end
  Text prefix;
  Text extension;
  Text installed_file;  // the default switch: outside the catalogue, or one of its files

  // The same directory with a backslash at its end.
  static Text WithBackslash(TextView directory);

  // Directory, prefix, number, ".", extension.
  Text FileOf(std::int32_t number) const;
  // What stands between prefix and extension, when it is a number of 32 bits.
  std::optional<std::int32_t> NumberOf(TextView file_name) const;

  struct Entry {
    std::int32_t number;
    Text path;
  };
  // In the order in which the system lists them. Files without the archive attribute are passed
  // over, good ones too: hosts rely on it.
  std::vector<Entry> Scan(FileSystem& files) const;

  // Where a file is looked at before it becomes one of the catalogue.
  Text TemporaryFile() const { return directory + u"cfg.tmp"; }
  // Replaces that copy; false when the file cannot be copied.
  [[nodiscard]] bool CopyToTemporary(FileSystem& files, TextView from) const;

  // Both are compared as text, without regard to letter case.
  bool IsInstalledFile(TextView path) const { return EqualIgnoringCase(path, installed_file); }
  // Replaces the default switch, as far as the system lets it.
  void Install(FileSystem& files, TextView from) const;
  // Follows a catalogue file that has been written anew, unless it is that file itself.
  void UpdateInstalled(FileSystem& files, TextView from) const;
};

}  // namespace conmuta
