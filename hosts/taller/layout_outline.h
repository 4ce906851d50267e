// The rows of the pane that shows a layout, and what is typed into them.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "taller/column_marks.h"
#include "taller/document.h"
#include "taller/slot_words.h"

namespace conmuta::taller {

struct OutlineRow {
  SlotKind kind;
  Text name;  // within its group
  bool in_use = false;
  // What its fields show: numbers as typed; a constant has a text in place of a size, an item a
  // type.
  Text pos;
  Text size;
  Text text;
  Text type;  // "numerico"
  std::optional<std::size_t> color;
  Text doubt;  // what cannot be, or is not enough, in what is typed or in the layout

  bool operator==(const OutlineRow&) const = default;
};

struct OutlineGroup {
  SlotGroup group;
  std::vector<OutlineRow> rows;

  bool InUse() const;
  bool operator==(const OutlineGroup&) const = default;
};

// Shows what was typed as it was typed, though the layout cannot have it, until the document
// changes otherwise. The document must live as long.
class LayoutOutline {
 public:
  explicit LayoutOutline(Document& document) : document_(document) {}

  // All groups with all their rows, in the window's order.
  std::vector<OutlineGroup> Groups() const;

  enum class Field : std::uint8_t { kPos, kSize, kText, kType };

  // A field has this text now. What the row's fields say together goes into the document as soon
  // as they say something; what is wrong with them is returned, and stays beside the row.
  Messages Type(const SlotKind& kind, Field field, TextView typed);

  // Takes the row out of the layout, as one step.
  [[nodiscard]] Messages Remove(const SlotKind& kind);

 private:
  struct Fields {
    Text pos;
    Text size;
    Text text;
    Text type;
    Text doubt;
  };

  bool HasDrafts() const { return revision_ == document_.revision(); }
  std::optional<Fields> Present(const SlotKind& kind) const;
  Fields FieldsOf(const SlotKind& kind) const;
  OutlineRow RowOf(const SlotKind& kind, const std::vector<ColumnMark>& marks,
                   const Messages& doubts) const;
  Messages Apply(const SlotKind& kind, const Fields& fields);

  Document& document_;
  // What is typed and not in the document, while that is the one it was typed for.
  std::map<SlotKind, Fields> drafts_;
  std::optional<std::size_t> revision_;
};

}  // namespace conmuta::taller
