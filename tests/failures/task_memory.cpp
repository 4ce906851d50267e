#include "task_memory.h"

#include <objbase.h>

namespace conmuta::test {

void TaskMemory::Watch() {
  static TaskMemory spy;
  // Texts that were given back are kept for the next one else, and so not counted.
  using SetNoCache = void(WINAPI*)();
  const auto no_cache = reinterpret_cast<SetNoCache>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")));
  if (no_cache != nullptr) no_cache();
  CoRegisterMallocSpy(&spy);
}

STDMETHODIMP TaskMemory::QueryInterface(REFIID iid, void** object) {
  const bool known = IsEqualGUID(iid, IID_IUnknown) || IsEqualGUID(iid, IID_IMallocSpy);
  *object = known ? static_cast<IMallocSpy*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

}  // namespace conmuta::test
