// What the other tests of this program stand on: what they count and refuse is really there.
#include <gtest/gtest.h>

#include "component/host.h"
#include "faults.h"

namespace conmuta::test {
namespace {

TEST(Supplies, TextThatIsHeldIsCounted) {
  const auto config = NewConfig();
  const auto before = faults::Held();
  BSTR text = nullptr;
  ASSERT_EQ(config->get_NombreConmutador(&text), S_OK);
  EXPECT_NE(faults::Held(), before);
  SysFreeString(text);
  EXPECT_EQ(faults::Held(), before);
}

TEST(Supplies, ObjectThatIsHeldIsCounted) {
  const auto before = faults::Held();
  {
    const auto config = NewConfig();
    EXPECT_NE(faults::Held(), before);
  }
  EXPECT_EQ(faults::Held(), before);
}

TEST(Supplies, OnlyTheCallThatIsMeantFails) {
  const auto config = NewConfig();
  faults::Arm(Supply::kMemory, {1});
  for (const HRESULT expected : {E_OUTOFMEMORY, S_OK, S_OK}) {
    BSTR text = nullptr;
    EXPECT_EQ(config->get_NombreVersion(&text), expected);
    SysFreeString(text);
  }
  EXPECT_GE(faults::Disarm(), 3);
  EXPECT_EQ(faults::FirstFailed(), "SysAllocStringLen");
}

}  // namespace
}  // namespace conmuta::test
