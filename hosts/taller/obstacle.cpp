// Why a line is no call.
#include <algorithm>

#include "platform/unicode.h"
#include "taller/result.h"
#include "translate/call_slots.h"

namespace conmuta::taller {
namespace {

using host::Explanation;

// "Las columnas 18 a 22", "La columna 18".
Text Columns(int pos, int size) {
  if (size < 2) return u"La columna " + ToText(pos);
  return u"Las columnas " + ToText(pos) + u" a " + ToText(pos + size - 1);
}

// Why an item had nothing to say.
Text WhyEmpty(const Explanation::Item& item, bool is_number, TextView line) {
  const bool is_one = item.size < 2;
  if (line.size() < static_cast<std::size_t>(item.pos)) {
    return u"La línea termina en la columna " + ToText(static_cast<int>(line.size())) +
           u", antes de la " + ToText(item.pos) + u".";
  }
  const Text columns = Columns(item.pos, item.size);
  if (Trim(item.found).empty()) {
    return columns + (is_one ? u" está vacía en esta línea." : u" están vacías en esta línea.");
  }
  if (is_number) {
    return columns +
           (is_one ? u" no tiene un dígito en esta línea." : u" no tienen dígitos en esta línea.");
  }
  return columns + (is_one ? u" no dice nada." : u" no dicen nada.");
}

// Of an item without which there is no call.
Obstacle Missing(Text sentence, emParamDato kind, const Explanation& line,
                 const layouts::Layout& layout) {
  sentence += u" ";
  const auto slot = std::find_if(layout.items.begin(), layout.items.end(),
                                 [&](const DATO& item) { return item.Param == kind; });
  const auto read = std::find_if(line.items.begin(), line.items.end(),
                                 [&](const Explanation::Item& item) { return item.kind == kind; });
  if (slot == layout.items.end()) {
    sentence += u"El layout no dice en qué columnas está: " + Text(layouts::NameOf(kind)) + u".";
  } else if (read != line.items.end()) {
    sentence += WhyEmpty(*read, slot->TipoDato == emValorNumerico, line.line);
  }
  return {std::move(sentence), kind};
}

// Of a line of no known type: the first identifier that was looked for.
Obstacle UnknownType(const Explanation& line) {
  Obstacle obstacle{Text(Sentence(NoCall::kUnknownType)), std::nullopt};
  if (!line.constants.empty()) {
    obstacle.sentence += u" " + SentenceOf(line.constants.front()) + u".";
    obstacle.remedy = line.constants.front().kind;
  } else {
    obstacle.sentence += u" El layout no tiene ninguno.";
    obstacle.remedy = emDatoCteIdentEntrante;
  }
  return obstacle;
}

Obstacle ErrorOf(const Explanation& line) {
  Obstacle obstacle{Text(Sentence(line.verdict.error)), std::nullopt};
  const auto item =
      std::find_if(line.items.begin(), line.items.end(),
                   [](const Explanation::Item& read) { return read.error != LineError::kNone; });
  if (item != line.items.end()) {
    obstacle.remedy = item->kind;
    obstacle.sentence += u" " + Columns(item->pos, item->size) + u": \"" + item->found + u"\".";
  } else if (!line.constants.empty()) {
    obstacle.remedy = line.constants.back().kind;
  }
  return obstacle;
}

}  // namespace

Obstacle ObstacleOf(const Explanation& line, const clsLlamadaTRD& call,
                    const layouts::Layout& layout) {
  if (line.verdict.error != LineError::kNone) return ErrorOf(line);
  const NoCall reason = line.verdict.reason;
  const Text sentence(Sentence(reason));
  const CallSlots* slots = FindCallSlots(call.TipoLlamada(), call.Atributos());
  switch (reason) {
    case NoCall::kNoCaller:
      if (slots != nullptr) return Missing(sentence, slots->caller, line, layout);
      break;
    case NoCall::kNoCallee:
      if (slots != nullptr) return Missing(sentence, slots->callee, line, layout);
      break;
    case NoCall::kNoDate:
      return Missing(sentence, emParamFechaMes, line, layout);
    case NoCall::kNoNumber:
      return Missing(sentence, emParamTelefonoSaliente, line, layout);
    case NoCall::kUnknownType:
      return UnknownType(line);
    default:
      break;
  }
  return {sentence, std::nullopt};
}

}  // namespace conmuta::taller
