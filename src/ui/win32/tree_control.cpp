#include "ui/win32/tree_control.h"

#include <algorithm>
#include <iterator>

#include "ui/win32/window.h"

namespace conmuta::win32 {
namespace {

class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~Flag() { flag_ = before_; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
  const bool before_;
};

}  // namespace

HTREEITEM TreeControl::ItemOf(const SwitchNode& node) const {
  const auto found = items_.find(&node);
  return found != items_.end() ? found->second : nullptr;
}

HTREEITEM TreeControl::Insert(const SwitchNode& node, HTREEITEM parent, HTREEITEM after) {
  TVINSERTSTRUCTW insertion{};
  insertion.hParent = parent;
  insertion.hInsertAfter = after;
  insertion.item.mask = TVIF_TEXT | TVIF_PARAM;
  insertion.item.pszText = const_cast<wchar_t*>(Wide(node.text));
  insertion.item.lParam = reinterpret_cast<LPARAM>(&node);
  const HTREEITEM item = TreeView_InsertItem(control_, &insertion);
  items_.emplace(&node, item);
  return item;
}

// Children come in their order, so each goes to the end.
void TreeControl::Fill(const SwitchNode& root) {
  const Flag programmatic(programmatic_);
  SendMessageW(control_, WM_SETREDRAW, FALSE, 0);
  TreeView_DeleteAllItems(control_);
  items_.clear();
  const HTREEITEM root_item = Insert(root, TVI_ROOT, TVI_LAST);
  for (const auto& [brand_text, brand] : root.children) {
    const HTREEITEM brand_item = Insert(*brand, root_item, TVI_LAST);
    for (const auto& [text, model] : brand->children) Insert(*model, brand_item, TVI_LAST);
    ShowExpansion(*brand);
  }
  ShowExpansion(root);
  SendMessageW(control_, WM_SETREDRAW, TRUE, 0);
}

void TreeControl::Add(const SwitchNode& node) {
  const Flag programmatic(programmatic_);
  const auto& siblings = node.parent->children;
  auto own = siblings.lower_bound(ToUpper(node.text));
  while (own->second.get() != &node) ++own;
  const HTREEITEM before = own == siblings.begin() ? TVI_FIRST : ItemOf(*std::prev(own)->second);
  Insert(node, ItemOf(*node.parent), before);
}

void TreeControl::Remove(const SwitchNode& node) {
  const Flag programmatic(programmatic_);
  if (const HTREEITEM item = ItemOf(node)) TreeView_DeleteItem(control_, item);
  items_.erase(&node);
}

void TreeControl::Change(const SwitchNode& node) {
  const Flag programmatic(programmatic_);
  TVITEMW item{};
  item.hItem = ItemOf(node);
  item.mask = TVIF_TEXT;
  item.pszText = const_cast<wchar_t*>(Wide(node.text));
  if (item.hItem == nullptr) return;
  TreeView_SetItem(control_, &item);
  ShowExpansion(node);
}

void TreeControl::Select(const SwitchNode& node) {
  const Flag programmatic(programmatic_);
  const HTREEITEM item = ItemOf(node);
  if (item == nullptr) return;
  TreeView_SelectItem(control_, item);
  TreeView_EnsureVisible(control_, item);
}

void TreeControl::ShowExpansion(const SwitchNode& node) {
  if (const HTREEITEM item = ItemOf(node)) {
    TreeView_Expand(control_, item, node.expanded ? TVE_EXPAND : TVE_COLLAPSE);
  }
}

}  // namespace conmuta::win32
