// The memory that COM's callers and callees hand each other: texts and the like.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <atomic>

namespace conmuta::test {

// Counts what the whole process holds of it.
class TaskMemory final : public IMallocSpy {
 public:
  // From here on. Texts are not kept for later ones.
  static void Watch();
  static int Blocks() { return blocks; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP_(SIZE_T) PreAlloc(SIZE_T size) override { return size; }
  STDMETHODIMP_(void*) PostAlloc(void* block) override {
    blocks += block != nullptr;
    return block;
  }
  STDMETHODIMP_(void*) PreFree(void* block, BOOL) override {
    blocks -= block != nullptr;
    return block;
  }
  STDMETHODIMP_(void) PostFree(BOOL) override {}
  STDMETHODIMP_(SIZE_T)
  PreRealloc(void* block, SIZE_T size, void** asked, BOOL) override {
    *asked = block;
    return size;
  }
  STDMETHODIMP_(void*) PostRealloc(void* block, BOOL) override { return block; }
  STDMETHODIMP_(void*) PreGetSize(void* block, BOOL) override { return block; }
  STDMETHODIMP_(SIZE_T) PostGetSize(SIZE_T size, BOOL) override { return size; }
  STDMETHODIMP_(void*) PreDidAlloc(void* block, BOOL) override { return block; }
  STDMETHODIMP_(int) PostDidAlloc(void*, BOOL, int actual) override { return actual; }
  STDMETHODIMP_(void) PreHeapMinimize() override {}
  STDMETHODIMP_(void) PostHeapMinimize() override {}

 private:
  static inline std::atomic<int> blocks = 0;
};

}  // namespace conmuta::test
