#include "layouts/proof/plausible.h"

#include <algorithm>
#include <utility>

namespace conmuta::layouts {
namespace {

struct Range {
  emParamDato kind;
  bool may_be_blank;
  int first;
  int last;
};

// The seconds of a start are often not printed; a call without an answer has neither duration nor
// ring.
constexpr Range kRanges[] = {
    {emParamFechaDia, false, 1, 31},       {emParamFechaMes, false, 1, 12},
    {emParamFechaAnio, false, 0, 9999},    {emParamFechaHoras, false, 0, 24},
    {emParamFechaMinutos, false, 0, 59},   {emParamFechaSegundos, true, 0, 59},
    {emParamDuracionDia, true, 1, 31},     {emParamDuracionMes, true, 1, 12},
    {emParamDuracionAnio, true, 0, 9999},  {emParamDuracionHoras, true, 0, 24},
    {emParamDuracionMinutos, true, 0, 59}, {emParamDuracionSegundos, true, 0, 59},
    {emParamRingHoras, true, 0, 24},       {emParamRingMinutos, true, 0, 59},
    {emParamRingSegundos, true, 0, 59}};

// A number, blanks on either side.
bool IsInRange(TextView found, const Range& range) {
  const TextView digits = Trim(found);
  if (digits.empty()) return range.may_be_blank;
  if (digits.size() > 4 || !std::all_of(digits.begin(), digits.end(), IsDigit)) return false;
  int number = 0;
  for (const char16_t c : digits) number = number * 10 + (c - u'0');
  return number >= range.first && number <= range.last;
}

bool IsParty(emParamDato kind) {
  return kind >= emParamTroncalEntrante && kind <= emParamTroncal2InterTroncalFinTransferida;
}
bool IsPhone(emParamDato kind) {
  return kind >= emParamTelefonoEntrante && kind <= emParamTelefonoInterTroncalFinTransferida;
}

bool IsPlausible(const ItemRead& item) {
  if (!item.defined) return true;
  if (IsParty(item.kind)) {
    return Trim(item.found).find_first_of(u" :/'") == TextView::npos;
  }
  // Numbers hold all kinds of signs and names, but no clock.
  if (IsPhone(item.kind)) return item.found.find_first_of(u":/") == TextView::npos;
  const auto* const range = std::find_if(std::begin(kRanges), std::end(kRanges),
                                         [&](const Range& row) { return row.kind == item.kind; });
  return range == std::end(kRanges) || IsInRange(item.found, *range);
}

}  // namespace

void Plausibility::Read(const ItemRead& item) {
  plausible_ = plausible_ && IsPlausible(item);
}

bool Plausibility::Take() {
  return std::exchange(plausible_, true);
}

}  // namespace conmuta::layouts
