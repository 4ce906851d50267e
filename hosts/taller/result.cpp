#include "taller/result.h"

#include <algorithm>
#include <array>

#include "conmuta/call_fields.h"
#include "conmuta/call_words.h"
#include "layouts/expected_calls.h"
#include "platform/unicode.h"
#include "translate/call_slots.h"

namespace conmuta::taller {
namespace {

using host::Explanation;

// What the items of a field have in common.
struct Family {
  emParamDato first;
  emParamDato last;
};

constexpr Family kDate = {emParamFechaDia, emParamFechaAnio};
constexpr Family kTime = {emParamFechaHoras, emParamFechaSegundos};
constexpr Family kDuration = {emParamDuracionDia, emParamDuracionSegundos};
constexpr Family kRing = {emParamRingHoras, emParamRingSegundos};
constexpr Family kAccount = {emParamCodigoCuenta, emParamCodigoCuenta};
constexpr Family kPhone = {emParamTelefonoEntrante, emParamTelefonoInterTroncalFinTransferida};
constexpr Family kParty = {emParamTroncalEntrante, emParamTroncal2InterTroncalFinTransferida};

Text TwoDigits(int number) {
  return (number < 10 ? u"0" : u"") + ToText(number);
}

Text Clock(int hours, int minutes, int seconds) {
  return TwoDigits(hours) + u":" + TwoDigits(minutes) + u":" + TwoDigits(seconds);
}

Text InQuotes(TextView text) {
  return u"\"" + Text(text) + u"\"";
}

// "Entrante", "Entrante inicio de transferencia", "Mañana".
Text NameOfConstant(emParamDatoConstante kind) {
  for (const TypeIdentifiers& row : kTypeIdentifiers) {
    constexpr std::array<TextView, 4> kTypes = {u"Entrante", u"Saliente", u"Entre extensiones",
                                                u"Entre troncales"};
    const TextView type = kTypes[static_cast<std::size_t>(row.type - emLlamadaEntrante)];
    if (kind == row.plain) return Text(type);
    if (kind == row.also) return Text(type) + u" y";
    if (kind == row.instead) return Text(type) + u" o";
    if (kind == row.transfer_start) return u"Inicio";
    if (kind == row.transfer_end) return u"Fin";
  }
  return u"Mañana";
}

TextView TransferOf(emAtributosLlamadas attribute) {
  switch (attribute) {
    case emAtributoIniTransferida:
      return u", inicio de transferencia";
    case emAtributoEnTransferencia:
      return u", transferencia en curso";
    case emAtributoFinTransferida:
      return u", fin de transferencia";
    default:
      return {};
  }
}

Text CallText(const clsLlamadaTRD& call) {
  Text text = u"llamada";
  for (const host::TypeWords& words : host::kTypeWords) {
    if (words.type == call.TipoLlamada()) text += u" " + FromUtf8(words.one);
  }
  return text + Text(TransferOf(call.Atributos()));
}

bool IsOfMorning(emParamDatoConstante kind) {
  return kind < emDatoCteIdentEntrante;
}

Text HeadingOf(const Traced& traced) {
  Text heading = u"Línea " + ToText(static_cast<long long>(traced.line.number));
  const Verdict& verdict = traced.line.verdict;
  if (!traced.block.empty()) {
    heading += u", del bloque de las líneas " +
               ToText(static_cast<long long>(traced.block.front().number)) + u" a " +
               ToText(static_cast<long long>(traced.block.back().number));
  }
  if (traced.has_call) {
    heading += u": " + CallText(traced.call);
    if (verdict.parked) heading += u"; espera el fin de su transferencia";
    return heading;
  }
  return heading + (verdict.error != LineError::kNone ? u": error" : u": sin llamada");
}

// The fields of a call, with the columns that each was read in.
class Fields {
 public:
  explicit Fields(const Traced& traced) : call_(traced.call) {
    if (traced.block.empty()) {
      lines_.push_back(&traced.line);
    } else {
      for (const Explanation& line : traced.block) lines_.push_back(&line);
    }
  }

  std::vector<ResultField> All() && {
    const host::Moment moment = host::MomentOf(call_);
    Add(u"Fecha",
        TwoDigits(moment.day) + u"/" + TwoDigits(moment.month) + u"/" + ToText(moment.year), kDate);
    Add(u"Hora", Clock(moment.hours, moment.minutes, moment.seconds), kTime);
    const auto duration = layouts::KnownDuration(call_);
    Add(u"Duración",
        duration ? Clock(*duration / 3600, *duration / 60 % 60, *duration % 60) : u"no se sabe",
        kDuration);
    if (const auto ring = Parts(kRing); call_.Ring() != 0 || !ring.empty()) {
      fields_.push_back({u"Timbre", ToText(call_.Ring()) + u" s", ring});
    }
    const CallSlots* slots = FindCallSlots(call_.TipoLlamada(), call_.Atributos());
    const CallSlots none{};
    AddText(u"Emisor", call_.Emisor(), kParty, (slots ? *slots : none).caller);
    AddText(u"Receptor", call_.Receptor(), kParty, (slots ? *slots : none).callee);
    AddText(u"Teléfono", call_.Telefono(), kPhone, (slots ? *slots : none).phone);
    AddText(u"Transferida", call_.ExtensionTransferida(), kParty, emNoParamDato);
    AddText(u"Cuenta", call_.CodigoCuenta(), kAccount, emParamCodigoCuenta);
    return std::move(fields_);
  }

 private:
  template <class Wanted>
  std::vector<LinePart> Parts(Family family, Wanted wanted) const {
    std::vector<LinePart> parts;
    for (const Explanation* line : lines_) {
      for (const Explanation::Item& item : line->items) {
        if (item.kind < family.first || item.kind > family.last || !wanted(item)) continue;
        parts.push_back({line->number, item.pos, item.size});
      }
    }
    return parts;
  }
  std::vector<LinePart> Parts(Family family) const {
    return Parts(family, [](const Explanation::Item&) { return true; });
  }

  void Add(Text name, Text text, Family family) {
    fields_.push_back({std::move(name), std::move(text), Parts(family)});
  }

  // The slot of the call's type, or where that says something else (a translation that exchanges
  // the parties, or takes them of another call) another one that was read with this text.
  void AddText(Text name, TextView text, Family family, emParamDato kind) {
    if (text.empty()) return;
    auto parts = Parts(family, [&](const Explanation::Item& item) {
      return item.kind == kind && item.value == text;
    });
    if (parts.empty()) {
      parts = Parts(family, [&](const Explanation::Item& item) { return item.value == text; });
      if (parts.size() > 1) parts.resize(1);
    }
    fields_.push_back({std::move(name), Text(text), std::move(parts)});
  }

  const clsLlamadaTRD& call_;
  std::vector<const Explanation*> lines_;
  std::vector<ResultField> fields_;
};

std::vector<ResultConstant> ConstantsOf(const Explanation& line) {
  std::vector<ResultConstant> constants;
  for (const Explanation::Constant& constant : line.constants) {
    constants.push_back({constant.kind,
                         SentenceOf(constant),
                         {line.number, constant.pos, constant.size},
                         constant.wanted,
                         constant.found,
                         constant.stands});
  }
  return constants;
}

// Lines that nothing recognises are outgoing calls in the cases that read a line by its columns.
Text NoteOf(const Traced& traced, const layouts::Layout& layout) {
  const std::int32_t code = layout.header.Caso;
  const bool by_columns = code != emCasoNortelMeridian01 && code != emCasoNortelNorstar0x32SMDR6;
  const bool is_outgoing = traced.call.TipoLlamada() == emLlamadaSaliente;
  if (!by_columns || traced.line.items.empty()) return {};
  if (traced.line.verdict.reason == NoCall::kNoDigits) return {};  // none was looked for
  if (!is_outgoing) {
    // What a call of that type needs is what is in the way.
    const bool lacks =
        !traced.has_call && FindTypeIdentifiers(traced.call.TipoLlamada()) != nullptr;
    return lacks ? u"Se toma como " + CallText(traced.call) + u"." : Text();
  }
  const auto tells_type = [](const CTE& constant) { return !IsOfMorning(constant.Param); };
  if (std::none_of(layout.constants.begin(), layout.constants.end(), tells_type)) {
    return u"El layout no tiene constantes de tipo: se toma como saliente.";
  }
  // Its own identifier, or the one in its place.
  for (const Explanation::Constant& constant : traced.line.constants) {
    const bool is_own =
        constant.kind >= emDatoCteIdentSaliente && constant.kind <= emDatoCteIdentSalienteOR;
    if (is_own && constant.stands) return {};
  }
  return u"Ninguna constante de tipo coincide: se toma como saliente.";
}

}  // namespace

bool IsLack(NoCall reason) {
  return reason == NoCall::kNoCaller || reason == NoCall::kNoCallee || reason == NoCall::kNoDate;
}

Text SentenceOf(const Explanation::Constant& constant) {
  const Text name = NameOfConstant(constant.kind);
  const Text place = u" en " + ToText(constant.pos);
  if (constant.stands) return name + u" " + InQuotes(constant.wanted) + place + u" ✓";
  const Text found = constant.found.empty() ? u"el fin de la línea" : InQuotes(constant.found);
  if (IsOfMorning(constant.kind)) {
    return u"Tarde: " + found + place + u" en lugar de " + InQuotes(constant.wanted);
  }
  return name + u" esperaba " + InQuotes(constant.wanted) + place + u" y encontró " + found;
}

Result ResultOf(const Traced& traced, const layouts::Layout& layout) {
  Result result;
  result.line = traced.line.number;
  result.verdict = traced.line.verdict;
  result.has_call = traced.has_call;
  result.heading = HeadingOf(traced);
  result.constants = ConstantsOf(traced.line);
  if (traced.line.verdict.IsCall() || !traced.has_call) result.note = NoteOf(traced, layout);
  if (traced.has_call) {
    result.fields = Fields(traced).All();
    return result;
  }
  Obstacle obstacle = ObstacleOf(traced.line, traced.call, layout);
  if (!traced.block.empty() && traced.is_over &&
      traced.line.verdict.reason != NoCall::kTransferNotFound) {
    const NoCall lack = traced.block.back().verdict.reason;
    obstacle = {u"El bloque termina sin dar una llamada.", std::nullopt};
    if (IsLack(lack)) obstacle.sentence += u" " + Text(Sentence(lack));
  }
  result.obstacle = std::move(obstacle.sentence);
  result.remedy = obstacle.remedy;
  return result;
}

}  // namespace conmuta::taller
