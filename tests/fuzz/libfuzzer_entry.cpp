// Entry of a fuzzer: built once for each target, which CONMUTA_FUZZ_TARGET names.
#include "fuzz/targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  conmuta::fuzz::CONMUTA_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}
