#include "fuzz/targets.h"
#include "support/manager_session.h"

namespace conmuta::fuzz {

void Manage(std::string_view bytes) {
  test::ManagerSession session{test::Random(bytes)};
  session.Open();
  while (!session.random.Spent()) {
    session.Meddle();
    session.failing.FailAt(session.random.Below(12));
    session.Act();
    session.ExpectSound();
    Require(!testing::Test::HasFailure(), "the tree is sound and the view in step with it");
  }
}

}  // namespace conmuta::fuzz
