// What registering writes and unregistering takes away, in a registry of the tests' own.
#include <gmock/gmock.h>

#include "host_test.h"
#include "registry.h"

namespace conmuta::test {
namespace {

using ::testing::ContainerEq;
using ::testing::IsEmpty;

constexpr const wchar_t* kSize = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr wchar_t kLibrary[] = L"{D3F38416-CC75-4DC0-9234-468702248C5E}";

// The keys of one class, with the values that the registry has for it.
void AppendClass(Snapshot& lines, const std::wstring& clsid, const std::wstring& prog_id,
                 const std::wstring& title) {
  const std::wstring key = L"CLSID\\" + clsid;
  lines.insert(lines.end(), {key,
                             key + L" [] = " + title,
                             key + L"\\InprocServer32",
                             key + L"\\InprocServer32 [] = " + DllPath(),
                             key + L"\\InprocServer32 [ThreadingModel] = Apartment",
                             key + L"\\ProgID",
                             key + L"\\ProgID [] = " + prog_id + L".1",
                             key + L"\\Programmable",
                             key + L"\\Programmable [] = ",
                             key + L"\\TypeLib",
                             key + L"\\TypeLib [] = " + kLibrary,
                             key + L"\\Version",
                             key + L"\\Version [] = 1.0",
                             key + L"\\VersionIndependentProgID",
                             key + L"\\VersionIndependentProgID [] = " + prog_id,
                             prog_id,
                             prog_id + L" [] = " + title,
                             prog_id + L"\\CLSID",
                             prog_id + L"\\CLSID [] = " + clsid,
                             prog_id + L"\\CurVer",
                             prog_id + L"\\CurVer [] = " + prog_id + L".1",
                             prog_id + L".1",
                             prog_id + L".1 [] = " + title,
                             prog_id + L".1\\CLSID",
                             prog_id + L".1\\CLSID [] = " + clsid});
}

constexpr wchar_t kOfDuals[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kOfEvents[] = L"{00020420-0000-0000-C000-000000000046}";

void AppendInterface(Snapshot& lines, const std::wstring& iid, const std::wstring& name,
                     const std::wstring& marshaler = kOfDuals) {
  const std::wstring key = L"Interface\\" + iid;
  lines.insert(lines.end(),
               {key, key + L" [] = " + name, key + L"\\ProxyStubClsid32",
                key + L"\\ProxyStubClsid32 [] = " + marshaler, key + L"\\TypeLib",
                key + L"\\TypeLib [] = " + kLibrary, key + L"\\TypeLib [Version] = 1.0"});
}

// All that a registered component has below Software\Classes.
Snapshot Registered() {
  Snapshot lines = {L"CLSID", L"Interface", L"TypeLib"};
  AppendClass(lines, L"{12E36D55-5F4F-427F-A6AC-AEF6D456D4EF}", L"Conmuta.clsCfgConmut",
              L"Configuración de un conmutador");
  AppendClass(lines, L"{2655B57D-9022-441C-8CAF-92197CA2F130}", L"Conmuta.clsTradEST",
              L"Traductor de llamadas");
  AppendClass(lines, L"{2C8B13F8-ACF7-45B8-AC06-20E7E95AA66E}", L"Conmuta.clsLlamadaTRD",
              L"Llamada traducida");
  AppendClass(lines, L"{BBD8A405-E9BC-4014-9AAE-30699D1FCCFE}", L"Conmuta.clsConmutadores",
              L"Catálogo de conmutadores");
  AppendInterface(lines, L"{E7F7ED0B-D83B-4247-A211-76610E624650}", L"_clsCfgConmut");
  AppendInterface(lines, L"{F521BDF3-7996-4B7D-B6A2-6EAA3412566F}", L"_clsTradEST");
  AppendInterface(lines, L"{6B826062-90FF-4596-AC3B-EEF825EF06EE}", L"_clsLlamadaTRD");
  AppendInterface(lines, L"{B3C24129-AD6D-49CB-9B72-019484FF27D3}", L"_clsConmutadores");
  AppendInterface(lines, L"{E269772B-8C36-498D-8A5D-851DF9BC46CA}", L"__clsCfgConmut", kOfEvents);
  const std::wstring library = std::wstring(L"TypeLib\\") + kLibrary;
  const std::wstring path = DllPath();
  lines.insert(
      lines.end(),
      {library, library + L"\\1.0",
       library +
           L"\\1.0 [] = Conmuta 1.0: configuracion de conmutadores y traduccion de llamadas SMDR",
       library + L"\\1.0\\0", library + L"\\1.0\\0\\" + kSize,
       library + L"\\1.0\\0\\" + kSize + L" [] = " + path, library + L"\\1.0\\FLAGS",
       library + L"\\1.0\\FLAGS [] = 8", library + L"\\1.0\\HELPDIR",
       library + L"\\1.0\\HELPDIR [] = " + path.substr(0, path.rfind(L'\\'))});
  std::sort(lines.begin(), lines.end());
  return lines;
}

class RegistrationTest : public ::testing::Test {
 protected:
  const LoadedDll dll;
  const EmptyRegistry machine{HKEY_LOCAL_MACHINE};
  const EmptyRegistry user{HKEY_CURRENT_USER};
};

const Snapshot kNothingLeft = {L"CLSID", L"Interface", L"TypeLib"};

TEST_F(RegistrationTest, RegisteringWritesExactlyItsKeysForTheMachine) {
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_THAT(machine.Classes(), ContainerEq(Registered()));
  EXPECT_THAT(SnapshotOf(user.key(), L""), IsEmpty());
}

// What is below the interfaces and the library; a key for 16-bit clients is left out.
void AppendLibraryPart(Snapshot& part, const Snapshot& lines) {
  for (std::wstring line : lines) {
    if (line.starts_with(L"Typelib")) line[4] = L'L';  // the letter case of keys means nothing
    const bool is_old = line.ends_with(L"\\ProxyStubClsid") ||
                        line.find(L"\\ProxyStubClsid [") != std::wstring::npos;
    if ((line.starts_with(L"Interface") || line.starts_with(L"TypeLib")) && !is_old) {
      part.push_back(line);
    }
  }
  std::sort(part.begin(), part.end());
  part.erase(std::unique(part.begin(), part.end()), part.end());
}

TEST_F(RegistrationTest, TheLibraryIsRegisteredAsTheSystemItselfWould) {
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  Snapshot ours;
  AppendLibraryPart(ours, machine.Classes());
  EXPECT_EQ(dll.UnregisterServer(), S_OK);

  const EmptyRegistry classes(HKEY_CLASSES_ROOT);  // it writes through this root key too
  ComPtr<ITypeLib> library;
  std::wstring path = DllPath();
  std::wstring folder = path.substr(0, path.rfind(L'\\'));
  ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.Receive()), S_OK);
  ASSERT_EQ(RegisterTypeLib(library.get(), path.data(), folder.data()), S_OK);
  Snapshot theirs;
  AppendLibraryPart(theirs, machine.Classes());
  AppendLibraryPart(theirs, SnapshotOf(classes.key(), L""));
  EXPECT_THAT(ours, ContainerEq(theirs));
}

TEST_F(RegistrationTest, RegisteringAgainChangesNothing) {
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_THAT(machine.Classes(), ContainerEq(Registered()));
}

TEST_F(RegistrationTest, UnregisteringLeavesNothing) {
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_EQ(dll.UnregisterServer(), S_OK);
  EXPECT_THAT(machine.Classes(), ContainerEq(kNothingLeft));
}

TEST_F(RegistrationTest, UnregisteringWhatIsNotRegisteredSucceeds) {
  EXPECT_EQ(dll.UnregisterServer(), S_OK);
  EXPECT_EQ(dll.Install(false, L"user"), S_OK);
  EXPECT_THAT(machine.Classes(), IsEmpty());
  EXPECT_THAT(user.Classes(), IsEmpty());
}

TEST_F(RegistrationTest, UnregisteringLeavesTheKeysOfOthers) {
  machine.Add(L"Software\\Classes\\CLSID\\{12E36D55-5F4F-427F-A6AC-AEF6D456D4EE}\\InprocServer32");
  machine.Add(L"Software\\Classes\\Conmuta.Otra");
  machine.Add(L"Software\\Classes\\Interface\\{E7F7ED0B-D83B-4247-A211-76610E624651}");
  machine.Add(L"Software\\Classes\\TypeLib\\{D3F38416-CC75-4DC0-9234-468702248C5F}\\1.0");
  const Snapshot before = machine.Classes();
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_EQ(dll.UnregisterServer(), S_OK);
  EXPECT_THAT(machine.Classes(), ContainerEq(before));
}

TEST_F(RegistrationTest, InstallingForTheUserWritesTheSameKeysThere) {
  EXPECT_EQ(dll.Install(true, L"user"), S_OK);
  EXPECT_THAT(user.Classes(), ContainerEq(Registered()));
  EXPECT_THAT(SnapshotOf(machine.key(), L""), IsEmpty());
  EXPECT_EQ(dll.Install(false, L"user"), S_OK);
  EXPECT_THAT(user.Classes(), ContainerEq(kNothingLeft));
}

TEST_F(RegistrationTest, TheWordUserIsKnownInAnyCase) {
  EXPECT_EQ(dll.Install(true, L"USER"), S_OK);
  EXPECT_THAT(user.Classes(), ContainerEq(Registered()));
  EXPECT_THAT(machine.Classes(), IsEmpty());
}

TEST_F(RegistrationTest, InstallingWithoutACommandIsForTheMachine) {
  for (const wchar_t* command : {static_cast<const wchar_t*>(nullptr), L""}) {
    EXPECT_EQ(dll.Install(true, command), S_OK);
    EXPECT_THAT(machine.Classes(), ContainerEq(Registered()));
    EXPECT_EQ(dll.Install(false, command), S_OK);
    EXPECT_THAT(machine.Classes(), ContainerEq(kNothingLeft));
    EXPECT_THAT(user.Classes(), IsEmpty());
  }
}

TEST_F(RegistrationTest, UserAndMachineAreUnregisteredApart) {
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_EQ(dll.Install(true, L"user"), S_OK);
  EXPECT_EQ(dll.UnregisterServer(), S_OK);
  EXPECT_THAT(machine.Classes(), ContainerEq(kNothingLeft));
  EXPECT_THAT(user.Classes(), ContainerEq(Registered()));
}

// A key that cannot be made below a volatile one stands for any failure of the registry.
TEST_F(RegistrationTest, RegistrationThatFailsSaysWhyAndLeavesNothing) {
  machine.Add(L"Software\\Classes");
  machine.Add(L"Software\\Classes\\TypeLib", REG_OPTION_VOLATILE);
  EXPECT_EQ(dll.RegisterServer(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
  EXPECT_THAT(machine.Classes(), ContainerEq(kNothingLeft));
}

// Of a deleted key nothing can be read or changed any more, as of one that belongs to others.
TEST_F(RegistrationTest, UnregisteringThatFailsSaysWhy) {
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_EQ(dll.Install(true, L"user"), S_OK);
  machine.Break();
  user.Break();
  EXPECT_EQ(dll.UnregisterServer(), HRESULT_FROM_WIN32(ERROR_KEY_DELETED));
  EXPECT_EQ(dll.Install(false, nullptr), HRESULT_FROM_WIN32(ERROR_KEY_DELETED));
  EXPECT_EQ(dll.Install(false, L"user"), HRESULT_FROM_WIN32(ERROR_KEY_DELETED));
}

}  // namespace
}  // namespace conmuta::test
