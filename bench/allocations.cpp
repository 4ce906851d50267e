// Once warm, a line costs no heap allocation. Counts through replaced allocation functions, which
// serve this whole program; the other forms of the language's come here by themselves.
#include <cstdlib>
#include <new>

#include "require.h"
#include "row.h"
#include "sections.h"
#include "switches.h"

namespace {

std::size_t allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace conmuta::bench {
namespace {

std::size_t AllocationsOnceWarm(const std::string& name, const Lines& lines) {
  Translator translator(name);
  translator.Translate(lines);
  const std::size_t before = allocations;
  translator.Translate(lines);
  return allocations - before;
}

}  // namespace

void CountAllocations(const Lines& lines) {
  Require(allocations > 0, "allocations are counted");  // those of the lines, for one
  std::size_t count = AllocationsOnceWarm("panasonic-kx", lines);
  PrintRow("allocations, standard case", static_cast<double>(count), "in all lines", 0);
  count = 0;
  for (const std::string& name : Switches()) count += AllocationsOnceWarm(name, Capture(name));
  PrintRow("allocations, captures", static_cast<double>(count), "in all lines", 0);
}

}  // namespace conmuta::bench
