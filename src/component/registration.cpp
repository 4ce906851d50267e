// Registration, for the whole machine or for the present user only, and its exact undoing.
#include <array>
#include <string>
#include <vector>

#include "component/boundary.h"
#include "component/module.h"

namespace conmuta::component {
namespace {

constexpr wchar_t kVersion[] = L"1.0";
constexpr wchar_t kAutomationMarshaler[] = L"{00020424-0000-0000-C000-000000000046}";
// A TypeLib key holds one sub-key for each size of the component.
constexpr const wchar_t* kSize = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr REGSAM kOtherSize = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

std::wstring ToString(REFGUID guid) {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  return text.data();
}

// Everything lives below Software\Classes of one of these.
enum class Scope { kMachine, kUser };

HKEY Root(Scope scope) {
  return scope == Scope::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring Below(const std::wstring& key) {
  return L"Software\\Classes\\" + key;
}

struct Value {
  std::wstring key;
  std::wstring name;  // empty: the key's own value
  std::wstring data;
};

std::wstring ProgId(const ComClass& c) {
  return std::wstring(kLibraryName) + L"." + c.name;
}
std::wstring VersionedProgId(const ComClass& c) {
  return ProgId(c) + L".1";
}
std::wstring ClassKey(const ComClass& c) {
  return L"CLSID\\" + ToString(*c.clsid);
}
std::wstring InterfaceKey(const IID& iid) {
  return L"Interface\\" + ToString(iid);
}
std::wstring LibraryKey() {
  return L"TypeLib\\" + ToString(LIBID_Conmuta);
}
std::wstring LibraryVersionKey() {
  return LibraryKey() + L"\\" + kVersion;
}

void AppendInterface(std::vector<Value>& values, const IID& iid, const std::wstring& name) {
  const std::wstring key = InterfaceKey(iid);
  values.push_back({key, L"", name});
  values.push_back({key + L"\\ProxyStubClsid32", L"", kAutomationMarshaler});
  values.push_back({key + L"\\TypeLib", L"", ToString(LIBID_Conmuta)});
  values.push_back({key + L"\\TypeLib", L"Version", kVersion});
}

std::vector<Value> AllValues() {
  const std::wstring path = module::Path();
  const std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
  std::vector<Value> values;
  for (const ComClass& c : Classes()) {
    const std::wstring clsid = ToString(*c.clsid);
    const std::wstring key = ClassKey(c);
    values.push_back({key, L"", c.title});
    values.push_back({key + L"\\InprocServer32", L"", path});
    values.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
    values.push_back({key + L"\\ProgID", L"", VersionedProgId(c)});
    values.push_back({key + L"\\VersionIndependentProgID", L"", ProgId(c)});
    values.push_back({key + L"\\TypeLib", L"", ToString(LIBID_Conmuta)});
    values.push_back({key + L"\\Version", L"", kVersion});
    values.push_back({key + L"\\Programmable", L"", L""});
    values.push_back({ProgId(c), L"", c.title});
    values.push_back({ProgId(c) + L"\\CLSID", L"", clsid});
    values.push_back({ProgId(c) + L"\\CurVer", L"", VersionedProgId(c)});
    values.push_back({VersionedProgId(c), L"", c.title});
    values.push_back({VersionedProgId(c) + L"\\CLSID", L"", clsid});
    AppendInterface(values, *c.iid, std::wstring(L"_") + c.name);
  }
  AppendInterface(values, DIID___clsCfgConmut, L"__clsCfgConmut");
  values.push_back({LibraryVersionKey(), L"", kLibraryName});
  values.push_back({LibraryVersionKey() + L"\\0\\" + kSize, L"", path});
  values.push_back({LibraryVersionKey() + L"\\FLAGS", L"", L"0"});
  values.push_back({LibraryVersionKey() + L"\\HELPDIR", L"", folder});
  return values;
}

LSTATUS Write(Scope scope, const Value& value) {
  HKEY key = nullptr;
  LSTATUS status = RegCreateKeyExW(Root(scope), Below(value.key).c_str(), 0, nullptr, 0,
                                   KEY_SET_VALUE, nullptr, &key, nullptr);
  if (status != ERROR_SUCCESS) return status;
  const auto bytes = static_cast<DWORD>((value.data.size() + 1) * sizeof(wchar_t));
  status = RegSetValueExW(key, value.name.empty() ? nullptr : value.name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.data.c_str()), bytes);
  RegCloseKey(key);
  return status;
}

bool Exists(Scope scope, const std::wstring& key, REGSAM view) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(Root(scope), Below(key).c_str(), 0, KEY_QUERY_VALUE | view, &opened) !=
      ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

void RemoveTree(Scope scope, const std::wstring& key) {
  RegDeleteTreeW(Root(scope), Below(key).c_str());
  RegDeleteKeyW(Root(scope), Below(key).c_str());
}

// Whether the component of the other size is registered, which shares the ProgIDs and the library.
bool OtherSizeIsRegistered(Scope scope) {
  // Where the system knows one size only, both views are the same key; our own are gone by now.
  return Exists(scope, ClassKey(Classes().front()), kOtherSize);
}

HRESULT Unregister(Scope scope) {
  for (const ComClass& c : Classes()) {
    RemoveTree(scope, ClassKey(c));
    RemoveTree(scope, InterfaceKey(*c.iid));
  }
  RemoveTree(scope, InterfaceKey(DIID___clsCfgConmut));
  RemoveTree(scope, LibraryVersionKey() + L"\\0\\" + kSize);
  if (OtherSizeIsRegistered(scope)) return S_OK;
  for (const ComClass& c : Classes()) {
    RemoveTree(scope, ProgId(c));
    RemoveTree(scope, VersionedProgId(c));
  }
  RemoveTree(scope, LibraryKey());
  return S_OK;
}

HRESULT Register(Scope scope) {
  for (const Value& value : AllValues()) {
    const LSTATUS status = Write(scope, value);
    if (status != ERROR_SUCCESS) {
      Unregister(scope);
      return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    }
  }
  return S_OK;
}

HRESULT Run(HRESULT (*action)(Scope), Scope scope) {
  HRESULT result = S_OK;
  const HRESULT guarded = Guarded(nullptr, IID_NULL, [&] { result = action(scope); });
  return FAILED(guarded) ? guarded : result;
}

}  // namespace
}  // namespace conmuta::component

using namespace conmuta::component;

STDAPI DllRegisterServer() {
  return Run(Register, Scope::kMachine);
}

STDAPI DllUnregisterServer() {
  return Run(Unregister, Scope::kMachine);
}

// regsvr32 /n /i:user registers for the present user, without elevation.
STDAPI DllInstall(BOOL install, LPCWSTR command) {
  const bool for_user = command != nullptr && lstrcmpiW(command, L"user") == 0;
  return Run(install ? Register : Unregister, for_user ? Scope::kUser : Scope::kMachine);
}
