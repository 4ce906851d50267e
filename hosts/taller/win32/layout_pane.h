// The pane with what a layout says, item by item.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <vector>

#include "taller/layout_outline.h"
#include "ui/win32/controls.h"

namespace conmuta::taller {

// Its controls are children of the window that shows it.
class LayoutPane {
 public:
  explicit LayoutPane(Document& document) : document_(document), outline_(document) {}

  // Something in the layout was changed here.
  std::function<void()> Changed;

  // Makes its controls by a function that adds one to the window.
  using Add = std::function<HWND(const wchar_t* window_class, TextView text, DWORD style, int id,
                                 DWORD extended_style)>;
  void MakeControls(const Add& add);

  SIZE LeastSize(const win32::Measures& measures) const;
  // Places them by a function of the window's.
  using Place = std::function<void(HWND control, LONG x, LONG y, SIZE size)>;
  void Layout(const RECT& room, const win32::Measures& measures, const Place& place);

  // Shows the document.
  void Refresh();
  // Goes to an item or constant, which is shown even if it is not in use.
  void Select(const SlotKind& kind);
  // Whether those that are not in use are shown, too.
  bool shows_all() const { return shows_all_; }
  void ShowAll(bool all);

  // What comes from its controls; whether it does.
  bool OnCommand(int id, int code);
  LRESULT OnNotify(const NMHDR& header);

 private:
  static constexpr int kCells = 4;
  struct Row {
    std::optional<SlotKind> kind;  // of a group's title none
    Text cells[kCells];
    std::optional<std::size_t> color;
    bool in_use = false;
  };

  std::vector<Row> Rows() const;
  void Fill(std::vector<Row> rows);
  void SelectChosen();
  std::optional<OutlineRow> Chosen() const;
  void ShowChosen();
  void ShowKindOf(const SlotKind& kind) const;
  void Type(LayoutOutline::Field field, HWND control);
  void Remove();
  LRESULT Draw(NMLVCUSTOMDRAW& draw) const;

  Document& document_;
  LayoutOutline outline_;
  std::vector<Row> rows_;
  std::optional<SlotKind> chosen_;
  bool shows_all_ = false;
  bool refreshing_ = false;
  HWND title_ = nullptr;
  HWND list_ = nullptr;
  HWND pos_label_ = nullptr;
  HWND pos_ = nullptr;
  HWND size_label_ = nullptr;
  HWND size_ = nullptr;
  HWND text_label_ = nullptr;
  HWND text_ = nullptr;
  HWND type_label_ = nullptr;
  HWND type_ = nullptr;
  HWND remove_ = nullptr;
  HWND doubt_ = nullptr;
};

}  // namespace conmuta::taller
