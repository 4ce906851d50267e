// A tree view that shows a switch tree.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <unordered_map>

#include "catalogue/switch_tree.h"

namespace conmuta::win32 {

// What the program does to the control is not reported as if the user had done it.
class TreeControl {
 public:
  void Attach(HWND control) { control_ = control; }

  void Fill(const SwitchNode& root);
  void Add(const SwitchNode& node);
  void Remove(const SwitchNode& node);
  void Change(const SwitchNode& node);
  void Select(const SwitchNode& node);

  // Whether a notification tells of something that the user did.
  bool IsUsersDoing() const { return !programmatic_; }
  static const SwitchNode& NodeOf(const TVITEMW& item) {
    return *reinterpret_cast<const SwitchNode*>(item.lParam);
  }

 private:
  HTREEITEM ItemOf(const SwitchNode& node) const;
  HTREEITEM Insert(const SwitchNode& node, HTREEITEM parent, HTREEITEM after);
  void ShowExpansion(const SwitchNode& node);

  HWND control_ = nullptr;
  std::unordered_map<const SwitchNode*, HTREEITEM> items_;
  bool programmatic_ = false;
};

}  // namespace conmuta::win32
