#include <array>

#include "layouts/edit_parts.h"
#include "layouts/names.h"
#include "layouts/toml_text.h"

namespace conmuta::layouts {
namespace {

// In the order of SetText::Key.
constexpr std::array<TextView, 4> kKeys = {u"marca", u"modelo", u"comentarios", u"separador"};

}  // namespace

void Edit(Editor& editor, const SetText& change) {
  const TextView key = kKeys[static_cast<std::size_t>(change.key)];
  editor.ReplaceText(*FindValue(&editor.root(), key), change.text);
}

void Edit(Editor& editor, const SetCase& change) {
  const TomlValue& value = *FindValue(&editor.root(), u"caso");
  const bool same = value.kind == TomlValue::Kind::kText ? value.text == NameOf(change.code)
                                                         : value.integer == change.code;
  if (!same) editor.Replace(value, CaseText(change.code));
}

}  // namespace conmuta::layouts
