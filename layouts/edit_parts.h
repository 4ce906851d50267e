// The makers of changes, one for each part of a layout file.
#pragma once

#include "layouts/edit_layout.h"
#include "layouts/editor.h"

namespace conmuta::layouts {

// Where a name is drawn; null pointers when it is not.
struct DrawnName {
  const TomlEntry* drawing = nullptr;
  const TomlEntry* letter = nullptr;

  explicit operator bool() const { return letter != nullptr; }
};
DrawnName FindDrawn(const TomlValue& root, TextView name);

// Moves what a name is drawn as; whether it can be drawn there.
bool Redraw(Editor& editor, DrawnName drawn, const DATO& item);
bool Redraw(Editor& editor, DrawnName drawn, const CTE& constant);
// Takes a name from its letter, and the letter from its mask when it has no other.
void Undraw(Editor& editor, DrawnName drawn, TextView name);

void Edit(Editor& editor, const SetItem& change);
void Edit(Editor& editor, const SetConstant& change);
void Edit(Editor& editor, const RemoveItem& change);
void Edit(Editor& editor, const RemoveConstant& change);
void Edit(Editor& editor, const SetText& change);
void Edit(Editor& editor, const SetCase& change);
void Edit(Editor& editor, const SetWires& change);

}  // namespace conmuta::layouts
