// Registering and unregistering while the registry or the memory fails: all or nothing.
#include <gtest/gtest.h>

#include <memory>

#include "component/dll.h"
#include "component/registry.h"
#include "rounds.h"

namespace conmuta::test {
namespace {

// Keys below which others register, too.
const Snapshot kOthers = {L"CLSID", L"Interface", L"TypeLib"};

enum class Doing { kRegister, kRegisterForUser, kUnregister, kUnregisterForUser };

// Everything happens in registries of the test's own.
class Registrar final : public Host {
 public:
  explicit Registrar(Doing doing) : doing_(doing) {
    for (const wchar_t* key : {L"CLSID", L"Interface", L"TypeLib"}) {  // those of others
      Keys().Add(std::wstring(L"Software\\Classes\\") + key);
    }
    if (!Registers()) {
      EXPECT_EQ(dll_.Install(true, Command()), S_OK);
    }
  }

  HRESULT Act() override {
    switch (doing_) {
      case Doing::kRegister:
        return dll_.RegisterServer();
      case Doing::kUnregister:
        return dll_.UnregisterServer();
      default:
        return dll_.Install(Registers(), Command());
    }
  }

  // What the registry says of it.
  bool MayAnswer(HRESULT answered) const override {
    return answered == HRESULT_FROM_WIN32(ERROR_OUTOFMEMORY);
  }

  void Verify(HRESULT answered) override {
    if (FAILED(answered) && Registers() && !faults::Current().from_there_on) {
      EXPECT_EQ(Keys().Classes(), kOthers) << "half of it is there";
    }
    Host::Verify(answered);
    EXPECT_EQ(Keys().Classes() == kOthers, !Registers());
    EXPECT_EQ(dll_.Install(false, Command()), S_OK);
    EXPECT_EQ(Keys().Classes(), kOthers);
  }

 private:
  bool ForUser() const {
    return doing_ == Doing::kRegisterForUser || doing_ == Doing::kUnregisterForUser;
  }
  bool Registers() const { return doing_ == Doing::kRegister || doing_ == Doing::kRegisterForUser; }
  const wchar_t* Command() const { return ForUser() ? L"user" : nullptr; }
  const EmptyRegistry& Keys() const { return ForUser() ? user_ : machine_; }

  const Doing doing_;
  const LoadedDll dll_;
  const EmptyRegistry machine_{HKEY_LOCAL_MACHINE};
  const EmptyRegistry user_{HKEY_CURRENT_USER};
};

class Registration : public testing::TestWithParam<std::pair<const char*, Doing>> {};

TEST_P(Registration, IsWholeOrNotThere) {
  RunRounds(Supply::kMemory, GetParam().first,
            [&] { return std::make_unique<Registrar>(GetParam().second); });
}

INSTANTIATE_TEST_SUITE_P(
    , Registration,
    testing::Values(std::pair{"Registering", Doing::kRegister},
                    std::pair{"RegisteringForTheUser", Doing::kRegisterForUser},
                    std::pair{"Unregistering", Doing::kUnregister},
                    std::pair{"UnregisteringForTheUser", Doing::kUnregisterForUser}),
    [](const auto& test) { return std::string(test.param.first); });

}  // namespace
}  // namespace conmuta::test
