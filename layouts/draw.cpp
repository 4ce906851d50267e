#include "layouts/draw.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "layouts/groups.h"
#include "layouts/names.h"
#include "layouts/toml_text.h"
#include "layouts/windows1252.h"

namespace conmuta::layouts {
namespace {

struct UsualLetter {
  TextView begin;  // of the names
  char16_t letter;
};
constexpr UsualLetter kUsualLetters[] = {{u"FechaDia", u'D'},
                                         {u"FechaMes", u'M'},
                                         {u"FechaAnio", u'A'},
                                         {u"FechaHoras", u'H'},
                                         {u"FechaMinutos", u'N'},
                                         {u"FechaSegundos", u'S'},
                                         {u"DuracionHoras", u'h'},
                                         {u"DuracionMinutos", u'm'},
                                         {u"DuracionSegundos", u's'},
                                         {u"RingHoras", u'p'},
                                         {u"RingMinutos", u'q'},
                                         {u"RingSegundos", u'r'},
                                         {u"CodigoCuenta", u'C'},
                                         {u"Telefono", u'F'},
                                         {u"Extension2", u'e'},
                                         {u"Troncal2", u't'},
                                         {u"Extension", u'E'},
                                         {u"Troncal", u'T'},
                                         {u"IdentificadorHorario", u'a'},
                                         {u"Ident", u'I'}};
constexpr TextView kOtherLetters = u"bcdfgijklnouvwxyzBGJKLOPQRUVWXYZ0123456789";

// A drawing that grows.
class Sketch {
 public:
  explicit Sketch(const SampleLine& sample) {
    drawing_.name = sample.type;
    drawing_.line = sample.line;
    std::replace_if(
        drawing_.line.begin(), drawing_.line.end(), [](char16_t c) { return !IsInWindows1252(c); },
        u'?');
    drawing_.mask.assign(drawing_.line.size(), u' ');
  }

  bool Add(const DATO& item) {
    if (NeedsLeave(item)) return false;
    DrawnLetter* letter = LetterFor(NameOf(item.Param), item.Pos, item.Tam, item.TipoDato);
    if (letter == nullptr) return false;
    letter->items.push_back(item.Param);
    return true;
  }

  bool Add(const CTE& constant) {
    const TextView text = StoredText(constant);
    if (NeedsLeave(constant) || !HasColumns(constant.Pos, constant.Tam) ||
        TextView(drawing_.line).substr(constant.Pos - 1u, constant.Tam) != text) {
      return false;
    }
    DrawnLetter* letter =
        LetterFor(NameOf(constant.Param), constant.Pos, constant.Tam, emValorNumerico);
    if (letter == nullptr) return false;
    letter->constants.push_back(constant.Param);
    return true;
  }

  bool IsEmpty() const { return drawing_.letters.empty(); }

  Drawing Take() {
    drawing_.mask = TrimRight(drawing_.mask);
    return std::move(drawing_);
  }

 private:
  struct Columns {
    int pos;
    int size;
    emTipoDato type;

    bool operator==(const Columns&) const = default;
  };

  bool HasColumns(int pos, int size) const {
    return static_cast<std::size_t>(pos + size - 1) <= drawing_.line.size();
  }

  // The letter of exactly these columns, an old or a new one; null when they are not free.
  DrawnLetter* LetterFor(TextView name, int pos, int size, emTipoDato type) {
    const Columns wanted{pos, size, type};
    const auto same = std::find(columns_.begin(), columns_.end(), wanted);
    if (same != columns_.end()) {
      return &drawing_.letters[static_cast<std::size_t>(same - columns_.begin())];
    }
    if (!HasColumns(pos, size)) return nullptr;
    const auto begin = drawing_.mask.begin() + (pos - 1);
    if (std::any_of(begin, begin + size, [](char16_t c) { return c != u' '; })) return nullptr;
    const char16_t letter = FreeLetter(name);
    if (letter == 0) return nullptr;
    std::fill_n(begin, size, letter);
    columns_.push_back(wanted);
    return &drawing_.letters.emplace_back(DrawnLetter{letter, {}, {}});
  }

  char16_t FreeLetter(TextView name) const {
    const auto usual =
        std::find_if(std::begin(kUsualLetters), std::end(kUsualLetters),
                     [&](const UsualLetter& row) { return name.starts_with(row.begin); });
    if (usual != std::end(kUsualLetters) && IsFree(usual->letter)) return usual->letter;
    const auto other = std::find_if(kOtherLetters.begin(), kOtherLetters.end(),
                                    [&](char16_t c) { return IsFree(c); });
    return other != kOtherLetters.end() ? *other : char16_t{0};
  }

  bool IsFree(char16_t letter) const { return drawing_.mask.find(letter) == Text::npos; }

  Drawing drawing_;
  std::vector<Columns> columns_;  // of each letter
};

// Takes those that belong there and have room off the list.
template <class Slot>
void DrawSlots(std::vector<Slot>& slots, TextView type, Sketch& sketch) {
  std::erase_if(slots, [&](const Slot& slot) {
    const TextView own = CallTypeOf(NameOf(slot.Param));
    return (own.empty() || own == type) && sketch.Add(slot);
  });
}

}  // namespace

Drawn Draw(const Layout& layout, const std::vector<SampleLine>& samples) {
  Drawn drawn{{}, layout.items, layout.constants};
  for (const SampleLine& sample : samples) {
    Sketch sketch(sample);
    DrawSlots(drawn.items, sample.type, sketch);
    DrawSlots(drawn.constants, sample.type, sketch);
    if (!sketch.IsEmpty()) drawn.drawings.push_back(sketch.Take());
  }
  return drawn;
}

emTipoDato TypeOf(emParamDato kind, const std::vector<DATO>& items) {
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&](const DATO& item) { return item.Param == kind; });
  return found != items.end() ? found->TipoDato : emValorNumerico;
}

}  // namespace conmuta::layouts
