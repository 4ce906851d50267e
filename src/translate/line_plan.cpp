#include "translate/line_plan.h"

#include <algorithm>
#include <bit>

namespace conmuta {
namespace {

// Numbers of up to so many digits fit every width that they are read in.
constexpr std::uint8_t kAlwaysFit = 4;

bool IsBeyond(std::uint8_t pos, std::uint8_t size) {
  return pos + size > UINT8_MAX;
}

PlannedItem::Form FormOf(const DATO& slot) {
  using enum PlannedItem::Form;
  const bool beyond = IsBeyond(slot.Pos, slot.Tam);
  if (slot.TipoDato != emValorNumerico) return beyond ? kTextBeyond : kText;
  if (beyond) return kDigitsBeyond;
  if (slot.Tam == 1) return kOneDigit;
  if (slot.Tam == 2) return kTwoDigits;
  if (slot.Tam <= kAlwaysFit) return kFewDigits;
  return slot.Tam <= FieldDigits::kMost ? kDigits : kManyDigits;
}

PlannedItem Planned(const DATO& slot) {
  const std::size_t begin = slot.Pos - 1u;
  return {.form = FormOf(slot),
          .begin = static_cast<std::uint8_t>(begin),
          .size = slot.Tam,
          .digits = DigitsPlace(begin, slot.Tam)};
}

PlannedConstant Planned(const CTE& slot) {
  PlannedConstant planned;
  planned.begin = static_cast<std::uint8_t>(slot.Pos - 1);
  planned.size = slot.Tam;
  for (const char16_t c : slot.Constante.Raw()) {
    if (c != kNul) planned.text[planned.length++] = c;
  }
  using enum PlannedConstant::Form;
  planned.form = IsBeyond(slot.Pos, slot.Tam)     ? kBeyond
                 : planned.length != planned.size ? kNever
                                                  : kComparable;
  std::array<char16_t, PlannedConstant::kFirst> covered{};
  std::fill_n(covered.begin(), std::min<std::size_t>(planned.length, covered.size()),
              char16_t{0xFFFF});
  planned.first_mask = std::bit_cast<std::uint64_t>(covered);
  return planned;
}

}  // namespace

LinePlan::LinePlan(const clsCfgConmut& config) {
  for (int code = DATO::kLowerBound + 1; code < DATO::kUpperBound; ++code) {
    if (const DATO* slot = config.FindDATO(static_cast<emParamDato>(code))) {
      items_[static_cast<std::size_t>(code)] = Planned(*slot);
    }
  }
  for (int code = CTE::kLowerBound + 1; code < CTE::kUpperBound; ++code) {
    if (const CTE* slot = config.FindCTE(static_cast<emParamDatoConstante>(code))) {
      constants_[static_cast<std::size_t>(code)] = Planned(*slot);
    }
  }
}

void CurrentPlan::Compile(const clsCfgConmut& config) {
  plan_ = LinePlan(config);
  config_ = &config;
  revision_ = config.SlotRevision();
}

}  // namespace conmuta
