#include "memory_supply.h"

#include <commdlg.h>
#include <objbase.h>
#include <oleauto.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "answers.h"
#include "diversion.h"
#include "faults.h"
#include "progress.h"

namespace conmuta::test {
namespace {

constexpr char kBlock[] = "block of memory";
constexpr char kDrawing[] = "drawing object";
constexpr char kKey[] = "registry key";

// A call that answers so when there is no memory; what it gives in return else is counted.
template <Name kName, auto kAnswer, const char* kKind>
struct Maker {
  auto operator()(auto original, auto... arguments) const {
    using Result = decltype(original(arguments...));
    if (faults::Fails(Supply::kMemory, kName.text)) return reinterpret_cast<Result>(kAnswer);
    const Result made = original(arguments...);
    if (made != reinterpret_cast<Result>(kAnswer)) faults::Took(kKind, made);
    return made;
  }
};

// A call that answers so when there is no memory.
template <Name kName, auto kAnswer>
struct Call {
  auto operator()(auto original, auto... arguments) const {
    using Result = decltype(original(arguments...));
    if (faults::Fails(Supply::kMemory, kName.text)) return static_cast<Result>(kAnswer);
    return original(arguments...);
  }
};

template <const char* kKind>
struct GivesBack {
  auto operator()(auto original, auto thing) const {
    faults::GaveBack(kKind, thing);
    return original(thing);
  }
};

template <Name kName, class Function, const char* kKind, auto kAnswer = 0>
void DivertMaker(HMODULE dll) {
  DivertImport<kName, Function>(dll, Maker<kName, kAnswer, kKind>());
}
template <Name kName, class Function, auto kAnswer>
void DivertCall(HMODULE dll) {
  DivertImport<kName, Function>(dll, Call<kName, kAnswer>());
}
template <Name kName, class Function, const char* kKind>
void DivertEnd(HMODULE dll) {
  DivertImport<kName, Function>(dll, GivesBack<kKind>());
}

void DivertRunTime(HMODULE dll) {
  DivertMaker<"malloc", decltype(std::malloc), kBlock>(dll);
  DivertMaker<"calloc", decltype(std::calloc), kBlock>(dll);
  DivertImport<"realloc", decltype(std::realloc)>(
      dll, [](auto original, void* block, std::size_t size) -> void* {
        if (faults::Fails(Supply::kMemory, "realloc")) return nullptr;
        faults::GaveBack(kBlock, block);
        void* const moved = original(block, size);
        faults::Took(kBlock, moved);
        return moved;
      });
  DivertEnd<"free", decltype(std::free), kBlock>(dll);
  DivertImport<"abort", decltype(std::abort)>(dll, [](auto) { EndOfProgram("the DLL aborts"); });
}

void DivertAutomation(HMODULE dll) {
  DivertCall<"SysAllocStringLen", decltype(SysAllocStringLen), nullptr>(dll);
  DivertCall<"VariantChangeType", decltype(VariantChangeType), E_OUTOFMEMORY>(dll);
  DivertCall<"VariantCopy", decltype(VariantCopy), E_OUTOFMEMORY>(dll);
  DivertCall<"CreateErrorInfo", decltype(CreateErrorInfo), E_OUTOFMEMORY>(dll);
}

// Type information has one virtual table for all; who made it does not matter.
template <Name kName, class... Arguments>
void DivertSlot(void** table, std::size_t slot) {
  Divert<kName, HRESULT WINAPI(ITypeInfo*, Arguments...)>(table + slot,
                                                          Call<kName, E_OUTOFMEMORY>());
}

void DivertTypeInformation(HMODULE dll) {
  DivertCall<"LoadTypeLibEx", decltype(LoadTypeLibEx), E_OUTOFMEMORY>(dll);
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(dll, path, MAX_PATH);
  ITypeLib* library = nullptr;
  ITypeInfo* info = nullptr;
  if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, &library)) ||
      FAILED(library->GetTypeInfo(0, &info))) {
    EndOfProgram("there is no type library");
  }
  void** const table = *reinterpret_cast<void***>(info);
  DivertSlot<"GetTypeAttr", TYPEATTR**>(table, 3);
  DivertSlot<"GetFuncDesc", UINT, FUNCDESC**>(table, 5);
  DivertSlot<"GetRefTypeOfImplType", UINT, HREFTYPE*>(table, 8);
  DivertSlot<"GetDocumentation", MEMBERID, BSTR*, BSTR*, DWORD*, BSTR*>(table, 12);
  DivertSlot<"GetRefTypeInfo", HREFTYPE, ITypeInfo**>(table, 14);
  info->Release();
  library->Release();
}

void DivertWindows(HMODULE dll) {
  DivertCall<"CreateWindowExW", decltype(CreateWindowExW), nullptr>(dll);
  DivertCall<"RegisterClassExW", decltype(RegisterClassExW), 0>(dll);
  DivertImport<"MessageBoxW", decltype(MessageBoxW)>(dll, [](auto, HWND, LPCWSTR, LPCWSTR, UINT) {
    return faults::Fails(Supply::kMemory, "MessageBoxW") ? 0 : answers::kMessageBox;
  });
  DivertImport<"GetOpenFileNameW", decltype(GetOpenFileNameW)>(
      dll, [](auto, OPENFILENAMEW* request) -> BOOL {
        if (faults::Fails(Supply::kMemory, "GetOpenFileNameW")) return FALSE;
        lstrcpynW(request->lpstrFile, answers::file.c_str(), static_cast<int>(request->nMaxFile));
        return !answers::file.empty();
      });
  static constexpr char kMenu[] = "menu";
  DivertMaker<"CreatePopupMenu", decltype(CreatePopupMenu), kMenu>(dll);
  DivertEnd<"DestroyMenu", decltype(DestroyMenu), kMenu>(dll);
  DivertMaker<"CreateFontW", decltype(CreateFontW), kDrawing>(dll);
  DivertMaker<"CreateFontIndirectW", decltype(CreateFontIndirectW), kDrawing>(dll);
  DivertMaker<"CreateCompatibleDC", decltype(CreateCompatibleDC), kDrawing>(dll);
  DivertMaker<"CreateDIBSection", decltype(CreateDIBSection), kDrawing>(dll);
  DivertEnd<"DeleteObject", decltype(DeleteObject), kDrawing>(dll);
  DivertEnd<"DeleteDC", decltype(DeleteDC), kDrawing>(dll);
  static constexpr char kContext[] = "activation context";
  DivertMaker<"CreateActCtxW", decltype(CreateActCtxW), kContext, -1>(dll);
  DivertEnd<"ReleaseActCtx", decltype(ReleaseActCtx), kContext>(dll);
}

// What opens a key puts it where its last argument but so many points.
template <Name kName>
struct KeyOpener {
  auto operator()(auto original, HKEY root, LPCWSTR path, auto... rest) const {
    if (faults::Fails(Supply::kMemory, kName.text)) return LSTATUS{ERROR_OUTOFMEMORY};
    const LSTATUS status = original(root, path, rest...);
    if (status == ERROR_SUCCESS) faults::Took(kKey, *PlaceOf(rest...));
    return status;
  }
  static PHKEY PlaceOf(auto... rest) {
    PHKEY place = nullptr;
    const auto look = [&](auto argument) {
      if constexpr (std::is_same_v<decltype(argument), PHKEY>) place = argument;
    };
    (look(rest), ...);
    return place;
  }
};

void DivertRegistry(HMODULE dll) {
  DivertImport<"RegCreateKeyExW", decltype(RegCreateKeyExW)>(dll, KeyOpener<"RegCreateKeyExW">());
  DivertImport<"RegOpenKeyExW", decltype(RegOpenKeyExW)>(dll, KeyOpener<"RegOpenKeyExW">());
  DivertEnd<"RegCloseKey", decltype(RegCloseKey), kKey>(dll);
  DivertCall<"RegSetValueExW", decltype(RegSetValueExW), ERROR_OUTOFMEMORY>(dll);
  DivertCall<"RegDeleteTreeW", decltype(RegDeleteTreeW), ERROR_OUTOFMEMORY>(dll);
  DivertCall<"RegDeleteKeyW", decltype(RegDeleteKeyW), ERROR_OUTOFMEMORY>(dll);
}

}  // namespace

void DivertMemory(HMODULE dll) {
  DivertRunTime(dll);
  DivertAutomation(dll);
  DivertTypeInformation(dll);
  DivertWindows(dll);
  DivertRegistry(dll);
}

}  // namespace conmuta::test
