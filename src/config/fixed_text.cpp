#include "config/fixed_text.h"

#include <iterator>

namespace conmuta::basConmuta {

Text CadenaAFija(TextView text, int width) {
  Text fixed(text.substr(0, static_cast<std::size_t>(std::max(width, 0))));
  fixed.resize(static_cast<std::size_t>(std::max(width, 0)), kNul);
  return fixed;
}

Text FijaACadena(TextView fixed) {
  Text text;
  text.reserve(fixed.size());
  std::copy_if(fixed.begin(), fixed.end(), std::back_inserter(text),
               [](char16_t c) { return c != kNul; });
  return text;
}

}  // namespace conmuta::basConmuta
