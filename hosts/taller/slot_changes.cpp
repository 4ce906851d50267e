#include "taller/slot_changes.h"

#include "layouts/names.h"

namespace conmuta::taller {

Messages ChangeConstant(Document& document, emParamDatoConstante kind, std::uint8_t pos,
                        TextView text, Document::As as) {
  CTE constant;
  constexpr std::size_t kMost = decltype(constant.Constante)::kSize;
  if (text.size() > kMost) {
    return {{Text(layouts::NameOf(kind)),
             {},
             u"el texto tiene " + ToText(static_cast<long long>(text.size())) +
                 u" caracteres (hasta " + ToText(static_cast<long long>(kMost)) + u")"}};
  }
  constant.Param = kind;
  constant.TipoDato = emValorConstante;
  constant.Pos = pos;
  constant.Constante.Assign(text);
  constant.Tam = static_cast<std::uint8_t>(constant.Constante.Length());
  return document.Apply(layouts::SetConstant{constant}, as);
}

}  // namespace conmuta::taller
