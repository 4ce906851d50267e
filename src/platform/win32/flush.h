// Files whose content is on the disk, not only on its way there.
#pragma once

#include <windows.h>

namespace conmuta {

// Waits until the disk has what was written; false when it cannot take it. A file system that does
// not know how to wait has lost nothing.
inline bool Flush(HANDLE file) {
  if (FlushFileBuffers(file)) return true;
  switch (GetLastError()) {
    case ERROR_INVALID_FUNCTION:
    case ERROR_NOT_SUPPORTED:
    case ERROR_CALL_NOT_IMPLEMENTED:
      return true;
    default:
      return false;
  }
}

}  // namespace conmuta
