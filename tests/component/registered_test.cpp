// The registered component, through the real registry.
#include <string>

#include "host_test.h"
#include "registry.h"

namespace conmuta::test {
namespace {

struct RegisteredClass {
  const wchar_t* name;
  const CLSID& clsid;
  const IID& iid;
};
const RegisteredClass kClasses[] = {
    {L"Conmuta.clsCfgConmut", CLSID_clsCfgConmut, IID__clsCfgConmut},
    {L"Conmuta.clsTradEST", CLSID_clsTradEST, IID__clsTradEST},
    {L"Conmuta.clsLlamadaTRD", CLSID_clsLlamadaTRD, IID__clsLlamadaTRD},
    {L"Conmuta.clsConmutadores", CLSID_clsConmutadores, IID__clsConmutadores},
};

std::wstring ToString(REFGUID guid) {
  wchar_t text[39];
  StringFromGUID2(guid, text, 39);
  return text;
}

class RegisteredTest : public HostTest {};

void ExpectCreatable(const std::wstring& prog_id, const RegisteredClass& c) {
  CLSID clsid = CLSID_NULL;
  EXPECT_EQ(CLSIDFromProgID(prog_id.c_str(), &clsid), S_OK);
  EXPECT_EQ(clsid, c.clsid);
  ComPtr<IUnknown> object;
  EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, c.iid, object.ReceiveVoid()),
            S_OK);
}

TEST_F(RegisteredTest, EveryClassIsCreatableByBothItsNames) {
  for (const RegisteredClass& c : kClasses) {
    SCOPED_TRACE(ToString(c.clsid).c_str());
    ExpectCreatable(c.name, c);
    ExpectCreatable(std::wstring(c.name) + L".1", c);
  }
}

TEST_F(RegisteredTest, TheNameOfAClassIsTheOneWithTheVersion) {
  for (const RegisteredClass& c : kClasses) {
    LPOLESTR name = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(c.clsid, &name), S_OK);
    EXPECT_STREQ(name, (std::wstring(c.name) + L".1").c_str());
    CoTaskMemFree(name);
    EXPECT_EQ(ValueOf(HKEY_CLASSES_ROOT, std::wstring(c.name) + L"\\CurVer"),
              std::wstring(c.name) + L".1");
  }
}

TEST_F(RegisteredTest, EveryClassLivesInTheApartmentOfItsCreator) {
  for (const RegisteredClass& c : kClasses) {
    const std::wstring server = L"CLSID\\" + ToString(c.clsid) + L"\\InprocServer32";
    EXPECT_EQ(ValueOf(HKEY_CLASSES_ROOT, server), DllPath());
    EXPECT_EQ(ValueOf(HKEY_CLASSES_ROOT, server, L"ThreadingModel"), L"Apartment");
  }
}

TEST_F(RegisteredTest, TheTypeLibraryIsFoundByItsIdentifier) {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadRegTypeLib(LIBID_Conmuta, 1, 0, LOCALE_NEUTRAL, library.Receive()), S_OK);
  BSTR path = nullptr;
  ASSERT_EQ(QueryPathOfRegTypeLib(LIBID_Conmuta, 1, 0, LOCALE_NEUTRAL, &path), S_OK);
  EXPECT_EQ(TakeText(path), FromWide(DllPath()));
}

// Leaves the component registered for the machine, whatever happens meanwhile.
class Unregistered {
 public:
  Unregistered() { EXPECT_EQ(dll_.UnregisterServer(), S_OK); }
  ~Unregistered() {
    EXPECT_EQ(dll_.Install(false, L"user"), S_OK);
    EXPECT_EQ(dll_.RegisterServer(), S_OK);
  }
  Unregistered(const Unregistered&) = delete;
  Unregistered& operator=(const Unregistered&) = delete;

 private:
  const LoadedDll dll_;
};

TEST_F(RegisteredTest, UnregisteredClassesAreNotFound) {
  const Unregistered unregistered;
  for (const RegisteredClass& c : kClasses) {
    CLSID clsid;
    EXPECT_EQ(CLSIDFromProgID(c.name, &clsid), CO_E_CLASSSTRING);
    ComPtr<IUnknown> object;
    EXPECT_EQ(CoCreateInstance(c.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                               object.ReceiveVoid()),
              REGDB_E_CLASSNOTREG);
  }
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadRegTypeLib(LIBID_Conmuta, 1, 0, LOCALE_NEUTRAL, library.Receive()),
            TYPE_E_LIBNOTREGISTERED);
}

#ifdef _WIN64  // a system of 32 bits has no other size
// Both sizes share the names and the library; the one that goes must not take them along.
TEST_F(RegisteredTest, UnregisteringLeavesTheNamesWhileTheOtherSizeIsRegistered) {
  const std::wstring other =
      L"Software\\Classes\\Wow6432Node\\CLSID\\" + ToString(CLSID_clsCfgConmut);
  ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, other.c_str(), nullptr, REG_SZ, L"", 2),
            ERROR_SUCCESS);
  {
    const Unregistered unregistered;
    for (const RegisteredClass& c : kClasses) {
      CLSID clsid;
      EXPECT_EQ(CLSIDFromProgID(c.name, &clsid), S_OK);
    }
    const std::wstring library =
        L"Software\\Classes\\TypeLib\\" + ToString(LIBID_Conmuta) + L"\\1.0";
    EXPECT_EQ(ValueOf(HKEY_LOCAL_MACHINE, library + L"\\FLAGS"), L"8");
    EXPECT_EQ(ValueOf(HKEY_LOCAL_MACHINE, library + L"\\0\\win64"), L"");
  }
  EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, other.c_str()), ERROR_SUCCESS);
}
#endif

}  // namespace
}  // namespace conmuta::test
