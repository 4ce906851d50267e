#include "conmuta/explanation.h"

#include <algorithm>

#include "layouts/names.h"

namespace conmuta::host {
namespace {

struct ShortRow {
  TextView begin;  // of the item's name
  TextView name;
};

constexpr ShortRow kShortNames[] = {
    {u"FechaDia", u"día"},        {u"FechaMes", u"mes"},        {u"FechaAnio", u"año"},
    {u"FechaHoras", u"h"},        {u"FechaMinutos", u"min"},    {u"FechaSegundos", u"s"},
    {u"DuracionDia", u"día"},     {u"DuracionMes", u"mes"},     {u"DuracionAnio", u"año"},
    {u"DuracionHoras", u"h"},     {u"DuracionMinutos", u"min"}, {u"DuracionSegundos", u"s"},
    {u"RingHoras", u"h"},         {u"RingMinutos", u"min"},     {u"RingSegundos", u"s"},
    {u"CodigoCuenta", u"cuenta"}, {u"Telefono", u"teléfono"},   {u"Troncal", u"troncal"},
    {u"Extension", u"extensión"},
};

}  // namespace

void Explanation::Read(const ItemRead& item) {
  if (!item.defined) return;
  const auto known = std::find_if(items.begin(), items.end(),
                                  [&](const Item& other) { return other.kind == item.kind; });
  Item& kept = known != items.end() ? *known : items.emplace_back();
  kept = {item.kind,
          item.pos,
          item.size,
          Text(item.found),
          item.is_number ? ToText(item.number) : Text(item.text),
          item.error};
}

void Explanation::Looked(const ConstantRead& constant) {
  if (!constant.defined) return;
  const auto known = std::find_if(constants.begin(), constants.end(), [&](const Constant& other) {
    return other.kind == constant.kind;
  });
  Constant& kept = known != constants.end() ? *known : constants.emplace_back();
  kept = {constant.kind,         constant.pos,         constant.size,
          Text(constant.wanted), Text(constant.found), constant.stands};
}

TextView ShortName(emParamDato kind) {
  const TextView name = layouts::NameOf(kind);
  for (const ShortRow& row : kShortNames) {
    if (name.starts_with(row.begin)) return row.name;
  }
  return name;
}

}  // namespace conmuta::host
