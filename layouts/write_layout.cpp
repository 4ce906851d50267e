#include "layouts/write_layout.h"

#include <algorithm>

#include "layouts/draw.h"
#include "layouts/groups.h"
#include "layouts/names.h"
#include "layouts/toml_text.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

std::string Utf8(TextView text) {
  return ToUtf8(text).value_or("");
}

void AppendKey(std::string& toml, TextView key, const std::string& value) {
  toml += Utf8(key) + " = " + value + "\n";
}

// Columns that a picture of the line has to have.
int LastColumn(const Layout& layout) {
  int last = 0;
  for (const DATO& item : layout.items) last = std::max(last, item.Pos + item.Tam - 1);
  for (const CTE& constant : layout.constants) {
    last = std::max(last, constant.Pos + constant.Tam - 1);
  }
  return last;
}

// Tens over units, as long as there are columns, to the next ten.
void AppendRuler(std::string& toml, int columns) {
  const int width = (columns + 9) / 10 * 10;
  std::string tens;
  std::string units;
  for (int column = 1; column <= width; ++column) {
    tens += column % 10 == 0 ? static_cast<char>('0' + column / 10 % 10) : ' ';
    units += static_cast<char>('0' + column % 10);
  }
  toml += "# " + tens + "\n# " + units + "\n";
}

void AppendTop(std::string& toml, const Layout& layout, TextView sample) {
  toml += "# " + InComment(layout.header.Marca.Read() + u" " + layout.header.Modelo.Read()) + "\n";
  const int columns = std::max(LastColumn(layout), static_cast<int>(sample.size()));
  if (columns > 0) AppendRuler(toml, columns);
  if (!sample.empty()) toml += "# " + InComment(sample) + "\n";
}

template <std::size_t kWidth>
std::string QuotedField(const FixedText<kWidth>& field) {
  const TextView raw = field.Raw();
  return Quoted(raw.substr(0, raw.find_last_not_of(kNul) + 1));
}

void AppendHeader(std::string& toml, const ConfigHeader& header) {
  toml += "\n";
  AppendKey(toml, u"marca", QuotedField(header.Marca));
  AppendKey(toml, u"modelo", QuotedField(header.Modelo));
  AppendKey(toml, u"comentarios", QuotedField(header.Comentarios));
  AppendKey(toml, u"separador", QuotedField(header.Separador));
  AppendKey(toml, u"caso", CaseText(header.Caso));
}

void AppendText(std::string& toml, TextView key, TextView text) {
  if (!text.empty()) AppendKey(toml, key, Quoted(text));
}

void AppendTexts(std::string& toml, TextView key, const std::vector<Text>& texts) {
  if (texts.empty()) return;
  std::string list = "[\n";
  for (const Text& text : texts) list += "  " + Quoted(text) + ",\n";
  AppendKey(toml, key, list + "]");
}

void AppendSheet(std::string& toml, const Sheet& sheet) {
  if (sheet == Sheet()) return;
  toml += "\n[ficha]\n";
  AppendText(toml, u"cubre", sheet.covers);
  AppendText(toml, u"fecha", sheet.date);
  AppendText(toml, u"duracion", sheet.duration);
  if (sheet.time_of != Sheet::TimeOf::kUnknown) {
    AppendText(toml, u"hora", sheet.time_of == Sheet::TimeOf::kStart ? u"inicio" : u"fin");
  }
  AppendText(toml, u"transferencias", sheet.transfers);
  AppendText(toml, u"prueba", sheet.proof);
  AppendTexts(toml, u"fuentes", sheet.sources);
  AppendTexts(toml, u"pierde", sheet.losses);
  AppendTexts(toml, u"alternativas", sheet.alternatives);
}

template <class Slot>
void AppendSlots(std::string& toml, const char* table, const std::vector<Slot>& slots) {
  if (slots.empty()) return;
  toml += std::string("\n[") + table + "]\n";
  Text group;
  for (const Slot& slot : slots) {
    const TextView name = NameOf(slot.Param);
    if (Text own = GroupOf(name); own != group) {
      group = std::move(own);
      toml += "# " + Utf8(group) + "\n";
    }
    AppendKey(toml, name, SlotText(slot));
  }
}

void AppendDrawing(std::string& toml, const Drawing& drawing, const std::vector<DATO>& items) {
  toml += "\n[dibujo." + Utf8(drawing.name) + "]\n";
  AppendKey(toml, u"linea  ", Quoted(drawing.line));
  AppendKey(toml, u"mascara", Quoted(drawing.mask));
  for (const DrawnLetter& letter : drawing.letters) {
    std::vector<std::string> names;
    for (const auto kind : letter.items) names.push_back(Quoted(NameOf(kind)));
    for (const auto kind : letter.constants) names.push_back(Quoted(NameOf(kind)));
    std::string value = names[0];
    if (names.size() > 1) {
      for (std::size_t i = 1; i < names.size(); ++i) value += ", " + names[i];
      value = "[" + value + "]";
    }
    const auto type = letter.items.empty() ? emValorNumerico : TypeOf(letter.items[0], items);
    if (type != emValorNumerico) {
      value = "{ nombre = " + value + ", tipo = " + TypeText(type) + " }";
    }
    AppendKey(toml, TextView(&letter.letter, 1), value);
  }
}

// Pins of the switch where it has pins, and numbers for everything else.
void AppendCable(std::string& toml, emPuertoSerial pair, std::span<const WiringMask> table) {
  std::string pins;
  std::string masks;
  const WiringMask all = PinMask(RightPins(pair) + 1) - 1;
  for (std::size_t left = 0; left < table.size(); ++left) {
    const WiringMask mask = table[left];
    if (mask == 0) continue;
    if (left > 0 && (mask & ~all) == 0) {
      pins += std::to_string(left) + " = " + PinsText(mask) + "\n";
    } else {
      masks += (masks.empty() ? "" : ", ") + std::to_string(left) + " = " + std::to_string(mask);
    }
  }
  if (pins.empty() && masks.empty()) return;
  toml += "\n[cable." + Utf8(NameOf(pair)) + "]\n" + pins;
  if (!masks.empty()) toml += "mascaras = { " + masks + " }\n";
}

void AppendCables(std::string& toml, const Wiring& wiring) {
  for (int code = emPuertoSerialDB9DB9; code <= emPuertoSerialDB25DB25; ++code) {
    const auto pair = static_cast<emPuertoSerial>(code);
    AppendCable(toml, pair, wiring.Table(pair));
  }
}

}  // namespace

std::string WriteLayout(const Layout& layout, TextView sample) {
  std::string toml;
  AppendTop(toml, layout, sample);
  AppendHeader(toml, layout.header);
  AppendSheet(toml, layout.sheet);
  AppendSlots(toml, "datos", layout.items);
  AppendSlots(toml, "constantes", layout.constants);
  AppendCables(toml, layout.header.Cables);
  return toml;
}

std::string DrawLayout(const Layout& layout, const std::vector<SampleLine>& samples) {
  const Drawn drawn = Draw(layout, samples);
  std::string toml;
  AppendTop(toml, layout, samples.empty() ? TextView() : TextView(samples[0].line));
  AppendHeader(toml, layout.header);
  AppendSheet(toml, layout.sheet);
  for (const Drawing& drawing : drawn.drawings) AppendDrawing(toml, drawing, layout.items);
  AppendSlots(toml, "datos", drawn.items);
  AppendSlots(toml, "constantes", drawn.constants);
  AppendCables(toml, layout.header.Cables);
  return toml;
}

}  // namespace conmuta::layouts
