#include "layouts/expected_calls.h"

#include <algorithm>
#include <array>
#include <map>

#include "layouts/findings.h"
#include "layouts/numbers.h"
#include "layouts/outcome_words.h"
#include "platform/format.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr std::array<TextView, 12> kColumns = {u"linea",    u"tipo",     u"transf.",     u"fecha",
                                               u"hora",     u"duracion", u"ring",        u"emisor",
                                               u"receptor", u"telefono", u"ext.transf.", u"cuenta"};

// The fields between the bars of a row, without the blanks and the quotes around them; nothing when
// a quote has no end, or something stands behind it.
std::optional<std::vector<Text>> Fields(TextView row) {
  std::vector<Text> fields;
  for (;;) {
    row.remove_prefix(std::min(row.find_first_not_of(u' '), row.size()));
    Text field;
    if (row.starts_with(u'"')) {
      row.remove_prefix(1);
      for (;;) {
        const std::size_t quote = row.find(u'"');
        if (quote == TextView::npos) return std::nullopt;
        field += row.substr(0, quote);
        row.remove_prefix(quote + 1);
        if (!row.starts_with(u'"')) break;
        field += u'"';
        row.remove_prefix(1);
      }
      row.remove_prefix(std::min(row.find_first_not_of(u' '), row.size()));
      if (!row.empty() && row[0] != u'|') return std::nullopt;
    } else {
      const std::size_t bar = std::min(row.find(u'|'), row.size());
      field = TrimRight(row.substr(0, bar));
      row.remove_prefix(bar);
    }
    fields.push_back(std::move(field));
    if (row.empty()) return fields;
    row.remove_prefix(1);
  }
}

class RowReader {
 public:
  RowReader(int number, Findings& findings) : place_{number, 1}, findings_(findings) {}

  std::optional<ExpectedRow> Read(TextView row) {
    const auto fields = Fields(row);
    if (!fields) return Refuse({}, u"las comillas no cierran"), std::nullopt;
    const auto line = ReadDigitsOnly(fields->at(0));
    if (!line) return Refuse(u"linea", u"no es un número de línea"), std::nullopt;
    ExpectedRow expected{*line, {}};
    if (fields->size() == 2) {
      ReadReason(fields->at(1), expected.outcome);
    } else if (fields->size() == kColumns.size()) {
      ReadCall(*fields, expected.outcome.call.emplace());
    } else {
      Refuse({}, u"tiene " + ToText(static_cast<int>(fields->size())) + u" campos", u"2 o 12");
    }
    if (refused_) return std::nullopt;
    return expected;
  }

 private:
  void Refuse(TextView item, Text what, Text allowed = {}) {
    refused_ = true;
    findings_.Add(MistakeKind::kSyntax, place_, item, std::move(what), std::move(allowed));
  }
  void RefuseValue(TextView item, TextView value, TextView what) {
    Refuse(item, Text(u"«").append(value).append(u"» ").append(what));
  }

  void ReadReason(TextView word, Outcome& outcome) {
    if (const auto error = FindCode(kErrorWords, word)) {
      outcome.error = *error;
    } else if (const auto reason = FindCode(kReasonWords, word)) {
      outcome.reason = *reason;
    } else {
      RefuseValue({}, word, u"no es un motivo");
    }
  }

  void ReadCall(const std::vector<Text>& fields, ExpectedCall& call) {
    const auto type = FindCode(kTypeWords, fields[1]);
    if (!type) RefuseValue(kColumns[1], fields[1], u"no es un tipo de llamada");
    call.type = type.value_or(emLlamadaIndefinida);
    const auto attribute = FindCode(kTransferWords, fields[2]);
    if (!attribute) RefuseValue(kColumns[2], fields[2], u"no es -, Inicio, En curso ni Fin");
    call.attribute = attribute.value_or(emSinAtributo);
    if (!ReadDate(fields[3], call)) RefuseValue(kColumns[3], fields[3], u"no es dd/mm/aaaa ni hoy");
    if (!ReadTime(fields[4], call)) RefuseValue(kColumns[4], fields[4], u"no es hh:mm:ss");
    if (fields[5] != u"?") {
      call.duration = ReadDigitsOnly(fields[5]);
      if (!call.duration) RefuseValue(kColumns[5], fields[5], u"no son segundos ni ?");
    }
    const auto ring = ReadDigitsOnly(fields[6]);
    if (!ring) RefuseValue(kColumns[6], fields[6], u"no son segundos");
    call.ring = ring.value_or(0);
    call.caller = fields[7];
    call.callee = fields[8];
    call.phone = fields[9];
    call.transferred_to = fields[10];
    call.account = fields[11];
  }

  static bool ReadDate(TextView text, ExpectedCall& call) {
    if (text == u"hoy") return true;
    if (text.size() != 10 || text[2] != u'/' || text[5] != u'/') return false;
    const auto day = ReadDigitsOnly(text.substr(0, 2));
    const auto month = ReadDigitsOnly(text.substr(3, 2));
    const bool present = text.substr(6) == u"AAAA";
    const auto year = present ? 0 : ReadDigitsOnly(text.substr(6));
    if (!day || !month || !year || *day < 1 || *day > 31 || *month < 1 || *month > 12) return false;
    call.day = *day;
    call.month = *month;
    call.year = *year;
    return true;
  }

  static bool ReadTime(TextView text, ExpectedCall& call) {
    if (text.size() != 8 || text[2] != u':' || text[5] != u':') return false;
    const auto hours = ReadDigitsOnly(text.substr(0, 2));
    const auto minutes = ReadDigitsOnly(text.substr(3, 2));
    const auto seconds = ReadDigitsOnly(text.substr(6));
    if (!hours || !minutes || !seconds) return false;
    call.hours = *hours;
    call.minutes = *minutes;
    call.seconds = *seconds;
    return true;
  }

  Place place_;
  Findings& findings_;
  bool refused_ = false;
};

// Where each row of the file is, by the line that it is about.
using RowPlaces = std::map<int, int>;

void CompareLines(const RowPlaces& rows, const Capture& capture, Findings& findings) {
  std::map<int, bool> lines;
  for (const CaptureLine& line : capture.lines) lines[line.number] = true;
  for (const auto& [line, row] : rows) {
    if (lines.count(line) == 0) {
      findings.Add(MistakeKind::kNotInCapture, {row, 1}, u"línea " + ToText(line),
                   u"la captura no la tiene");
    }
  }
  for (const auto& [line, there] : lines) {
    if (rows.count(line) == 0) {
      findings.Add(MistakeKind::kNotExpected, {}, u"línea " + ToText(line),
                   u"está en la captura y no tiene renglón");
    }
  }
}

std::vector<TextView> Lines(TextView text) {
  std::vector<TextView> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(u'\n'), text.size());
    TextView line = text.substr(0, end);
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

Text DateText(const ExpectedCall& call) {
  if (call.month == 0) return u"hoy";
  return PaddedNumber(call.day, 2) + u"/" + PaddedNumber(call.month, 2) + u"/" +
         (call.year == 0 ? Text(u"AAAA") : PaddedNumber(call.year, 4));
}

Text FieldText(TextView value) {
  const bool plain = value.empty() || (value.front() != u' ' && value.back() != u' ' &&
                                       value.find_first_of(u"|\"") == TextView::npos);
  if (plain) return Text(value);
  Text quoted = u"\"";
  for (const char16_t c : value) quoted.append(c == u'"' ? 2 : 1, c);
  return quoted + u"\"";
}

}  // namespace

ExpectedCall ExpectedCall::On(CivilDate today) const {
  ExpectedCall dated = *this;
  if (dated.year == 0) dated.year = today.year;
  if (dated.month == 0) dated.month = today.month;
  if (dated.day == 0) dated.day = today.day;
  return dated;
}

ExpectedReading ReadExpected(std::string_view bytes, const Capture& capture, TextView file) {
  Findings findings(file);
  ExpectedReading reading;
  std::vector<ExpectedRow> rows;
  RowPlaces places;
  const Text text = FromUtf8(bytes);
  int number = 0;
  for (const TextView line : Lines(text)) {
    if (++number == 1) {
      const auto heading = Fields(line);
      if (!heading ||
          !std::equal(heading->begin(), heading->end(), kColumns.begin(), kColumns.end())) {
        findings.Add(MistakeKind::kSyntax, {}, {},
                     u"el primer renglón no nombra las doce columnas");
      }
      continue;
    }
    const auto row = RowReader(number, findings).Read(line);
    if (!row) continue;
    const auto [first, is_new] = places.emplace(row->line, number);
    if (!is_new) {
      findings.Add(MistakeKind::kGivenTwice, {number, 1}, u"línea " + ToText(row->line),
                   u"ya está en el renglón " + ToText(first->second));
    }
    rows.push_back(*row);
  }
  // A row that could not be read may be the one that seems to be missing.
  if (findings.count() == 0) CompareLines(places, capture, findings);

  reading.mistakes = findings.Take();
  SortByPlace(reading.mistakes);
  if (reading.mistakes.empty()) reading.rows = std::move(rows);
  return reading;
}

std::optional<std::int32_t> KnownDuration(const clsLlamadaTRD& call) {
  const bool is_date = call.Anio(emParamDuracion) != 0 || call.Mes(emParamDuracion) != 0 ||
                       call.Dia(emParamDuracion) != 0;
  const std::int32_t seconds = call.Duracion();
  if (is_date || seconds < 0) return std::nullopt;
  return seconds;
}

Outcome OutcomeOf(const Verdict& verdict, const clsLlamadaTRD& call) {
  Outcome outcome;
  outcome.reason = verdict.reason;
  outcome.error = verdict.error;
  if (!verdict.IsCall()) return outcome;
  ExpectedCall& found = outcome.call.emplace();
  found.type = call.TipoLlamada();
  found.attribute = call.Atributos();
  found.year = call.Anio(emParamFecha);
  found.month = call.Mes(emParamFecha);
  found.day = call.Dia(emParamFecha);
  found.hours = call.Horas(emParamFecha);
  found.minutes = call.Minutos(emParamFecha);
  found.seconds = call.Segundos(emParamFecha);
  found.duration = KnownDuration(call);
  found.ring = call.Ring();
  found.caller = call.Emisor();
  found.callee = call.Receptor();
  found.phone = call.Telefono();
  found.transferred_to = call.ExtensionTransferida();
  found.account = call.CodigoCuenta();
  return outcome;
}

Text RowText(int line, const Outcome& outcome) {
  Text row = ToText(line);
  const auto add = [&](TextView field) { row.append(u" | ").append(field); };
  if (outcome.error != LineError::kNone) {
    add(FindWord(kErrorWords, outcome.error));
  } else if (!outcome.call) {
    add(FindWord(kReasonWords, outcome.reason));
  } else {
    const ExpectedCall& call = *outcome.call;
    add(FindWord(kTypeWords, call.type));
    add(FindWord(kTransferWords, call.attribute));
    add(DateText(call));
    add(PaddedNumber(call.hours, 2) + u":" + PaddedNumber(call.minutes, 2) + u":" +
        PaddedNumber(call.seconds, 2));
    add(call.duration ? ToText(*call.duration) : Text(u"?"));
    add(ToText(call.ring));
    for (const Text* field :
         {&call.caller, &call.callee, &call.phone, &call.transferred_to, &call.account}) {
      add(FieldText(*field));
    }
  }
  return row;
}

}  // namespace conmuta::layouts
