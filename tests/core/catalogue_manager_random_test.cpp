// Long random sessions with the manager.
#include <gtest/gtest.h>

#include "support/manager_session.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::ManagerSession;
using test::Random;

// Names as they are compared: an update may change the letter case in the file only.
Text Folded(TextView text) {
  return ToUpper(text);
}

TEST(ManagerSessions, TreeIsSoundAndTrueToTheDisk) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    ManagerSession session{Random(seed)};
    session.Open();
    // Of several files for one model the tree lists one, and the others come up when that goes.
    for (const auto& entry : std::map(session.files.entries)) {
      bool listed = !entry.first.starts_with(ManagerBench::kFolder);
      for (int number = 0; number < 12; ++number) {
        listed |= entry.first == ManagerBench::ModelPath(number) &&
                  session.view.rows.count(Text(u"MOD").append(ToText(number))) != 0;
      }
      if (!listed) session.files.entries.erase(entry.first);
    }
    for (int step = 0; step < 60; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      session.Act();
      session.ExpectSound();
      EXPECT_EQ(ManagerBench::ModelsOf(session.window->tree(), Folded),
                session.FreshModels(Folded));
      if (testing::Test::HasFailure()) return;
    }
  }
}

TEST(ManagerSessions, TreeIsSoundWhateverFails) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    ManagerSession session{Random(seed)};
    session.Open();
    for (int step = 0; step < 60; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      session.failing.FailAt(session.random.Below(12));
      session.Act();
      session.ExpectSound();
      if (testing::Test::HasFailure()) return;
    }
  }
}

TEST(ManagerSessions, TreeIsSoundWhateverOthersDoToTheFiles) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    ManagerSession session{Random(seed)};
    session.Open();
    for (int step = 0; step < 60; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      session.Meddle();
      session.Act();
      // Pressed where they are disabled, too: a key may have been faster than the view.
      if (session.random.Percent(20)) session.window->btnEliminar();
      if (session.random.Percent(20)) session.window->btnInstalar();
      session.ExpectSound();
      if (testing::Test::HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace conmuta
