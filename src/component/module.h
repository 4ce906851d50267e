// The DLL as a whole: what it is made of, how many users it has, its type library.
#pragma once

#include <windows.h>

#include <span>
#include <string>

#include "component/com_support.h"
#include "component/conmuta_idl.h"

namespace conmuta::component {

// One creatable class of the component.
struct ComClass {
  const CLSID* clsid;
  const IID* iid;       // its default interface
  const wchar_t* name;  // the ProgID is "Conmuta." and this
  const wchar_t* title;
  HRESULT (*create)(IUnknown** object);
};

std::span<const ComClass> Classes();

inline constexpr wchar_t kLibraryName[] = L"Conmuta";

namespace module {

// Objects, factory locks and open windows hold the DLL in memory.
void Lock();
void Unlock();
bool IsInUse();

HINSTANCE Instance();

// Full path of the DLL.
std::wstring Path();

// The library inside the DLL, so that it works without registration. Kept for the next user.
ComPtr<ITypeLib> Library();
void ForgetLibrary();

// The description of one of our interfaces or classes.
ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid);

}  // namespace module

// Counts as a user of the DLL for as long as it lives.
class ModuleLock {
 public:
  ModuleLock() { module::Lock(); }
  ~ModuleLock() { module::Unlock(); }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
};

}  // namespace conmuta::component
