// Profile files: sections in square brackets, one line "key=value" each, as the system's own
// profile functions read and write them. Bytes in the ANSI code page.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace conmuta {

struct ProfileValue {
  std::string section;
  std::string key;
  std::string value;
};

// No more than this of a value is ever read.
inline constexpr std::size_t kMostProfileBytes = 254;

// One file, for the length of one operation: nobody else writes it meanwhile.
class ProfileFile {
 public:
  virtual ~ProfileFile() = default;

  // Names match without regard to letter case; the first of two equal ones counts. White space
  // around the value is dropped, then one pair of equal quotes around it. Empty when there is no
  // such file, section, key or value.
  virtual std::string Read(std::string_view section, std::string_view key) = 0;

  // Replaces the key's value in place, or adds the key at the end of its section, the section at
  // the end of the file, the file itself. Everything else stays. White space in front of the value
  // is dropped. False when the file cannot be written.
  virtual bool Write(const ProfileValue& value) = 0;
};

class ProfileSystem {
 public:
  virtual ~ProfileSystem() = default;

  // The path means the file that the file system would find under it.
  virtual std::unique_ptr<ProfileFile> Open(TextView path) = 0;

  // Writes a file anew: what is there goes, unless it cannot be deleted, and the values come in
  // their order, up to the first that cannot be written. True when all of them are on the disk. A
  // file that cannot be written at all, since the system's functions have no name for it, stays as
  // it is. All memory is taken before anything is deleted.
  virtual bool Replace(TextView path, std::span<const ProfileValue> values) = 0;
};

}  // namespace conmuta
