#include "layouts/proof/harm.h"

#include <algorithm>
#include <utility>

namespace conmuta::layouts {
namespace {

// Blanks at the end of an account that is read as text are nothing to a person.
std::vector<ExpectedCall> Seen(std::vector<ExpectedCall> calls) {
  for (ExpectedCall& call : calls) call.account = TrimRight(call.account);
  return calls;
}

Harm Between(const ExpectedCall& whole, const ExpectedCall& found) {
  if (whole == found) return Harm::kNone;
  ExpectedCall alike = found;
  alike.attribute = whole.attribute;
  alike.ring = whole.ring;
  alike.account = whole.account;
  if (alike == whole) return Harm::kDetail;
  alike.duration = whole.duration;
  return alike == whole ? Harm::kDuration : Harm::kWrong;
}

}  // namespace

Harm Compare(std::vector<ExpectedCall> whole, const std::vector<ExpectedCall>& found) {
  Harm worst = Harm::kNone;
  // Each call stands for one: what comes a second time is somebody else's, too. The most alike are
  // taken first.
  whole = Seen(std::move(whole));
  std::vector<ExpectedCall> left = Seen(found);
  for (const Harm harm : {Harm::kNone, Harm::kDetail, Harm::kDuration}) {
    std::vector<ExpectedCall> unlike;
    for (const ExpectedCall& call : left) {
      const auto twin = std::find_if(whole.begin(), whole.end(), [&](const ExpectedCall& other) {
        return Between(other, call) == harm;
      });
      if (twin == whole.end()) {
        unlike.push_back(call);
      } else {
        whole.erase(twin);
        worst = std::max(worst, harm);
      }
    }
    left = std::move(unlike);
  }
  return left.empty() ? worst : Harm::kWrong;
}

}  // namespace conmuta::layouts
