// The slots of thread-local storage that the compiler's runtime takes inside the DLL, given back
// when the DLL goes. The runtime itself keeps them, and a process has no more than some thousand: a
// host that unloads idle components would end after its thousandth load.
#include "component/thread_slots.h"

#include <windows.h>

#include <array>
#include <atomic>

namespace conmuta::component {
namespace {

using TakeSlot = DWORD(WINAPI*)();

std::array<std::atomic<DWORD>, 8> taken;
std::atomic<std::size_t> count = 0;

TakeSlot SystemTakeSlot() {
  const HMODULE system = GetModuleHandleW(L"kernel32.dll");
  return reinterpret_cast<TakeSlot>(reinterpret_cast<void*>(GetProcAddress(system, "TlsAlloc")));
}

DWORD WINAPI TakeSlotAndRemember() {
  const DWORD slot = SystemTakeSlot()();
  if (slot == TLS_OUT_OF_INDEXES) return slot;
  const std::size_t place = count++;
  if (place < taken.size()) taken[place] = slot;
  return slot;
}

}  // namespace

void GiveBackThreadSlots() {
  for (std::size_t i = 0; i < count && i < taken.size(); ++i) TlsFree(taken[i]);
  count = 0;
}

}  // namespace conmuta::component

// What the runtime calls in place of the system's function: the entry of the import table that its
// linker symbol stands for.
#ifdef _WIN64
#define CONMUTA_IMPORT_OF_TLSALLOC "__imp_TlsAlloc"
#else
#define CONMUTA_IMPORT_OF_TLSALLOC "__imp__TlsAlloc@0"
#endif
extern "C" {
extern conmuta::component::TakeSlot const import_of_tls_alloc __asm__(CONMUTA_IMPORT_OF_TLSALLOC);
conmuta::component::TakeSlot const import_of_tls_alloc = conmuta::component::TakeSlotAndRemember;
}
