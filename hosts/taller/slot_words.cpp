#include "taller/slot_words.h"

#include <algorithm>
#include <array>

#include "config/slots.h"

namespace conmuta::taller {
namespace {

constexpr std::array<TextView, kSlotGroups> kTitles = {
    u"Fecha y hora", u"Duración",    u"Timbre",          u"Cuenta",        u"Teléfonos",
    u"Troncales",    u"Extensiones", u"Identificadores", u"Transferencias"};

struct NamePart {
  TextView part;
  TextView word;
};

// InterExtension before Extension: the longer parts first.
constexpr NamePart kTypes[] = {{u"InterExtension", u"Entre extensiones"},
                               {u"InterTroncal", u"Entre troncales"},
                               {u"Entrante", u"Entrante"},
                               {u"Saliente", u"Saliente"}};

constexpr NamePart kPartsOfTime[] = {{u"Dia", u"Día"},         {u"Mes", u"Mes"},
                                     {u"Anio", u"Año"},        {u"Horas", u"Horas"},
                                     {u"Minutos", u"Minutos"}, {u"Segundos", u"Segundos"}};

constexpr NamePart kThings[] = {{u"Ident", u"identificador"},    {u"Telefono", u"teléfono"},
                                {u"Troncal1", u"troncal 1"},     {u"Troncal2", u"troncal 2"},
                                {u"Troncal", u"troncal"},        {u"Extension1", u"extensión 1"},
                                {u"Extension2", u"extensión 2"}, {u"Extension", u"extensión"}};

constexpr TextView kStart = u"InicioTransferida";

bool IsOfTransfer(TextView name) {
  return name.ends_with(u"Transferida");
}

template <std::size_t kCount, class Has>
std::size_t Find(const NamePart (&parts)[kCount], Has has) {
  return static_cast<std::size_t>(
      std::find_if(parts, parts + kCount, [&](const NamePart& row) { return has(row.part); }) -
      parts);
}

std::size_t TypeOf(TextView name) {
  return Find(kTypes, [&](TextView part) { return name.find(part) != TextView::npos; });
}

Text TransferName(TextView name) {
  const std::size_t thing = Find(kThings, [&](TextView part) { return name.starts_with(part); });
  return Text(kTypes[TypeOf(name)].word) + (name.ends_with(kStart) ? u", inicio: " : u", fin: ") +
         Text(kThings[thing].word);
}

Text PartyName(TextView name) {
  Text word(kTypes[TypeOf(name)].word);
  if (name.find(u'1') != TextView::npos) word += u" 1";
  if (name.find(u'2') != TextView::npos) word += u" 2";
  return word;
}

}  // namespace

TextView TitleOf(SlotGroup group) {
  return kTitles[static_cast<std::size_t>(group)];
}

SlotGroup GroupOf(const SlotKind& kind) {
  const TextView name = NameOf(kind);
  if (IsOfTransfer(name)) return SlotGroup::kTransfers;
  if (name.starts_with(u"Fecha") || name.ends_with(u"MatutinoFecha")) return SlotGroup::kStart;
  if (name.starts_with(u"Duracion") || name.ends_with(u"MatutinoDuracion")) {
    return SlotGroup::kDuration;
  }
  if (name.starts_with(u"Ring")) return SlotGroup::kRing;
  if (name.starts_with(u"Telefono")) return SlotGroup::kPhones;
  if (name.starts_with(u"Troncal")) return SlotGroup::kTrunks;
  if (name.starts_with(u"Extension")) return SlotGroup::kExtensions;
  return name.starts_with(u"Ident") ? SlotGroup::kIdentifiers : SlotGroup::kAccount;
}

Text ShortNameOf(const SlotKind& kind) {
  const TextView name = NameOf(kind);
  switch (GroupOf(kind)) {
    case SlotGroup::kTransfers:
      return TransferName(name);
    case SlotGroup::kAccount:
      return u"Código de cuenta";
    case SlotGroup::kIdentifiers:
      if (name.ends_with(u"AND")) return u"y";
      if (name.ends_with(u"OR")) return u"o";
      return PartyName(name);
    case SlotGroup::kPhones:
    case SlotGroup::kTrunks:
    case SlotGroup::kExtensions:
      return PartyName(name);
    default: {
      const std::size_t part =
          Find(kPartsOfTime, [&](TextView end) { return name.ends_with(end); });
      return part < std::size(kPartsOfTime) ? Text(kPartsOfTime[part].word) : u"Mañana";
    }
  }
}

std::vector<SlotKind> KindsOf(SlotGroup group) {
  std::vector<SlotKind> kinds;
  const auto add = [&](const SlotKind& kind) {
    if (GroupOf(kind) == group) kinds.push_back(kind);
  };
  for (int code = DATO::kLowerBound + 1; code < DATO::kUpperBound; ++code) {
    add(static_cast<emParamDato>(code));
  }
  for (int code = CTE::kLowerBound + 1; code < CTE::kUpperBound; ++code) {
    add(static_cast<emParamDatoConstante>(code));
  }
  if (group != SlotGroup::kTransfers) return kinds;
  // What belongs to one end of a transfer together, what tells it first.
  constexpr std::array<std::size_t, 4> kOrder = {2, 3, 0, 1};  // of kTypes: that of the codes
  const auto place = [&](const SlotKind& kind) {
    const TextView name = NameOf(kind);
    const std::size_t type = TypeOf(name);
    const auto at = std::find(kOrder.begin(), kOrder.end(), type) - kOrder.begin();
    return at * 4 + (name.ends_with(kStart) ? 0 : 2) + (name.starts_with(u"Ident") ? 0 : 1);
  };
  std::stable_sort(kinds.begin(), kinds.end(),
                   [&](const SlotKind& a, const SlotKind& b) { return place(a) < place(b); });
  return kinds;
}

}  // namespace conmuta::taller
