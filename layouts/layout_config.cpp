#include "layouts/layout_config.h"

#include <algorithm>
#include <iterator>

#include "layouts/windows1252.h"

namespace conmuta::layouts {
namespace {

template <std::size_t kWidth>
void KeepCharacters(FixedText<kWidth>& text) {
  Text kept(text.Raw());
  std::replace_if(
      kept.begin(), kept.end(), [](char16_t c) { return !IsInWindows1252(c); }, u'?');
  text.Assign(kept);
}

template <class Slot>
std::vector<Slot> Valid(const SlotList<Slot>& list) {
  std::vector<Slot> slots;
  std::copy_if(list.begin(), list.end(), std::back_inserter(slots),
               [](const Slot& slot) { return IsValid(slot); });
  return slots;
}

}  // namespace

void Apply(const Layout& layout, clsCfgConmut& config) {
  const ConfigHeader& header = layout.header;
  config.Iniciar();
  config.Marca(header.Marca.Raw());
  config.Modelo(header.Modelo.Raw());
  config.Comentarios(header.Comentarios.Raw());
  config.Separador(header.Separador.Raw());
  config.Caso(header.Caso);
  config.Cables(header.Cables);
  for (const DATO& item : layout.items) {
    config.DATOActivo(item.Param);
    config.DATOPos(item.Pos);
    config.DATOTam(item.Tam);
    config.TipoDatoDATO(item.TipoDato);  // last: position and size turn it back
  }
  for (const CTE& constant : layout.constants) {
    config.CTEActivo(constant.Param);
    config.CTEPos(constant.Pos);
    config.Constante(constant.Constante.Raw());
    config.CTETam(constant.Tam);  // last: the text sets it
  }
}

Layout LayoutOf(const clsCfgConmut& config) {
  Layout layout;
  layout.header = config.Header();
  layout.header.Version = emVersion3_0;
  KeepCharacters(layout.header.Marca);
  KeepCharacters(layout.header.Modelo);
  KeepCharacters(layout.header.Comentarios);
  KeepCharacters(layout.header.Separador);
  layout.items = Valid(config.DATOs());
  layout.constants = Valid(config.CTEs());
  for (CTE& constant : layout.constants) KeepCharacters(constant.Constante);
  return layout;
}

}  // namespace conmuta::layouts
