// Files whose content is on the disk, not only on its way there.
#pragma once

#include <windows.h>

namespace conmuta {

// Waits until the disk has what was written; false when it cannot take it. A file system that keeps
// nothing back has nothing to wait for.
inline bool Flush(HANDLE file) {
  return FlushFileBuffers(file) || GetLastError() == ERROR_INVALID_FUNCTION;
}

}  // namespace conmuta
