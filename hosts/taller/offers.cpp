#include "taller/offers.h"

#include <algorithm>

#include "layouts/groups.h"
#include "layouts/names.h"
#include "taller/column_look.h"
#include "taller/slot_changes.h"

namespace conmuta::taller {
namespace {

constexpr double kInUse = 0.5;  // of one that the layout has already

bool IsOneOf(char16_t c, TextView signs) {
  return signs.find(c) != TextView::npos;
}

// A number between dates' signs, times' signs or none.
enum class Company : std::uint8_t { kNone, kDate, kTime, kDuration };

Company CompanyOf(const ColumnLook& look) {
  const bool is_time = look.before == u':' || look.behind == u':';
  for (const char16_t sign : {look.before, look.behind, is_time ? look.beyond : u' '}) {
    if (IsOneOf(sign, u"'\"")) return Company::kDuration;
  }
  for (const char16_t sign : {look.before, look.behind}) {
    if (IsOneOf(sign, u":")) return Company::kTime;
    if (IsOneOf(sign, u"/-.")) return Company::kDate;
  }
  return Company::kNone;
}

double PartOfTime(TextView name, const ColumnLook& look, int size) {
  const Company company = CompanyOf(look);
  const bool is_start = name.starts_with(u"Fecha");
  const bool is_duration = name.starts_with(u"Duracion");
  const auto fits = [&](int least, int most) { return look.least >= least && look.most <= most; };
  const double as_date = company == Company::kDate ? 1 : company == Company::kNone ? 0.5 : 0.1;
  const double as_time = company == Company::kTime       ? (is_start      ? 1
                                                            : is_duration ? 0.9
                                                                          : 0.6)
                         : company == Company::kDuration ? (is_start      ? 0.5
                                                            : is_duration ? 1
                                                                          : 0.9)
                                                         : 0.3;
  // The least that a number fits into is what it is: 1 to 12 are months, hours count to 23.
  if (name.ends_with(u"Mes")) return fits(1, 12) && size <= 2 ? as_date * (is_start ? 1 : 0.4) : 0;
  if (name.ends_with(u"Dia"))
    return fits(1, 31) && size <= 2 ? as_date * (is_start ? 0.9 : 0.3) : 0;
  if (name.ends_with(u"Anio")) {
    const bool is_year = size == 4 ? fits(1980, 2099) : size == 2;
    // Days change from line to line, years hardly do, and they mostly end a date.
    const bool ends = !IsOneOf(look.behind, u"/-.") && look.steady > 0.6;
    return is_year ? as_date * (ends || size == 4 ? 0.95 : 0.6) * (is_start ? 1 : 0.2) : 0;
  }
  if (size > 2) return 0;
  if (name.ends_with(u"Horas")) return fits(0, 23) ? as_time * (look.behind == u':' ? 1 : 0.6) : 0;
  if (!fits(0, 59)) return 0;
  if (name.ends_with(u"Minutos")) return as_time * (look.behind != u' ' ? 0.9 : 0.75);
  return as_time * (look.behind == u' ' ? 0.85 : 0.6);
}

double Likelihood(emParamDato kind, const ColumnLook& look, int size) {
  const TextView name = layouts::NameOf(kind);
  if (kind <= emParamRingSegundos) return look.digits < 0.8 ? 0 : PartOfTime(name, look, size);
  // Those without a transfer first: they are what one begins with.
  const double plain = name.ends_with(u"Transferida") ? 0.4 : 1;
  const bool in_time = CompanyOf(look) != Company::kNone;
  const double alone = in_time ? 0.2 : 1;
  if (name.starts_with(u"Telefono")) {
    return plain * alone * (size >= 7 ? 0.9 : 0.2) * (0.3 + 0.7 * look.digits);
  }
  if (name.starts_with(u"Troncal")) return plain * alone * (size <= 4 ? 0.7 : 0.2);
  if (name.starts_with(u"Extension")) return plain * alone * (size >= 2 && size <= 7 ? 0.75 : 0.2);
  return alone * (size >= 4 ? 0.6 : 0.2);  // the account code
}

double Likelihood(emParamDatoConstante kind, const ColumnLook& look, TextView text) {
  if (text.empty() || text.size() > decltype(CTE::Constante)::kSize) return 0;
  const bool says =
      std::any_of(text.begin(), text.end(), [](char16_t c) { return c != u' ' && !IsDigit(c); });
  const TextView name = layouts::NameOf(kind);
  const double plain = name.ends_with(u"AND") || name.ends_with(u"OR") ? 0.8
                       : name.ends_with(u"Transferida")                ? 0.7
                                                                       : 1;
  if (kind <= emDatoCteIdentificadorHorarioMatutinoDuracion) {
    return text == u"AM" || text == u"A" || text == u"a" || text == u"am" ? 1 : says ? 0.2 : 0.05;
  }
  // What all lines have says nothing of the type of a call.
  return says ? plain * (look.steady < 0.95 ? 0.9 : 0.6) : 0.1 * plain;
}

template <class Slot>
bool Has(const std::vector<Slot>& slots, typename Slot::Kind kind) {
  return std::any_of(slots.begin(), slots.end(),
                     [&](const Slot& slot) { return slot.Param == kind; });
}

TextView MarkedText(const Marked& marked, TextView line) {
  const auto begin = static_cast<std::size_t>(marked.pos - 1);
  return begin < line.size() ? line.substr(begin, static_cast<std::size_t>(marked.size))
                             : TextView();
}

Text WithoutAccents(TextView text) {
  constexpr TextView kWith = u"ÁÉÍÓÚÜ";
  constexpr TextView kWithout = u"AEIOUU";
  Text plain = ToUpper(text);
  for (char16_t& c : plain) {
    if (const std::size_t at = kWith.find(c); at != TextView::npos) c = kWithout[at];
  }
  return plain;
}

}  // namespace

std::vector<Offer> OffersFor(const Marked& marked, TextView line, const std::vector<Text>& samples,
                             const layouts::Layout& layout) {
  const ColumnLook look = LookAt(samples, marked.pos, marked.size);
  const TextView text = MarkedText(marked, line);
  std::vector<Offer> offers;
  const auto offer = [&](auto kind, double likelihood, bool in_use) {
    offers.push_back(
        {kind, layouts::GroupOf(layouts::NameOf(kind)), likelihood * (in_use ? kInUse : 1)});
  };
  for (int code = DATO::kLowerBound + 1; code < DATO::kUpperBound; ++code) {
    const auto kind = static_cast<emParamDato>(code);
    offer(kind, Likelihood(kind, look, marked.size), Has(layout.items, kind));
  }
  for (int code = CTE::kLowerBound + 1; code < CTE::kUpperBound; ++code) {
    const auto kind = static_cast<emParamDatoConstante>(code);
    offer(kind, Likelihood(kind, look, text), Has(layout.constants, kind));
  }
  std::stable_sort(offers.begin(), offers.end(),
                   [](const Offer& a, const Offer& b) { return a.likelihood > b.likelihood; });
  return offers;
}

std::vector<Offer> Matching(const std::vector<Offer>& offers, TextView typed) {
  std::vector<Offer> matching = offers;
  Text words = WithoutAccents(typed) + u" ";
  for (std::size_t end = 0; (end = words.find(u' ')) != Text::npos; words.erase(0, end + 1)) {
    const Text word = words.substr(0, end);
    std::erase_if(matching, [&](const Offer& offer) {
      return WithoutAccents(Text(NameOf(offer.kind)) + u" " + offer.group).find(word) == Text::npos;
    });
  }
  return matching;
}

Messages Choose(Document& document, const SlotKind& kind, const Marked& marked, TextView line) {
  const auto pos = static_cast<std::uint8_t>(marked.pos);
  if (const auto* item = std::get_if<emParamDato>(&kind)) {
    // One that is there already keeps its type.
    emTipoDato type = emValorNumerico;
    for (const DATO& present : document.layout().items) {
      if (present.Param == *item) type = present.TipoDato;
    }
    return document.Apply(
        layouts::SetItem{{*item, type, pos, static_cast<std::uint8_t>(marked.size)}});
  }
  return ChangeConstant(document, std::get<emParamDatoConstante>(kind), pos,
                        MarkedText(marked, line));
}

}  // namespace conmuta::taller
