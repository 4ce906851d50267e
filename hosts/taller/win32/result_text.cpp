#include "taller/win32/result_text.h"

#include <algorithm>

namespace conmuta::taller {
namespace {

// " (1-8)": the columns of that line from the first to the last one that was read.
Text PlacesOf(const ResultField& field, std::uint64_t line) {
  int first = 0;
  int last = 0;
  for (const LinePart& part : field.parts) {
    if (part.line != line) continue;
    first = first == 0 ? part.pos : std::min(first, part.pos);
    last = std::max(last, part.pos + part.size - 1);
  }
  if (first == 0) return {};
  return u" (" + ToText(first) + (last > first ? u"-" + ToText(last) : Text()) + u")";
}

}  // namespace

Text TextOf(const Result& result) {
  Text shown = result.heading;
  const auto add = [&](const Text& line) {
    if (!line.empty()) shown += Text(kLineBreak) + line;
  };
  add(result.obstacle);
  add(result.note);
  Text fields;
  for (const ResultField& field : result.fields) {
    if (field.text.empty()) continue;
    if (!fields.empty()) fields += u"   ";
    fields += field.name + u" " + field.text;
    fields += PlacesOf(field, result.line);
  }
  add(fields);
  for (const ResultConstant& constant : result.constants) add(constant.sentence);
  // The oldest systems' fonts have a root, and no tick.
  std::replace(shown.begin(), shown.end(), u'✓', u'√');
  return shown;
}

}  // namespace conmuta::taller
