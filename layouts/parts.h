// The readers of the tables of a layout file, a file each. Each takes the table's value, puts what
// it says into the layout and what is wrong with it into the findings.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "layouts/findings.h"
#include "layouts/layout.h"

namespace conmuta::layouts {

// The slots read so far, and where each of them was given.
class Slots {
 public:
  explicit Slots(Findings& findings) : findings_(findings) {}

  // Take the slot unless its kind was given before, which is a mistake at `place`.
  void Take(const DATO& item, Place place);
  void Take(const CTE& constant, Place place);

  // All of them, by place.
  void MoveInto(Layout& layout);

 private:
  bool IsNew(TextView name, Place place);
  template <class Slot>
  static std::vector<Slot> ByPlace(std::vector<std::pair<Place, Slot>>& placed);

  std::vector<std::pair<Place, DATO>> items_;
  std::vector<std::pair<Place, CTE>> constants_;
  Findings& findings_;
  std::map<TextView, Place> places_;
};

// One key of the root table: brand, model, comments, separator and case. False for any other.
bool ReadHeaderKey(const TomlEntry& entry, Layout& layout, Findings& findings);
// What of these is not there.
void FindMissingHeader(const TomlValue& root, Findings& findings);

void ReadSheet(const TomlEntry& entry, Layout& layout, Findings& findings);
void ReadItems(const TomlEntry& entry, Slots& slots, Findings& findings);
void ReadConstants(const TomlEntry& entry, Slots& slots, Findings& findings);
void ReadDrawings(const TomlEntry& entry, Layout& layout, Slots& slots, Findings& findings);
void ReadCables(const TomlEntry& entry, Layout& layout, Findings& findings);

// What the readers of items and constants share.

// The type of an item: one of three words, or the number of a code that has none.
std::optional<emTipoDato> ReadType(const TomlValue& value, TextView item, Findings& findings);
// Whether no line can have the constant, which is a mistake.
bool CheckCanStand(const CTE& constant, TextView text, Place place, TextView item,
                   Findings& findings);
// Whether lines are read that far; a mistake when not.
bool CheckColumns(std::int64_t pos, std::int64_t size, Place place, TextView item,
                  Findings& findings);

}  // namespace conmuta::layouts
