// The file system as the core sees it. Every operation can fail; none throws anything but
// bad_alloc.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

// Paths are passed as given; one that holds a NUL names no file.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Nothing when there is no such entry or it cannot be reached.
  virtual std::optional<std::uint32_t> Attributes(TextView path) = 0;

  // At most `limit` bytes from the beginning; nothing when the file cannot be read (a directory
  // never can).
  virtual std::optional<FileContent> Read(TextView path, std::size_t limit) = 0;

  // Creates or replaces the file; false when that fails. A file that was opened but could not be
  // written whole is deleted again; one that could not be opened is left alone.
  virtual bool Write(TextView path, std::string_view bytes) = 0;

  virtual bool Remove(TextView path) = 0;
};

}  // namespace conmuta
