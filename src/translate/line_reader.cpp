#include "translate/line_reader.h"

#include <algorithm>
#include <utility>

namespace conmuta {

std::int32_t ReadOtherNumber(const PlannedItem& item, const LineText& line, std::int32_t most) {
  if (item.IsBeyond()) return kTooLarge;
  const TextView text = line.Cut(item.begin, item.size);
  const std::int64_t read =
      item.IsNumeric() ? ReadDigits(text) : ReadWholeNumber(text).value_or(kNoNumber);
  if (read > most || !std::in_range<std::int32_t>(read)) return kTooLarge;
  return std::max(static_cast<std::int32_t>(read), kNoNumber);
}

}  // namespace conmuta
