// The file system as the core sees it. Every operation can fail; none throws anything but
// bad_alloc.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace conmuta {

// File attributes, as bits in the platform's own numbering.
inline constexpr std::uint32_t kAttributeReadOnly = 1;
inline constexpr std::uint32_t kAttributeDirectory = 16;
inline constexpr std::uint32_t kAttributeArchive = 32;

struct FileContent {
  std::uint64_t size = 0;  // of the file, which may be more than was read
  std::string bytes;       // from its beginning
};

// Paths are passed as given; one that holds a NUL names no file. Write, Remove and Copy take no
// memory of ours: who has all that is to be written can delete what it replaces.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Nothing when there is no such entry or it cannot be reached.
  virtual std::optional<std::uint32_t> Attributes(TextView path) = 0;

  // At most `limit` bytes from the beginning; nothing when the file cannot be read (a directory
  // never can).
  virtual std::optional<FileContent> Read(TextView path, std::size_t limit) = 0;

  // Creates or replaces the file; true when all of it is on the disk. A file that was opened but
  // could not be written whole is deleted again; one that could not be opened is left alone.
  virtual bool Write(TextView path, std::string_view bytes) = 0;

  virtual bool Remove(TextView path) = 0;

  // Replaces the target; false when that fails. A copy is not read-only, though its source may be:
  // files from a CD are.
  virtual bool Copy(TextView from, TextView to) = 0;

  // Names of the files and directories that match a path whose last part may hold "*", in the
  // order of the file system.
  virtual std::vector<Text> List(TextView pattern) = 0;

  // Why the last operation of this thread failed, in the system's words.
  virtual Text LastError() const = 0;

  virtual Text CurrentDirectory() const = 0;
  virtual void CurrentDirectory(TextView path) = 0;

  // Whether the file can be opened for reading. A directory, a locked file and one without read
  // rights count as missing.
  bool Exists(TextView path) { return Read(path, 0).has_value(); }
};

}  // namespace conmuta
