// Registration, for the whole machine or for the present user only, and its exact undoing.
#include <array>
#include <string>
#include <vector>

#include "component/boundary.h"
#include "component/module.h"

namespace conmuta::component {
namespace {

constexpr wchar_t kVersion[] = L"1.0";
// What the system marshals dual interfaces with, and those of events.
constexpr wchar_t kAutomationMarshaler[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kDispatchMarshaler[] = L"{00020420-0000-0000-C000-000000000046}";
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

// Of a key that is named as the documents name it.
std::wstring PathOf(const std::wstring& key) {
  return L"Software\\Classes\\" + key;
}

struct Value {
  std::wstring key;   // its path below the root
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
  return PathOf(L"CLSID\\" + ToString(*c.clsid));
}
std::wstring InterfaceKey(const IID& iid) {
  return PathOf(L"Interface\\" + ToString(iid));
}
std::wstring LibraryKey() {
  return PathOf(L"TypeLib\\" + ToString(LIBID_Conmuta));
}
std::wstring LibraryVersionKey() {
  return LibraryKey() + L"\\" + kVersion;
}

void AppendInterface(std::vector<Value>& values, const IID& iid, const std::wstring& name,
                     const wchar_t* marshaler) {
  const std::wstring key = InterfaceKey(iid);
  values.push_back({key, L"", name});
  values.push_back({key + L"\\ProxyStubClsid32", L"", marshaler});
  values.push_back({key + L"\\TypeLib", L"", ToString(LIBID_Conmuta)});
  values.push_back({key + L"\\TypeLib", L"Version", kVersion});
}

// What the library says of itself.
struct LibraryFacts {
  std::wstring title;
  std::wstring flags;
};

LibraryFacts ReadFacts() {
  LibraryFacts facts;
  const auto library = module::Library();
  Variant title;
  V_VT(&title) = VT_BSTR;
  Require(library->GetDocumentation(-1, nullptr, &V_BSTR(&title), nullptr, nullptr));
  facts.title.assign(V_BSTR(&title), SysStringLen(V_BSTR(&title)));
  TLIBATTR* attributes = nullptr;
  Require(library->GetLibAttr(&attributes));
  const WORD flags = attributes->wLibFlags;
  library->ReleaseTLibAttr(attributes);
  facts.flags = std::to_wstring(flags);
  return facts;
}

std::vector<Value> AllValues() {
  const LibraryFacts library = ReadFacts();
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
    const std::wstring name = PathOf(ProgId(c));
    values.push_back({name, L"", c.title});
    values.push_back({name + L"\\CLSID", L"", clsid});
    values.push_back({name + L"\\CurVer", L"", VersionedProgId(c)});
    const std::wstring versioned_name = PathOf(VersionedProgId(c));
    values.push_back({versioned_name, L"", c.title});
    values.push_back({versioned_name + L"\\CLSID", L"", clsid});
    AppendInterface(values, *c.iid, std::wstring(L"_") + c.name, kAutomationMarshaler);
  }
  AppendInterface(values, DIID___clsCfgConmut, L"__clsCfgConmut", kDispatchMarshaler);
  values.push_back({LibraryVersionKey(), L"", library.title});
  values.push_back({LibraryVersionKey() + L"\\0\\" + kSize, L"", path});
  values.push_back({LibraryVersionKey() + L"\\FLAGS", L"", library.flags});
  values.push_back({LibraryVersionKey() + L"\\HELPDIR", L"", folder});
  return values;
}

LSTATUS Write(Scope scope, const Value& value) {
  HKEY key = nullptr;
  LSTATUS status = RegCreateKeyExW(Root(scope), value.key.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                   nullptr, &key, nullptr);
  if (status != ERROR_SUCCESS) return status;
  const auto bytes = static_cast<DWORD>((value.data.size() + 1) * sizeof(wchar_t));
  status = RegSetValueExW(key, value.name.empty() ? nullptr : value.name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.data.c_str()), bytes);
  RegCloseKey(key);
  return status;
}

bool Exists(Scope scope, const std::wstring& key, REGSAM view) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(Root(scope), key.c_str(), 0, KEY_QUERY_VALUE | view, &opened) !=
      ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

HRESULT FromStatus(LSTATUS status) {
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

// Takes keys away, each with what is below it, and remembers the first failure. A key that is not
// there is none.
class Removal {
 public:
  explicit Removal(Scope scope) : scope_(scope) {}

  void Remove(const std::wstring& key) {
    Note(RegDeleteTreeW(Root(scope_), key.c_str()));
    Note(RegDeleteKeyW(Root(scope_), key.c_str()));
  }

  HRESULT result() const { return result_; }

 private:
  void Note(LSTATUS status) {
    if (status != ERROR_FILE_NOT_FOUND && SUCCEEDED(result_)) result_ = FromStatus(status);
  }

  const Scope scope_;
  HRESULT result_ = S_OK;
};

// What goes when the component does.
struct Keys {
  std::vector<std::wstring> of_this_size;
  std::vector<std::wstring> of_both;  // ProgIDs and the library
  std::wstring of_a_class;
};

Keys AllKeys() {
  Keys keys;
  for (const ComClass& c : Classes()) {
    keys.of_this_size.push_back(ClassKey(c));
    keys.of_this_size.push_back(InterfaceKey(*c.iid));
    keys.of_both.push_back(PathOf(ProgId(c)));
    keys.of_both.push_back(PathOf(VersionedProgId(c)));
  }
  keys.of_this_size.push_back(InterfaceKey(DIID___clsCfgConmut));
  keys.of_this_size.push_back(LibraryVersionKey() + L"\\0\\" + kSize);
  keys.of_both.push_back(LibraryKey());
  keys.of_a_class = ClassKey(Classes().front());
  return keys;
}

// Takes no memory of ours.
HRESULT Remove(Scope scope, const Keys& keys) {
  Removal removal(scope);
  for (const std::wstring& key : keys.of_this_size) removal.Remove(key);
  // Where the system knows one size only, both views are the same key; our own are gone by now.
  if (Exists(scope, keys.of_a_class, kOtherSize)) return removal.result();
  for (const std::wstring& key : keys.of_both) removal.Remove(key);
  return removal.result();
}

HRESULT Unregister(Scope scope) {
  return Remove(scope, AllKeys());
}

// All memory comes first, also what it takes to undo the half of it.
HRESULT Register(Scope scope) {
  const Keys keys = AllKeys();
  for (const Value& value : AllValues()) {
    const LSTATUS status = Write(scope, value);
    if (status != ERROR_SUCCESS) {
      Remove(scope, keys);
      return FromStatus(status);
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
