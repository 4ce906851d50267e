// An explanation for people: the line under a ruler, its slots marked beneath, and in words.
#include <algorithm>

#include "conmuta/call_fields.h"
#include "conmuta/explanation.h"
#include "conmuta/put.h"
#include "conmuta/utf8.h"
#include "layouts/expected_calls.h"
#include "layouts/names.h"

namespace conmuta::host {
namespace {

constexpr std::size_t kIndent = 6;

// The terminal's own colours, so that they suit its ground.
enum class Ink { kPlain, kGood, kBad, kSlot };

class Page {
 public:
  explicit Page(bool colours) : colours_(colours) {}

  void Add(std::string_view text, Ink ink = Ink::kPlain, std::size_t slot = 0) {
    if (!colours_ || ink == Ink::kPlain) {
      text_ += text;
      return;
    }
    // Six colours that every terminal has, in turn.
    const std::size_t code = ink == Ink::kGood ? 32 : ink == Ink::kBad ? 31 : 31 + slot % 6;
    text_ += "\x1B[" + std::to_string(code) + "m";
    text_ += text;
    text_ += "\x1B[0m";
  }
  void Line(std::string_view text) { Add(text), Add("\n"); }
  std::string Take() { return std::move(text_); }

 private:
  bool colours_;
  std::string text_;
};

// Every character in a column of its own: what would not be seen, or steers, is a dot.
std::string InColumns(TextView line) {
  Text shown(line);
  std::replace_if(shown.begin(), shown.end(), Steers, u'·');
  return Utf8(shown);
}

std::string Ruler(std::size_t width) {
  std::string ruler;
  for (std::size_t column = 1; column <= width; ++column) {
    ruler += column % 10 == 0  ? static_cast<char>('0' + column / 10 % 10)
             : column % 5 == 0 ? '|'
                               : '.';
  }
  return ruler;
}

// A piece of a row of marks or names.
struct Piece {
  std::size_t column;  // from 0
  Text text;
  std::size_t slot;  // which colour
};

// Pieces go into the first row in which they have room.
class Rows {
 public:
  void Put(Piece piece, std::size_t gap) {
    for (std::vector<Piece>& row : rows_) {
      const auto end = row.back().column + row.back().text.size();
      if (piece.column >= end + gap) return row.push_back(std::move(piece));
    }
    rows_.push_back({std::move(piece)});
  }
  void Write(Page& page) const {
    for (const auto& row : rows_) {
      std::size_t column = 0;
      page.Add(std::string(kIndent, ' '));
      for (const Piece& piece : row) {
        page.Add(std::string(piece.column - column, ' '));
        page.Add(Utf8(piece.text), Ink::kSlot, piece.slot);
        column = piece.column + piece.text.size();
      }
      page.Add("\n");
    }
  }

 private:
  std::vector<std::vector<Piece>> rows_;
};

// "└ext───┘", with the name in it when there is room.
Text Mark(std::size_t size, TextView name, bool& has_room) {
  has_room = size >= name.size() + 2;
  if (size == 1) return u"│";
  Text mark = u"└";
  if (has_room) mark += name;
  return mark.append(size - 1 - mark.size(), u'─') + u"┘";
}

void WriteMarks(const Explanation& explanation, Page& page) {
  std::vector<Explanation::Item> items = explanation.items;
  std::stable_sort(items.begin(), items.end(),
                   [](const auto& a, const auto& b) { return a.pos < b.pos; });
  Rows marks;
  Rows names;
  std::size_t slot = 0;
  for (const auto& item : items) {
    if (item.size == 0) continue;
    const auto column = static_cast<std::size_t>(item.pos - 1);
    const TextView name = ShortName(item.kind);
    bool has_room = false;
    marks.Put({column, Mark(static_cast<std::size_t>(item.size), name, has_room), slot}, 0);
    if (!has_room) names.Put({column, Text(name), slot}, 1);
    ++slot;
  }
  marks.Write(page);
  names.Write(page);
}

std::string Aligned(std::string text, std::size_t width) {
  return text.append(width - std::min(width, Columns(text)), ' ');
}

void WriteRow(Page& page, std::string_view name, std::string_view value) {
  if (!value.empty()) page.Line("     " + Aligned(std::string(name), 14) + std::string(value));
}

void WriteCall(Page& page, const clsLlamadaTRD& call) {
  char field[kMostOfMoment];
  const Moment moment = MomentOf(call);
  char* end = PutDate(field, moment);
  *end++ = ' ';
  WriteRow(page, "fecha", {field, PutTime(end, moment)});
  const auto duration = layouts::KnownDuration(call);
  WriteRow(page, "duración", duration ? std::to_string(*duration) + " s" : "no se sabe");
  WriteRow(page, "timbre", std::to_string(call.Ring()) + " s");
  WriteRow(page, "emisor", Shown(call.Emisor()));
  WriteRow(page, "receptor", Shown(call.Receptor()));
  WriteRow(page, "teléfono", Shown(call.Telefono()));
  WriteRow(page, "transferida", Shown(call.ExtensionTransferida()));
  WriteRow(page, "cuenta", Shown(call.CodigoCuenta()));
}

std::string Heading(const Verdict& verdict, const clsLlamadaTRD& call) {
  if (!verdict.IsCall()) {
    return (verdict.error != LineError::kNone ? "error: " : "sin llamada: ") +
           Utf8(Sentence(verdict));
  }
  std::string heading = "llamada: " + std::string(TypeWord(call.TipoLlamada()));
  if (const auto transfer = TransferWord(call.Atributos()); !transfer.empty()) {
    heading += ", transferencia: " + std::string(transfer);
  }
  if (verdict.parked) heading += "; queda en espera del fin de su transferencia";
  return heading;
}

}  // namespace

std::string Places(int pos, int size) {
  return size < 2 ? std::to_string(pos)
                  : std::to_string(pos) + "-" + std::to_string(pos + size - 1);
}

std::string ExplanationText(const Explanation& explanation, const clsLlamadaTRD& call,
                            bool colours) {
  Page page(colours);
  std::string number = std::to_string(explanation.number);
  number.insert(0, number.size() < 4 ? 4 - number.size() : 0, ' ');
  std::size_t width = explanation.line.size();
  for (const auto& item : explanation.items) {
    width = std::max(width, static_cast<std::size_t>(item.pos + item.size - 1));
  }
  page.Line(number + "  " + InColumns(explanation.line));
  page.Line(std::string(kIndent, ' ') + Ruler(std::min<std::size_t>(width, 254)));
  WriteMarks(explanation, page);
  page.Add("\n   ");
  page.Add(Heading(explanation.verdict, call),
           explanation.verdict.IsCall() ? Ink::kGood : Ink::kBad);
  page.Add("\n");
  if (explanation.verdict.IsCall()) WriteCall(page, call);
  if (!explanation.items.empty()) page.Line("   datos");
  for (const auto& item : explanation.items) {
    std::string row = "     " + Aligned(Utf8(layouts::NameOf(item.kind)), 46);
    row +=
        Aligned(Places(item.pos, item.size), 9) + Aligned("\"" + InColumns(item.found) + "\"", 8);
    row +=
        " → " + (item.error != LineError::kNone ? Utf8(Sentence(item.error)) : Shown(item.value));
    page.Line(row);
  }
  if (!explanation.constants.empty()) page.Line("   constantes");
  for (const auto& constant : explanation.constants) {
    page.Add("     " + Aligned(Utf8(layouts::NameOf(constant.kind)), 46) +
             Aligned(Places(constant.pos, constant.size), 9) + "\"" + InColumns(constant.wanted) +
             "\" ");
    page.Add(constant.stands ? "✓" : "✗", constant.stands ? Ink::kGood : Ink::kBad);
    page.Line(constant.stands ? "" : " hay \"" + InColumns(constant.found) + "\"");
  }
  return page.Take();
}

}  // namespace conmuta::host
