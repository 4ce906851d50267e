// What the DLL calls of the system, answered by the test instead.
#pragma once

#include <stdexcept>

#include "component/dll.h"
#include "failures/imports.h"

namespace conmuta::test {

// A function that the DLL imports is another for as long as this lives; the DLL has to be loaded.
class ReplacedImport {
 public:
  ReplacedImport(const char* function, void* replacement)
      : place_(ImportOf(GetModuleHandleW(DllPath().c_str()), function)) {
    if (place_ == nullptr) throw std::runtime_error("the DLL does not import that");
    original_ = Put(place_, replacement);
  }
  ~ReplacedImport() { Put(place_, original_); }
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;

 private:
  void** place_;
  void* original_ = nullptr;
};

}  // namespace conmuta::test
