#include "taller/win32/layout_pane.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "layouts/names.h"
#include "taller/item_colors.h"
#include "taller/said.h"
#include "taller/win32/commands.h"
#include "taller/win32/own_colors.h"

namespace conmuta::taller {
namespace {

constexpr std::array<TextView, 4> kHeadings = {u"Dato", u"Columna", u"Tamaño", u"Texto"};
constexpr TextView kIndent = u"   ";

}  // namespace

void LayoutPane::MakeControls(const Add& add) {
  title_ = add(L"STATIC", u"Layo&ut", SS_LEFT, -1, 0);
  list_ = add(WC_LISTVIEWW, u"",
              WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
              kLayoutList, WS_EX_CLIENTEDGE);
  ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
  for (std::size_t i = 0; i < kHeadings.size(); ++i) {
    const Text heading(kHeadings[i]);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.fmt = i == 1 || i == 2 ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.pszText = const_cast<wchar_t*>(win32::Wide(heading));
    SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
  const auto label = [&](TextView text) {
    return add(L"STATIC", text, SS_LEFT | SS_CENTERIMAGE, -1, 0);
  };
  const auto field = [&](int id) {
    return add(L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, id, WS_EX_CLIENTEDGE);
  };
  pos_label_ = label(u"C&olumna:");
  pos_ = field(kLayoutPos);
  size_label_ = label(u"Ta&maño:");
  size_ = field(kLayoutSize);
  text_label_ = label(u"Te&xto:");
  text_ = field(kLayoutText);
  type_label_ = label(u"Ti&po:");
  type_ = add(L"COMBOBOX", u"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kLayoutType, 0);
  for (const TextView name : layouts::TypeNames()) {
    SendMessageW(type_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win32::Wide(Text(name))));
  }
  remove_ = add(L"BUTTON", u"&Quitar", WS_TABSTOP | BS_PUSHBUTTON, kLayoutRemove, 0);
  doubt_ = add(L"STATIC", u"", SS_LEFT | SS_NOPREFIX, kLayoutDoubt, 0);
}

SIZE LayoutPane::LeastSize(const win32::Measures& measures) const {
  const LONG fields = measures.Label(win32::TextOf(pos_label_)).cx + measures.Field(3).cx +
                      measures.Label(win32::TextOf(size_label_)).cx + measures.Field(3).cx +
                      3 * measures.gap();
  const LONG text = measures.Label(win32::TextOf(text_label_)).cx + measures.Field(8).cx +
                    measures.Button(u"&Quitar").cx + 2 * measures.gap();
  return {std::max(fields, text), 9 * measures.line() + 2 * measures.Field(1).cy};
}

void LayoutPane::Layout(const RECT& room, const win32::Measures& measures, const Place& place) {
  const LONG gap = measures.gap();
  const LONG row = std::max(measures.Field(1).cy, measures.Button(u"&Quitar").cy);
  const LONG width = room.right - room.left;
  const LONG line = measures.line();
  LONG bottom = room.bottom - 2 * line - 2;
  place(doubt_, room.left, bottom, {width, 2 * line + 2});
  const auto put = [&](LONG& x, HWND label, HWND field, LONG field_width) {
    const LONG label_width = measures.Label(win32::TextOf(label)).cx;
    place(label, x, bottom, {label_width, row});
    x += label_width + gap;
    place(field, x, bottom + (row - measures.Field(1).cy) / 2, {field_width, measures.Field(1).cy});
    x += field_width + gap;
  };
  bottom -= gap + row;
  LONG x = room.left;
  const SIZE button = measures.Button(u"&Quitar");
  const LONG text_width =
      room.right - button.cx - gap - x - gap - measures.Label(win32::TextOf(text_label_)).cx;
  put(x, text_label_, text_, text_width);
  x = room.left;  // one of the two is shown
  put(x, type_label_, type_, text_width);
  place(remove_, room.right - button.cx, bottom, {button.cx, row});
  bottom -= gap + row;
  x = room.left;
  put(x, pos_label_, pos_, measures.Field(3).cx);
  put(x, size_label_, size_, measures.Field(3).cx);
  bottom -= gap;
  place(title_, room.left, room.top, {width, line + 2});
  const LONG top = room.top + line + 2;
  place(list_, room.left, top, {width, bottom - top});

  const LONG bar = GetSystemMetrics(SM_CXVSCROLL) + 2 * GetSystemMetrics(SM_CXEDGE);
  const LONG pos_width = measures.Label(kHeadings[1]).cx + 4 * gap;
  const LONG size_width = measures.Label(kHeadings[2]).cx + 4 * gap;
  const LONG constant_width = 9 * measures.letter();
  const LONG name_width =
      std::max<LONG>(width - bar - pos_width - size_width - constant_width, 12 * measures.letter());
  const LONG widths[] = {name_width, pos_width, size_width, constant_width};
  for (int i = 0; i < 4; ++i) ListView_SetColumnWidth(list_, i, static_cast<int>(widths[i]));
}

// --- what is shown ---

std::vector<LayoutPane::Row> LayoutPane::Rows() const {
  std::vector<Row> rows;
  for (const OutlineGroup& group : outline_.Groups()) {
    std::vector<Row> members;
    for (const OutlineRow& row : group.rows) {
      if (!row.in_use && !shows_all_ && row.kind != chosen_) continue;
      const bool is_constant = std::holds_alternative<emParamDatoConstante>(row.kind);
      const Text text = is_constant && row.in_use ? u"\"" + row.text + u"\"" : row.text;
      const Text name = Text(kIndent) + row.name + (row.doubt.empty() ? u"" : u"  (!)");
      members.push_back({row.kind, {name, row.pos, row.size, text}, row.color, row.in_use});
    }
    if (members.empty()) continue;
    rows.push_back({std::nullopt, {Text(TitleOf(group.group))}, std::nullopt, false});
    std::move(members.begin(), members.end(), std::back_inserter(rows));
  }
  return rows;
}

void LayoutPane::Refresh() {
  refreshing_ = true;
  Fill(Rows());
  ShowChosen();
  refreshing_ = false;
}

// Only what is another one is written, so that the list stays where it is.
void LayoutPane::Fill(std::vector<Row> rows) {
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  bool is_other = rows.size() != rows_.size();
  for (std::size_t i = 0; !is_other && i < rows.size(); ++i)
    is_other = rows[i].kind != rows_[i].kind;
  const int top = ListView_GetTopIndex(list_);
  if (is_other) {
    ListView_DeleteAllItems(list_);
    rows_.clear();
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (int cell = 0; cell < kCells; ++cell) {
      const Text& text = rows[i].cells[cell];
      if (!is_other && text == rows_[i].cells[cell]) continue;
      LVITEMW item{};
      item.mask = LVIF_TEXT;
      item.iItem = static_cast<int>(i);
      item.iSubItem = cell;
      item.pszText = const_cast<wchar_t*>(win32::Wide(text));
      SendMessageW(list_, is_other && cell == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                   reinterpret_cast<LPARAM>(&item));
    }
  }
  rows_ = std::move(rows);
  if (is_other) {
    const int last = static_cast<int>(rows_.size()) - 1;
    ListView_EnsureVisible(list_, last, FALSE);
    ListView_EnsureVisible(list_, std::min(top, last), FALSE);
  }
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  SelectChosen();
  InvalidateRect(list_, nullptr, FALSE);
}

void LayoutPane::SelectChosen() {
  const auto row = std::find_if(rows_.begin(), rows_.end(),
                                [&](const Row& r) { return r.kind && r.kind == chosen_; });
  if (row == rows_.end()) {
    chosen_.reset();
    return;
  }
  const int index = static_cast<int>(row - rows_.begin());
  if (ListView_GetNextItem(list_, -1, LVNI_SELECTED) == index) return;
  ListView_SetItemState(list_, index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_EnsureVisible(list_, index, FALSE);
}

void LayoutPane::Select(const SlotKind& kind) {
  chosen_ = kind;
  Refresh();
}

void LayoutPane::ShowAll(bool all) {
  shows_all_ = all;
  Refresh();
}

std::optional<OutlineRow> LayoutPane::Chosen() const {
  if (!chosen_) return std::nullopt;
  for (const OutlineGroup& group : outline_.Groups()) {
    for (const OutlineRow& row : group.rows) {
      if (row.kind == *chosen_) return row;
    }
  }
  return std::nullopt;
}

// A constant has a text, an item a size and a type.
void LayoutPane::ShowKindOf(const SlotKind& kind) const {
  const bool is_constant = std::holds_alternative<emParamDatoConstante>(kind);
  win32::SetVisible(text_label_, is_constant);
  win32::SetVisible(text_, is_constant);
  win32::SetVisible(type_label_, !is_constant);
  win32::SetVisible(type_, !is_constant);
  win32::SetEnabled(size_, !is_constant);
}

void LayoutPane::ShowChosen() {
  const auto row = Chosen();
  for (const HWND control : {pos_, size_, text_, type_})
    win32::SetEnabled(control, row.has_value());
  win32::SetEnabled(remove_, row && row->in_use);
  ShowKindOf(row ? row->kind : SlotKind(emPrimerParamDatoConstante));
  if (!row) win32::SetEnabled(size_, false);
  const OutlineRow shown = row.value_or(OutlineRow());
  win32::SetText(pos_, shown.pos);
  win32::SetText(size_, shown.size);
  win32::SetText(text_, shown.text);
  const auto type = shown.type.empty()
                        ? CB_ERR
                        : SendMessageW(type_, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(win32::Wide(shown.type)));
  SendMessageW(type_, CB_SETCURSEL, static_cast<WPARAM>(type), 0);
  // The row's own doubt, or else any that there is.
  const Messages doubts = document_.Doubts();
  Text doubt = shown.doubt;
  if (doubt.empty() && !doubts.empty()) doubt = Said({doubts.front()});
  win32::SetText(doubt_, doubt);
}

// --- what the person does ---

void LayoutPane::Type(LayoutOutline::Field field, HWND control) {
  if (!chosen_) return;
  const std::size_t before = document_.revision();
  static_cast<void>(outline_.Type(*chosen_, field, win32::TextOf(control)));  // said beside it
  Refresh();
  if (document_.revision() != before && Changed) Changed();
}

void LayoutPane::Remove() {
  if (!chosen_) return;
  const Messages said = outline_.Remove(*chosen_);
  Refresh();
  if (!said.empty()) win32::SetText(doubt_, Said(said));
  if (said.empty() && Changed) Changed();
}

bool LayoutPane::OnCommand(int id, int code) {
  using Field = LayoutOutline::Field;
  if (id == kLayoutRemove) {
    Remove();
    return true;
  }
  if (id != kLayoutPos && id != kLayoutSize && id != kLayoutText && id != kLayoutType) return false;
  if (refreshing_) return true;
  if (code == EN_KILLFOCUS) document_.EndTyping();
  if (id == kLayoutType) {
    if (code == CBN_SELCHANGE) Type(Field::kType, type_);
  } else if (code == EN_CHANGE) {
    if (id == kLayoutPos) Type(Field::kPos, pos_);
    if (id == kLayoutSize) Type(Field::kSize, size_);
    if (id == kLayoutText) Type(Field::kText, text_);
  }
  return true;
}

LRESULT LayoutPane::OnNotify(const NMHDR& header) {
  if (header.idFrom != kLayoutList) return 0;
  if (header.code == NM_CUSTOMDRAW) {
    return Draw(*reinterpret_cast<NMLVCUSTOMDRAW*>(const_cast<NMHDR*>(&header)));
  }
  if (header.code == LVN_ITEMCHANGED && !refreshing_) {
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
    const auto index = static_cast<std::size_t>(change.iItem);
    if ((change.uNewState & LVIS_SELECTED) == 0 || index >= rows_.size()) return 0;
    document_.EndTyping();
    chosen_ = rows_[index].kind;
    refreshing_ = true;
    ShowChosen();
    refreshing_ = false;
  }
  if (header.code == LVN_KEYDOWN &&
      reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_DELETE) {
    Remove();
  }
  return 0;
}

// The column has the colour that it has on the lines.
LRESULT LayoutPane::Draw(NMLVCUSTOMDRAW& draw) const {
  if (!MayUseOwnColors()) return CDRF_DODEFAULT;
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
      return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
      return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM: {
      const auto index = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
      const bool has_color = draw.iSubItem == 1 && index < rows_.size() && rows_[index].color;
      const Color color = has_color ? ItemGround(*rows_[index].color) : Color{};
      draw.clrTextBk =
          has_color ? RGB(color.red, color.green, color.blue) : GetSysColor(COLOR_WINDOW);
      draw.clrText = has_color ? RGB(0, 0, 0) : GetSysColor(COLOR_WINDOWTEXT);
      return CDRF_NEWFONT;
    }
    default:
      return CDRF_DODEFAULT;
  }
}

}  // namespace conmuta::taller
