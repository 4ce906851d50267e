#include <array>

#include "layouts/names.h"
#include "layouts/parts.h"

namespace conmuta::layouts {
namespace {

constexpr std::array<TextView, 2> kLetterKeys = {u"nombre", u"tipo"};

bool IsNothing(char16_t c) {
  return c == u' ' || c == u'.';
}

bool IsLetterKey(TextView key) {
  return key.size() == 1 && !IsNothing(key[0]);
}

// The columns of a letter, from 0.
struct Run {
  std::size_t begin = 0;
  std::size_t size = 0;
};

class DrawingReader {
 public:
  DrawingReader(const TomlEntry& entry, Slots& slots, Findings& findings)
      : entry_(entry), path_(u"dibujo." + entry.key), slots_(slots), findings_(findings) {}

  Drawing Read() {
    Drawing drawing;
    drawing.name = entry_.key;
    const auto* keys = findings_.AsTable(entry_.value, path_);
    if (keys == nullptr || !ReadPicture(*keys, drawing)) return drawing;
    for (const TomlEntry& key : *keys) {
      if (IsLetterKey(key.key)) ReadLetter(key, drawing);
    }
    FindUnnamedLetters(*keys, drawing);
    return drawing;
  }

 private:
  // The line and the mask; whether both are good for reading letters.
  bool ReadPicture(const std::vector<TomlEntry>& keys, Drawing& drawing) {
    const std::size_t before = findings_.count();
    bool has_line = false;
    bool has_mask = false;
    for (const TomlEntry& key : keys) {
      if (key.key == u"linea") {
        has_line = true;
        if (const Text* text = findings_.AsText(key.value, path_)) drawing.line = *text;
        findings_.CheckCharacters(drawing.line, key.value.extent.begin, path_);
      } else if (key.key == u"mascara") {
        has_mask = true;
        mask_place_ = key.value.extent.begin;
        if (const Text* text = findings_.AsText(key.value, path_)) drawing.mask = *text;
      } else if (!IsLetterKey(key.key)) {
        findings_.Add(MistakeKind::kUnknownName, key.key_extent.begin, path_,
                      u"no se conoce «" + key.key + u"»", u"linea, mascara o una letra");
      }
    }
    const auto need = [&](bool there, TextView name) {
      if (there) return;
      findings_.Add(MistakeKind::kMissing, entry_.key_extent.begin, path_,
                    Text(u"falta «").append(name).append(u"»"));
    };
    need(has_line, u"linea");
    need(has_mask, u"mascara");
    if (findings_.count() != before) return false;
    if (drawing.mask.size() <= drawing.line.size()) return true;
    findings_.Add(MistakeKind::kMaskTooLong, mask_place_, path_,
                  u"la máscara tiene " + ToText(static_cast<int>(drawing.mask.size())) +
                      u" columnas y la línea " + ToText(static_cast<int>(drawing.line.size())));
    return false;
  }

  void ReadLetter(const TomlEntry& key, Drawing& drawing) {
    DrawnLetter drawn{key.key[0], {}, {}};
    const auto run = FindRun(key, drawing.mask);
    const TomlValue* names = &key.value;
    std::optional<emTipoDato> type;
    if (key.value.IsTable()) {
      names = nullptr;
      for (const TomlEntry& part : key.value.entries) {
        if (part.key == u"nombre") {
          names = &part.value;
        } else if (part.key == u"tipo") {
          type = ReadType(part.value, ItemOf(key), findings_);
        } else {
          findings_.AddUnknown(part.key_extent.begin, ItemOf(key), part.key, kLetterKeys);
        }
      }
      if (names == nullptr) {
        findings_.Add(MistakeKind::kMissing, key.key_extent.begin, ItemOf(key), u"falta «nombre»");
        return;
      }
    }
    if (names->kind != TomlValue::Kind::kList) {
      ReadName(key, *names, run, type, drawing, drawn);
    } else {
      for (const TomlValue& name : names->list) ReadName(key, name, run, type, drawing, drawn);
    }
    drawing.letters.push_back(std::move(drawn));
  }

  void ReadName(const TomlEntry& key, const TomlValue& value, std::optional<Run> run,
                std::optional<emTipoDato> type, const Drawing& drawing, DrawnLetter& drawn) {
    const Text* name = findings_.AsText(value, ItemOf(key));
    if (name == nullptr) return;
    const Place place = value.extent.begin;
    if (const auto item = FindItem(*name)) {
      drawn.items.push_back(*item);
      if (run) TakeItem(*item, *run, type.value_or(emValorNumerico), place);
    } else if (const auto constant = FindConstant(*name)) {
      drawn.constants.push_back(*constant);
      if (type) {
        findings_.Add(MistakeKind::kWrongType, place, *name, u"una constante no lleva tipo");
      } else if (run) {
        TakeConstant(*constant, *run, drawing.line, place);
      }
    } else {
      findings_.AddUnknown(place, ItemOf(key), *name,
                           name->starts_with(u"Ident") ? ConstantNames() : ItemNames());
    }
  }

  void TakeItem(emParamDato kind, Run run, emTipoDato type, Place place) {
    if (!CheckRun(run, NameOf(kind), place)) return;
    slots_.Take(DATO{.Param = kind,
                     .TipoDato = type,
                     .Pos = static_cast<std::uint8_t>(run.begin + 1),
                     .Tam = static_cast<std::uint8_t>(run.size)},
                place);
  }

  void TakeConstant(emParamDatoConstante kind, Run run, TextView line, Place place) {
    constexpr std::size_t kMost = decltype(CTE::Constante)::kSize;
    const TextView name = NameOf(kind);
    if (run.size > kMost) {
      findings_.Add(MistakeKind::kTooLong, place, name,
                    u"la constante ocupa " + ToText(static_cast<int>(run.size)) + u" columnas",
                    u"hasta " + ToText(kMost));
      return;
    }
    if (!CheckRun(run, name, place)) return;
    const TextView text = line.substr(run.begin, run.size);
    CTE constant;
    constant.Param = kind;
    constant.TipoDato = emValorConstante;
    constant.Pos = static_cast<std::uint8_t>(run.begin + 1);
    constant.Tam = static_cast<std::uint8_t>(run.size);
    constant.Constante.Assign(text);
    if (CheckCanStand(constant, text, place, name, findings_)) slots_.Take(constant, place);
  }

  bool CheckRun(Run run, TextView name, Place place) {
    return CheckColumns(static_cast<std::int64_t>(run.begin) + 1,
                        static_cast<std::int64_t>(run.size), place, name, findings_);
  }

  std::optional<Run> FindRun(const TomlEntry& key, TextView mask) {
    const char16_t letter = key.key[0];
    const std::size_t begin = mask.find(letter);
    if (begin == TextView::npos) {
      findings_.Add(MistakeKind::kUndrawnLetter, key.key_extent.begin, ItemOf(key),
                    u"la máscara no tiene esta letra");
      return std::nullopt;
    }
    const std::size_t end = std::min(mask.find_first_not_of(letter, begin), mask.size());
    if (mask.find(letter, end) == TextView::npos) return Run{begin, end - begin};
    findings_.Add(MistakeKind::kBrokenRun, mask_place_, ItemOf(key),
                  u"la letra está en más de un tramo de la máscara",
                  u"columnas seguidas, sin otra cosa en medio");
    return std::nullopt;
  }

  void FindUnnamedLetters(const std::vector<TomlEntry>& keys, const Drawing& drawing) {
    Text named = u" .";
    for (const TomlEntry& key : keys) {
      if (IsLetterKey(key.key)) named += key.key;
    }
    for (const char16_t c : drawing.mask) {
      if (named.find(c) != Text::npos) continue;
      named += c;
      findings_.Add(MistakeKind::kUnnamedLetter, mask_place_, path_,
                    Text(u"la letra «").append(1, c).append(u"» de la máscara no tiene nombre"));
    }
  }

  Text ItemOf(const TomlEntry& key) const { return path_ + u"." + key.key; }

  const TomlEntry& entry_;
  Text path_;
  Slots& slots_;
  Findings& findings_;
  Place mask_place_;
};

}  // namespace

void ReadDrawings(const TomlEntry& entry, Layout& layout, Slots& slots, Findings& findings) {
  const auto* drawings = findings.AsTable(entry.value, entry.key);
  if (drawings == nullptr) return;
  for (const TomlEntry& drawing : *drawings) {
    layout.drawings.push_back(DrawingReader(drawing, slots, findings).Read());
  }
}

}  // namespace conmuta::layouts
