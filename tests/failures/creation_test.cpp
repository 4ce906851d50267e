// Everything before the first member: class objects, objects, late binding, type information.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <utility>

#include "component/dll.h"
#include "component/host.h"
#include "every_member.h"
#include "rounds.h"

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

class Creation : public testing::TestWithParam<int> {
 protected:
  const PublicClass& Class() const { return kClasses[GetParam()]; }
};

// Nothing there yet, or an object of the class.
class Creator final : public Host {
 public:
  explicit Creator(const PublicClass& c) : class_(c) {}

  HRESULT Act() override {
    const LoadedDll dll;
    ComPtr<IClassFactory> factory;
    const HRESULT found =
        dll.GetClassObject(class_.clsid, IID_IClassFactory, factory.ReceiveVoid());
    EXPECT_EQ(SUCCEEDED(found), static_cast<bool>(factory));
    if (FAILED(found)) return found;
    ComPtr<IDispatch> object;
    const HRESULT made = factory->CreateInstance(nullptr, class_.iid, object.ReceiveVoid());
    EXPECT_EQ(SUCCEEDED(made), static_cast<bool>(object));
    return made;
  }

 private:
  const PublicClass& class_;
};

TEST_P(Creation, AnswersForWantOfMemory) {
  RunRounds(Supply::kMemory, "creation", [&] { return std::make_unique<Creator>(Class()); });
}

// A host that binds late, as its first doing.
class LateBinder final : public Host {
 public:
  explicit LateBinder(const PublicClass& c)
      : members_(MembersOf(c.iid)), object_(CreateObject<IDispatch>(c.clsid, c.iid)) {}

  HRESULT Act() override { return IdOf(L"Llamada", L"Marca", L"Emisor", L"Prefijo"); }

  // Whole, or not there at all: every member is found.
  void Verify(HRESULT answered) override {
    Host::Verify(answered);
    for (const LibraryMember& member : members_) {
      const std::size_t blank = member.name.find(' ');
      std::wstring name(member.name.begin(), member.name.end());
      if (blank != std::string::npos) name = name.substr(blank + 1);
      EXPECT_EQ(IdOf(name.c_str()), S_OK) << member.name;
    }
  }

 private:
  // The first of the names that the object knows.
  template <class... Names>
  HRESULT IdOf(Names... names) {
    HRESULT result = DISP_E_UNKNOWNNAME;
    for (const wchar_t* name : {names...}) {
      std::wstring copy = name;
      OLECHAR* place[] = {copy.data()};
      DISPID id = DISPID_UNKNOWN;
      result = object_->GetIDsOfNames(IID_NULL, place, 1, LOCALE_USER_DEFAULT, &id);
      if (result != DISP_E_UNKNOWNNAME) break;
    }
    return result;
  }

  const std::vector<LibraryMember> members_;
  const ComPtr<IDispatch> object_;
};

TEST_P(Creation, LateBindingIsWholeOrNotThere) {
  RunRounds(Supply::kMemory, "late binding", [&] { return std::make_unique<LateBinder>(Class()); });
}

// A host that looks at what it has got.
class Inspector final : public Host {
 public:
  Inspector(const PublicClass& c, bool of_class)
      : of_class_(of_class), object_(CreateObject<IDispatch>(c.clsid, c.iid)) {}

  HRESULT Act() override {
    ComPtr<ITypeInfo> info;
    const auto classes = QueryFor<IProvideClassInfo>(object_.get(), IID_IProvideClassInfo);
    const HRESULT result = of_class_ ? classes->GetClassInfo(info.Receive())
                                     : object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive());
    EXPECT_EQ(SUCCEEDED(result), static_cast<bool>(info));
    return result;
  }

 private:
  const bool of_class_;
  const ComPtr<IDispatch> object_;
};

TEST_P(Creation, TypeInformationAnswersForWantOfMemory) {
  for (const bool of_class : {false, true}) {
    RunRounds(Supply::kMemory, of_class ? "of the class" : "of the interface",
              [&] { return std::make_unique<Inspector>(Class(), of_class); });
  }
}

INSTANTIATE_TEST_SUITE_P(, Creation, testing::Range(0, 4),
                         [](const auto& test) { return std::string(kClasses[test.param].name); });

}  // namespace
}  // namespace conmuta::test
