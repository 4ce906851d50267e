#include "task_memory.h"

#include <windows.h>

#include <objbase.h>

#include "diversion.h"
#include "faults.h"

namespace conmuta::test {
namespace {

constexpr char kBlock[] = "block of task memory";

}  // namespace

void WatchTaskMemory() {
  // Texts that were given back are kept for the next one else, and so not counted.
  using SetNoCache = void(WINAPI*)();
  const auto no_cache = reinterpret_cast<SetNoCache>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")));
  if (no_cache != nullptr) no_cache();

  IMalloc* memory = nullptr;
  CoGetMalloc(1, &memory);
  void** const table = *reinterpret_cast<void***>(memory);
  Divert<"Alloc", void * WINAPI(IMalloc*, SIZE_T)>(table + 3,
                                                   [](auto original, IMalloc* self, SIZE_T size) {
                                                     void* const block = original(self, size);
                                                     if (block != nullptr)
                                                       faults::Took(kBlock, block);
                                                     return block;
                                                   });
  Divert<"Realloc", void * WINAPI(IMalloc*, void*, SIZE_T)>(
      table + 4, [](auto original, IMalloc* self, void* block, SIZE_T size) {
        faults::GaveBack(kBlock, block);
        void* const moved = original(self, block, size);
        if (moved != nullptr) faults::Took(kBlock, moved);
        return moved;
      });
  Divert<"Free", void WINAPI(IMalloc*, void*)>(table + 5,
                                               [](auto original, IMalloc* self, void* block) {
                                                 faults::GaveBack(kBlock, block);
                                                 original(self, block);
                                               });
  memory->Release();
}

}  // namespace conmuta::test
