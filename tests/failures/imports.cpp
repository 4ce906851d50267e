#include "imports.h"

#include <utility>

namespace conmuta::test {
namespace {

template <class Type>
Type* At(HMODULE module, std::size_t offset) {
  return reinterpret_cast<Type*>(reinterpret_cast<char*>(module) + offset);
}

}  // namespace

void** ImportOf(HMODULE module, std::string_view name) {
  const auto* header = At<IMAGE_NT_HEADERS>(
      module, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
  const auto& directory = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (const auto* dll = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
       dll->Name != 0; ++dll) {
    const auto* named = At<IMAGE_THUNK_DATA>(module, dll->OriginalFirstThunk);
    auto* place = At<void*>(module, dll->FirstThunk);
    for (; named->u1.AddressOfData != 0; ++named, ++place) {
      if (IMAGE_SNAP_BY_ORDINAL(named->u1.Ordinal)) continue;
      const auto* import =
          At<IMAGE_IMPORT_BY_NAME>(module, static_cast<std::size_t>(named->u1.AddressOfData));
      if (reinterpret_cast<const char*>(import->Name) == name) return place;
    }
  }
  return nullptr;
}

void* Put(void** place, void* address) {
  DWORD before = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
  void* const replaced = std::exchange(*place, address);
  VirtualProtect(place, sizeof *place, before, &before);
  return replaced;
}

}  // namespace conmuta::test
