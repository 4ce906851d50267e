// Class objects, and what keeps the DLL in memory.
#include <ocidl.h>

#include "host_test.h"

namespace conmuta::test {
namespace {

struct PublicClass {
  const char* name;
  const CLSID& clsid;
  const IID& iid;
};
const PublicClass kClasses[] = {
    {"clsCfgConmut", CLSID_clsCfgConmut, IID__clsCfgConmut},
    {"clsTradEST", CLSID_clsTradEST, IID__clsTradEST},
    {"clsLlamadaTRD", CLSID_clsLlamadaTRD, IID__clsLlamadaTRD},
    {"clsConmutadores", CLSID_clsConmutadores, IID__clsConmutadores},
};

void* const kRubbish = reinterpret_cast<void*>(0x1234);

class ClassFactoryTest : public HostTest {
 protected:
  ComPtr<IClassFactory> Factory(REFCLSID clsid = CLSID_clsCfgConmut) {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(dll.GetClassObject(clsid, IID_IClassFactory, factory.ReceiveVoid()), S_OK);
    return factory;
  }

  const LoadedDll dll;
};

TEST_F(ClassFactoryTest, ClassThatIsNotOursIsNotAvailable) {
  void* object = kRubbish;
  EXPECT_EQ(dll.GetClassObject(IID__clsCfgConmut, IID_IClassFactory, &object),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
}

TEST_F(ClassFactoryTest, ClassObjectNeedsAPlace) {
  EXPECT_EQ(dll.GetClassObject(CLSID_clsCfgConmut, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ClassFactoryTest, ClassObjectHasNoOtherInterface) {
  for (const IID& iid : {IID_IDispatch, IID_IClassFactory2, IID__clsCfgConmut}) {
    void* object = kRubbish;
    EXPECT_EQ(dll.GetClassObject(CLSID_clsCfgConmut, iid, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
  }
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, ClassObjectIsOneObjectBehindBothItsInterfaces) {
  const auto factory = Factory();
  ComPtr<IUnknown> unknown;
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, unknown.ReceiveVoid()), S_OK);
  EXPECT_TRUE(IsSame(unknown.get(), factory.get()));
  EXPECT_EQ(factory->QueryInterface(IID_IClassFactory, nullptr), E_POINTER);
  void* object = kRubbish;
  EXPECT_EQ(factory->QueryInterface(IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}

TEST_F(ClassFactoryTest, EveryClassIsMadeAsAnyInterfaceItHas) {
  for (const PublicClass& c : kClasses) {
    SCOPED_TRACE(c.name);
    const auto factory = Factory(c.clsid);
    for (const IID* iid : {&IID_IUnknown, &IID_IDispatch, &c.iid, &IID_ISupportErrorInfo,
                           &IID_IProvideClassInfo, &IID_IProvideClassInfo2}) {
      ComPtr<IUnknown> object;
      EXPECT_EQ(factory->CreateInstance(nullptr, *iid, object.ReceiveVoid()), S_OK);
      EXPECT_TRUE(object);
    }
  }
}

TEST_F(ClassFactoryTest, ObjectNeedsAPlace) {
  EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ClassFactoryTest, ObjectIsNotAggregated) {
  const auto factory = Factory();
  const auto outer = NewConfig();
  for (const IID& iid : {IID_IUnknown, IID_IDispatch}) {
    void* object = kRubbish;
    EXPECT_EQ(factory->CreateInstance(outer.get(), iid, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
  }
}

TEST_F(ClassFactoryTest, ObjectWithoutTheWantedInterfaceIsNotLeftAlive) {
  for (const PublicClass& c : kClasses) {
    SCOPED_TRACE(c.name);
    void* object = kRubbish;
    EXPECT_EQ(Factory(c.clsid)->CreateInstance(nullptr, IID_IClassFactory, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
  }
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, ClassHasNoInterfaceOfAnother) {
  for (const PublicClass& made : kClasses) {
    ComPtr<IUnknown> object;
    ASSERT_EQ(Factory(made.clsid)->CreateInstance(nullptr, IID_IUnknown, object.ReceiveVoid()),
              S_OK);
    for (const PublicClass& other : kClasses) {
      const auto asked = QueryFor<IUnknown>(object.get(), other.iid);
      EXPECT_EQ(static_cast<bool>(asked), &made == &other) << made.name << " as " << other.name;
    }
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  }
}

TEST_F(ClassFactoryTest, OnlyTheConfigurationHasEvents) {
  for (const PublicClass& c : kClasses) {
    ComPtr<IUnknown> object;
    ASSERT_EQ(Factory(c.clsid)->CreateInstance(nullptr, IID_IUnknown, object.ReceiveVoid()), S_OK);
    const auto events =
        QueryFor<IConnectionPointContainer>(object.get(), IID_IConnectionPointContainer);
    EXPECT_EQ(static_cast<bool>(events), IsEqualGUID(c.clsid, CLSID_clsCfgConmut)) << c.name;
  }
}

TEST_F(ClassFactoryTest, ReferencesAreCounted) {
  ComPtr<IUnknown> object;
  ASSERT_EQ(Factory()->CreateInstance(nullptr, IID_IUnknown, object.ReceiveVoid()), S_OK);
  EXPECT_EQ(object->AddRef(), 2u);
  EXPECT_EQ(object->Release(), 1u);
}

TEST_F(ClassFactoryTest, AnObjectKeepsTheDll) {
  auto object = NewConfig();
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  object = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, AClassObjectKeepsTheDll) {
  auto factory = Factory();
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  factory = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, LocksAreCountedAndOutliveTheClassObject) {
  auto factory = Factory();
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  factory = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  EXPECT_EQ(Factory(CLSID_clsTradEST)->LockServer(FALSE), S_OK);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, AnEnumeratorKeepsTheDll) {
  auto config = NewConfig();
  auto events = QueryFor<IConnectionPointContainer>(config.get(), IID_IConnectionPointContainer);
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(events->FindConnectionPoint(DIID___clsCfgConmut, point.Receive()), S_OK);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Receive()), S_OK);
  point = {};
  events = {};
  config = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  connections = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, ACallRecordOfATranslatorKeepsTheDll) {
  auto call = Read(NewTranslator(), &Trad::get_InfoLlamada);
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  call = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

// A copy of the DLL that nobody else has loaded.
class CopiedDll {
 public:
  CopiedDll() {
    wchar_t folder[MAX_PATH + 1];
    GetTempPathW(MAX_PATH + 1, folder);
    path_ =
        std::wstring(folder) + L"conmuta-copy-" + std::to_wstring(GetCurrentProcessId()) + L".dll";
    CopyFileW(DllPath().c_str(), path_.c_str(), FALSE);
  }
  ~CopiedDll() { DeleteFileW(path_.c_str()); }
  const std::wstring& path() const { return path_; }
  bool IsLoaded() const { return GetModuleHandleW(path_.c_str()) != nullptr; }

 private:
  std::wstring path_;
};

// Makes one object and uses what it shares with others: type information and error texts.
void UseOnce(const LoadedDll& dll, const PublicClass& c) {
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(dll.GetClassObject(c.clsid, IID_IClassFactory, factory.ReceiveVoid()), S_OK);
  ComPtr<IDispatch> object;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, object.ReceiveVoid()), S_OK);
  ComPtr<ITypeInfo> info;
  EXPECT_EQ(object->GetTypeInfo(0, LOCALE_NEUTRAL, info.Receive()), S_OK);
  OLECHAR name[] = L"Inexistente";
  OLECHAR* names[] = {name};
  DISPID id = 0;
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
}

TEST(UnloadingTest, TheDllGoesWhenAllIsReleasedAndComesBack) {
  const CopiedDll copy;
  for (int round = 0; round < 3; ++round) {
    {
      const LoadedDll dll(copy.path());
      ASSERT_TRUE(dll);
      for (const PublicClass& c : kClasses) UseOnce(dll, c);
      EXPECT_EQ(dll.CanUnloadNow(), S_OK);
    }
    EXPECT_FALSE(copy.IsLoaded());
  }
}

ULONG References(ITypeLib* library) {
  library->AddRef();
  return library->Release();
}

// The system has one library object for all who load the same file. Releasing it while the DLL is
// unloaded would call into the system under the loader's lock.
TEST(UnloadingTest, TheTypeLibraryIsLetGoBeforeTheDllGoes) {
  const CopiedDll copy;
  ComPtr<ITypeLib> library;
  ASSERT_EQ(LoadTypeLibEx(copy.path().c_str(), REGKIND_NONE, library.Receive()), S_OK);
  const ULONG before = References(library.get());
  for (int round = 0; round < 2; ++round) {
    const LoadedDll dll(copy.path());
    ASSERT_TRUE(dll);
    UseOnce(dll, kClasses[0]);
    EXPECT_GT(References(library.get()), before);
    EXPECT_EQ(dll.CanUnloadNow(), S_OK);
    EXPECT_EQ(References(library.get()), before);
    UseOnce(dll, kClasses[0]);
    EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  }
  EXPECT_EQ(References(library.get()), before);
}

TEST(UnloadingTest, ComLetsTheDllGoWhenNothingIsInUse) {
  { const auto config = NewConfig(); }
  EXPECT_NE(GetModuleHandleW(L"conmuta.dll"), nullptr);
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_EQ(GetModuleHandleW(L"conmuta.dll"), nullptr);
}

TEST(UnloadingTest, ComKeepsTheDllWhileAnObjectLives) {
  auto call = Read(NewTranslator(), &Trad::get_InfoLlamada);
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_NE(GetModuleHandleW(L"conmuta.dll"), nullptr);
  EXPECT_EQ(Read(call, &Trd::get_Ring), 0);
  call = {};
}

}  // namespace
}  // namespace conmuta::test
