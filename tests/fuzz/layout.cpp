#include <algorithm>
#include <array>

#include "fuzz/targets.h"
#include "layouts/edit_layout.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "platform/platform.h"
#include "platform/unicode.h"

namespace conmuta::fuzz {
namespace {

using layouts::ReadLayout;

void RequireGoodMistakes(const std::vector<layouts::Mistake>& mistakes) {
  Require(std::is_sorted(mistakes.begin(), mistakes.end(),
                         [](const auto& a, const auto& b) { return a.place < b.place; }),
          "mistakes come by place");
  for (const auto& mistake : mistakes) {
    Require(mistake.place.line >= 1 && mistake.place.column >= 1, "a mistake has a place");
    Require(!mistake.what.empty(), "a mistake says what is wrong");
  }
}

// A change, and the text it makes is one that can be changed on.
void Change(std::string& toml, const layouts::LayoutChange& change) {
  auto edit = layouts::EditLayout(toml, change);
  Require(edit.toml.has_value() != !edit.mistakes.empty(), "a change is made or refused");
  RequireGoodMistakes(edit.mistakes);
  if (!edit.toml) return;
  Require(ReadLayout(*edit.toml).layout.has_value(), "what was changed can be read");
  toml = std::move(*edit.toml);
}

}  // namespace

void Layout(std::string_view bytes) {
  const auto reading = ReadLayout(bytes);
  Require(reading.layout.has_value() == reading.mistakes.empty(), "a layout or mistakes");
  RequireGoodMistakes(reading.mistakes);
  if (!reading.layout) return;

  // Written and read again it is the same but for its drawings, and so is the configuration.
  layouts::Layout layout = *reading.layout;
  const Text sample = layout.drawings.empty() ? Text() : layout.drawings[0].line;
  layouts::DrawLayout(layout, {{u"entrante", sample}});
  layout.drawings.clear();
  Require(ReadLayout(layouts::WriteLayout(layout, sample)).layout == layout,
          "writing loses nothing");
  clsCfgConmut config(SystemPlatform());
  layouts::Apply(layout, config);
  layout.sheet = {};
  Require(layouts::LayoutOf(config) == layout, "the configuration is the layout");

  std::string toml(bytes);
  for (const DATO& item : layout.items) {
    DATO moved = item;
    moved.Pos = static_cast<std::uint8_t>(item.Pos ^ 5);
    Change(toml, layouts::SetItem{moved});
    if (item.Tam % 3 == 0) Change(toml, layouts::RemoveItem{item.Param});
  }
  for (const CTE& constant : layout.constants) {
    CTE moved = constant;
    moved.Constante.Assign(u"'\"");
    moved.Tam = 2;
    Change(toml, layouts::SetConstant{moved});
    if (constant.Tam % 3 == 0) Change(toml, layouts::RemoveConstant{constant.Param});
  }
  Change(toml, layouts::SetWires{emPuertoSerialDB9DB9, 3, 6});
}

}  // namespace conmuta::fuzz
