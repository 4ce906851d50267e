#include "layouts/mistake.h"

#include <algorithm>

namespace conmuta::layouts {

Text Sentence(const Mistake& mistake) {
  Text sentence = mistake.file + u":" + ToText(mistake.place.line) + u": ";
  if (!mistake.item.empty()) sentence += mistake.item + u": ";
  sentence += mistake.what;
  if (!mistake.allowed.empty()) sentence += u" (" + mistake.allowed + u")";
  return sentence;
}

void SortByPlace(std::vector<Mistake>& mistakes) {
  std::stable_sort(mistakes.begin(), mistakes.end(),
                   [](const Mistake& a, const Mistake& b) { return a.place < b.place; });
}

}  // namespace conmuta::layouts
