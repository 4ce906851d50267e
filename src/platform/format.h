// Values lined up for reports in a fixed-pitch font.
#pragma once

#include <algorithm>

#include "platform/text.h"

namespace conmuta {

// At least `width` characters, filled on the left; longer texts stay whole.
inline Text AlignRight(TextView text, std::size_t width, char16_t fill = u' ') {
  return Text(width - std::min(width, text.size()), fill).append(text);
}

// The same, filled on the right.
inline Text AlignLeft(TextView text, std::size_t width, char16_t fill) {
  return Text(text).append(width - std::min(width, text.size()), fill);
}

// At least `width` digits.
inline Text PaddedNumber(long long number, std::size_t width) {
  return AlignRight(ToText(number), width, u'0');
}

}  // namespace conmuta
