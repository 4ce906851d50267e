// Long random sessions with the manager.
#include <gtest/gtest.h>

#include "support/manager_bench.h"
#include "support/random.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::Random;

const std::string kBrands[] = {"ACME", "acme", "Beta", "Z\xD1", "z\xF1", "A"};
const std::string kModels[] = {"X1", "x1", "X2", "Y", "y", "Long model name"};

class Session : public ManagerBench {
 public:
  explicit Session(unsigned seed) : random(seed) {
    for (int i = random.Below(8); i > 0; --i) {
      PutModel(random.Below(12), random.OneOf(kBrands), random.OneOf(kModels));
    }
    if (random.Percent(50)) Put(kDefault, random.OneOf(kBrands), random.OneOf(kModels));
  }

  Text AnyKey() {
    const auto& rows = view.rows;
    return std::next(rows.begin(), random.Below(static_cast<int>(rows.size())))->first;
  }

  // One thing that a user does; buttons only where they can be pressed.
  void Act() {
    view.answer = random.Percent(80) ? kYes : 7;
    switch (random.Below(10)) {
      case 0:
      case 1:
        Click(AnyKey());
        break;
      case 2:
      case 3:
        Add(random.OneOf(kBrands), random.OneOf(kModels),
            random.String(u"ab", 3) == u"aaa" ? "c" : "");
        break;
      case 4:
        view.chosen.reset();
        window->btnBuscar();
        break;
      case 5:
        if (window->model_commands_enabled()) window->btnEliminar();
        break;
      case 6:
        if (window->model_commands_enabled()) window->btnInstalar();
        break;
      case 7:
        window->btnDesinstalar();
        break;
      case 8:
        random.Percent(50) ? Collapse(AnyKey()) : Expand(AnyKey());
        break;
      default:
        window->btnContraer();
        window->btnPuertos();
        break;
    }
  }

  Random random;
};

// Names as they are compared: an update may change the letter case in the file only.
Text Folded(TextView text) {
  return ToUpper(text);
}

TEST(ManagerSessions, TreeIsSoundAndTrueToTheDisk) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    Session session(seed);
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
    Session session(seed);
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
    Session session(seed);
    session.Open();
    for (int step = 0; step < 60; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      auto& entries = session.files.entries;
      const int number = session.random.Below(12);
      switch (session.random.Below(8)) {
        case 0:
          entries.erase(ManagerBench::ModelPath(number));
          break;
        case 1:
          entries[ManagerBench::ModelPath(number)] = {"rubbish"};
          break;
        case 2:
          session.PutModel(number, session.random.OneOf(kBrands), session.random.OneOf(kModels));
          break;
        case 3:
          session.Put(ManagerBench::kDefault, session.random.OneOf(kBrands),
                      session.random.OneOf(kModels));
          break;
        case 4:
          entries.erase(Text(ManagerBench::kDefault));
          break;
        default:
          break;
      }
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
