#include "config/exchange_lines.h"

#include <array>

#include "config/character_codes.h"
#include "platform/number.h"
#include "platform/pieces.h"

namespace conmuta::basConmuta {
namespace {

struct SlotNumbers {
  std::int64_t kind;
  std::int64_t type;
  std::int64_t position;
  std::int64_t size;
};

template <class Slot>
Text NumbersToText(const Slot& slot) {
  Text line;
  for (const std::int64_t number : {std::int64_t{slot.Param}, std::int64_t{slot.TipoDato},
                                    std::int64_t{slot.Pos}, std::int64_t{slot.Tam}}) {
    line += ToText(number);
    line += u',';
  }
  return line;
}

std::optional<SlotNumbers> ReadNumbers(TextView line) {
  Pieces pieces(line);
  const auto next = [&] {
    const auto piece = pieces.Next();
    return piece ? ReadWholeNumber(*piece).value_or(0) : 0;
  };
  const auto is_in = [](std::int64_t number, std::int64_t first, std::int64_t last) {
    return number >= first && number <= last;
  };
  const std::int64_t kind = next();
  const std::int64_t type = next();
  const std::int64_t position = next();
  const std::int64_t size = next();
  // The bounds of the data items serve constants, too; CTEActivo is the stricter check.
  if (!is_in(kind, emPrimerParamDato + 1, emUltimoParamDato - 1) ||
      !is_in(type, emValorNumerico, emValorCadena) || !is_in(position, 1, 255) ||
      !is_in(size, 1, 255)) {
    return std::nullopt;
  }
  return SlotNumbers{kind, type, position, size};
}

template <class Slot>
Slot ToSlot(const SlotNumbers& numbers) {
  Slot slot;
  slot.Param = static_cast<typename Slot::Kind>(numbers.kind);
  slot.TipoDato = static_cast<emTipoDato>(numbers.type);
  slot.Pos = static_cast<std::uint8_t>(numbers.position);
  slot.Tam = static_cast<std::uint8_t>(numbers.size);
  return slot;
}

constexpr TextView kListBegin = u"$(";
constexpr char16_t kListEnd = u')';

// What stands between the first "$(" and the first ")", two characters at least.
std::optional<TextView> CodeList(TextView line) {
  const std::size_t begin = line.find(kListBegin);
  const std::size_t end = line.find(kListEnd);
  if (begin == TextView::npos || end == TextView::npos) return std::nullopt;
  const std::size_t first = begin + kListBegin.size();
  if (end < first + 2) return std::nullopt;
  return line.substr(first, end - first);
}

}  // namespace

Text ListaPinesACadena(std::span<const WiringMask> table, int pins) {
  Text list;
  for (const WiringMask mask : table.subspan(1, static_cast<std::size_t>(pins))) {
    list += ToText(mask);
    list += u',';
  }
  return list;
}

void CadenaAListaPines(TextView text, std::span<WiringMask> table, int pins) {
  constexpr std::size_t kMostCharacters = 10;
  Pieces pieces(text);
  for (WiringMask& mask : table.subspan(1, static_cast<std::size_t>(pins))) {
    const auto piece = pieces.Next();
    const bool counts = piece && piece->size() <= kMostCharacters;
    mask = counts ? ReadWholeNumberAs<WiringMask>(*piece).value_or(0) : 0;
  }
}

Text DATOACadena(const DATO& slot) {
  return NumbersToText(slot);
}

Text CTEACadena(const CodePage& code_page, const CTE& slot) {
  const int width = static_cast<int>(decltype(slot.Constante)::kSize);
  return NumbersToText(slot)
      .append(kListBegin)
      .append(CadenaACodigos(code_page, slot.Constante.Raw(), width))
      .append(1, kListEnd);
}

std::optional<DATO> CadenaADATO(TextView line) {
  const auto numbers = ReadNumbers(line);
  if (!numbers) return std::nullopt;
  return ToSlot<DATO>(*numbers);
}

std::optional<CTE> CadenaACTE(const CodePage& code_page, TextView line) {
  const auto numbers = ReadNumbers(line);
  const auto list = CodeList(line);
  if (!numbers || !list) return std::nullopt;
  CTE slot = ToSlot<CTE>(*numbers);
  slot.Constante.Assign(CodigosACadena(code_page, *list));
  return slot;
}

}  // namespace conmuta::basConmuta
