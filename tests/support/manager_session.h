// Random sessions with the manager.
#pragma once

#include <iterator>
#include <string>

#include "support/manager_bench.h"
#include "support/random.h"

namespace conmuta::test {

inline const std::string kBrands[] = {"ACME", "acme", "Beta", "Z\xD1", "z\xF1", "A"};
inline const std::string kModels[] = {"X1", "x1", "X2", "Y", "y", "Long model name"};

// A manager window in the hands of a restless person.
class ManagerSession : public ManagerBench {
 public:
  explicit ManagerSession(Random choices) : random(choices) {
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

  // What others may do to the files meanwhile.
  void Meddle() {
    auto& entries = files.entries;
    const int number = random.Below(12);
    switch (random.Below(8)) {
      case 0:
        entries.erase(ManagerBench::ModelPath(number));
        break;
      case 1:
        entries[ManagerBench::ModelPath(number)] = {"rubbish"};
        break;
      case 2:
        PutModel(number, random.OneOf(kBrands), random.OneOf(kModels));
        break;
      case 3:
        Put(ManagerBench::kDefault, random.OneOf(kBrands), random.OneOf(kModels));
        break;
      case 4:
        entries.erase(Text(ManagerBench::kDefault));
        break;
      default:
        break;
    }
  }

  Random random;
};

}  // namespace conmuta::test
