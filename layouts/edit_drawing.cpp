#include <algorithm>

#include "layouts/edit_parts.h"
#include "layouts/names.h"
#include "layouts/toml_text.h"

namespace conmuta::layouts {
namespace {

// The name or names of a letter: the value itself, or what it has under "nombre".
const TomlValue& NamesOf(const TomlEntry& letter) {
  const TomlValue* names = FindValue(&letter.value, u"nombre");
  return names != nullptr ? *names : letter.value;
}

bool HasName(const TomlValue& names, TextView name) {
  if (names.kind == TomlValue::Kind::kText) return names.text == name;
  return std::any_of(names.list.begin(), names.list.end(),
                     [&](const TomlValue& each) { return each.text == name; });
}

bool IsAlone(const TomlEntry& letter) {
  const TomlValue& names = NamesOf(letter);
  return names.kind != TomlValue::Kind::kList || names.list.size() == 1;
}

bool IsNothing(char16_t c) {
  return c == u' ' || c == u'.';
}

// The mask without a letter. Those who fill with dots get dots.
Text Without(const Text& mask, char16_t letter) {
  const bool dotted = mask.find(u'.') != Text::npos && mask.find(u' ') == Text::npos;
  Text rest = mask;
  std::replace(rest.begin(), rest.end(), letter, dotted ? u'.' : u' ');
  if (mask.ends_with(letter)) rest = Text(TrimRight(rest));
  return rest;
}

// The mask with the letter at other columns; nothing when these are taken or behind the line.
std::optional<Text> Moved(const Text& mask, char16_t letter, int pos, int size,
                          std::size_t line_size) {
  const auto begin = static_cast<std::size_t>(pos - 1);
  const auto width = static_cast<std::size_t>(size);
  if (size == 0 || begin + width > line_size) return std::nullopt;
  Text moved = Without(mask, letter);
  if (moved.size() < begin + width) moved.resize(begin + width, u' ');
  const auto first = moved.begin() + pos - 1;
  if (!std::all_of(first, first + size, IsNothing)) return std::nullopt;
  std::fill_n(first, size, letter);
  return moved;
}

bool Move(Editor& editor, DrawnName drawn, int pos, int size) {
  if (!IsAlone(*drawn.letter)) return false;
  const TomlValue& line = *FindValue(&drawn.drawing->value, u"linea");
  const TomlValue& mask = *FindValue(&drawn.drawing->value, u"mascara");
  const auto moved = Moved(mask.text, drawn.letter->key[0], pos, size, line.text.size());
  if (!moved) return false;
  editor.ReplaceText(mask, *moved);
  return true;
}

}  // namespace

DrawnName FindDrawn(const TomlValue& root, TextView name) {
  const TomlValue* drawings = FindValue(&root, u"dibujo");
  if (drawings == nullptr) return {};
  for (const TomlEntry& drawing : drawings->entries) {
    for (const TomlEntry& letter : drawing.value.entries) {
      if (letter.key.size() == 1 && HasName(NamesOf(letter), name)) return {&drawing, &letter};
    }
  }
  return {};
}

bool Redraw(Editor& editor, DrawnName drawn, const DATO& item) {
  if (NeedsLeave(item) || !Move(editor, drawn, item.Pos, item.Tam)) return false;
  const TomlValue& value = drawn.letter->value;
  const TomlValue& names = NamesOf(*drawn.letter);
  const bool usual = item.TipoDato == emValorNumerico;
  if (&names != &value) {
    const TomlValue* type = FindValue(&value, u"tipo");
    if (type != nullptr && usual &&
        editor.Source(value) ==
            "{ nombre = " + editor.Source(names) + ", tipo = " + editor.Source(*type) + " }") {
      editor.Replace(value, editor.Source(names));
    } else {
      editor.SetOptional(value, u"tipo",
                         usual ? std::nullopt : std::optional(TypeText(item.TipoDato)),
                         TypeText(emValorNumerico));
    }
  } else if (!usual) {
    editor.Replace(
        value, "{ nombre = " + editor.Source(names) + ", tipo = " + TypeText(item.TipoDato) + " }");
  }
  return true;
}

bool Redraw(Editor& editor, DrawnName drawn, const CTE& constant) {
  const TomlValue& line = *FindValue(&drawn.drawing->value, u"linea");
  const auto begin = static_cast<std::size_t>(constant.Pos - 1);
  if (NeedsLeave(constant) || begin >= line.text.size() ||
      TextView(line.text).substr(begin, constant.Tam) != StoredText(constant)) {
    return false;
  }
  return Move(editor, drawn, constant.Pos, constant.Tam);
}

void Undraw(Editor& editor, DrawnName drawn, TextView name) {
  const TomlValue& names = NamesOf(*drawn.letter);
  if (IsAlone(*drawn.letter)) {
    const TomlValue& mask = *FindValue(&drawn.drawing->value, u"mascara");
    editor.ReplaceText(mask, Without(mask.text, drawn.letter->key[0]));
    return editor.Remove(drawn.drawing->value, *drawn.letter);
  }
  const auto element = std::find_if(names.list.begin(), names.list.end(),
                                    [&](const TomlValue& each) { return each.text == name; });
  editor.Remove(names, static_cast<std::size_t>(element - names.list.begin()));
}

}  // namespace conmuta::layouts
