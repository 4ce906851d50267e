// The memory of a test program: counted, and refused on demand.
#pragma once

#include <cstddef>
#include <cstdint>

namespace conmuta::test::memory {

// Of the whole program so far.
std::size_t Allocations();
std::int64_t BytesInUse();

// From here on the allocations are counted anew, and one of them fails (counted from 1; 0 for
// none), or all from there on, until Stop.
void FailAt(std::size_t point, bool from_there_on = false);
// Gives how many there were.
std::size_t Stop();

// For what is no part of the code under test: its allocations are neither counted nor refused for
// as long as it lives.
class Spared {
 public:
  Spared();
  ~Spared();
  Spared(const Spared&) = delete;
  Spared& operator=(const Spared&) = delete;
};

}  // namespace conmuta::test::memory
