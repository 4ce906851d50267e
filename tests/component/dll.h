// The DLL under test, as a host that knows its path sees it.
#pragma once

#include <windows.h>

#include <string>

namespace conmuta::test {

// Windows form of a path as the build knows it: Wine shows the Unix root as Z:.
inline std::wstring SystemPath(const std::string& path) {
  std::wstring system(path.begin(), path.end());
  for (wchar_t& c : system) {
    if (c == L'/') c = L'\\';
  }
  return system.starts_with(L'\\') ? L"Z:" + system : system;
}

inline std::wstring DllPath() {
  return SystemPath(CONMUTA_DLL);
}

// A DLL of ours that stays loaded for as long as this lives.
class LoadedDll {
 public:
  explicit LoadedDll(const std::wstring& path = DllPath()) : module_(LoadLibraryW(path.c_str())) {}
  ~LoadedDll() {
    if (module_ != nullptr) FreeLibrary(module_);
  }
  LoadedDll(const LoadedDll&) = delete;
  LoadedDll& operator=(const LoadedDll&) = delete;

  explicit operator bool() const { return module_ != nullptr; }

  HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) const {
    return Function<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
        clsid, iid, object);
  }
  HRESULT CanUnloadNow() const { return Function<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")(); }
  HRESULT RegisterServer() const {
    return Function<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
  }
  HRESULT UnregisterServer() const {
    return Function<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
  }
  HRESULT Install(bool install, const wchar_t* command) const {
    return Function<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>("DllInstall")(install, command);
  }

 private:
  template <class Type>
  Type Function(const char* name) const {
    return reinterpret_cast<Type>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

}  // namespace conmuta::test
