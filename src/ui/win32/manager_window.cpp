#include "ui/win32/manager_window.h"

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "ui/win32/control_ids.h"
#include "ui/win32/dpi.h"
#include "ui/win32/frame_control.h"
#include "ui/win32/tree_control.h"
#include "ui/win32/window.h"
#include "ui/win32/window_view.h"

namespace conmuta::win32 {
namespace {

constexpr TextView kNoDefault = u"<No hay conmutador predeterminado>";  // the longest that must fit

class ManagerWindow final : public Window {
 public:
  explicit ManagerWindow(frmConmutador& manager) : manager_(manager) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    Create(u"Conmutadores");
    tree_.Fill(manager.tree().root());
    tree_.Select(manager.selected());
    Refresh();
  }

  TreeControl& tree() { return tree_; }
  void FillTree() { tree_.Fill(manager_.tree().root()); }

  void Refresh() {
    SetText(file_, manager_.etqArch());
    SetTip(file_, manager_.etqArch());
    SetText(info_, manager_.txtInfo());
    if (default_is_bold_ != manager_.default_is_bold()) {
      default_is_bold_ = manager_.default_is_bold();
      ShowBold();
    }
    ShowNames();
    for (const HWND button : {install_, remove_, ports_}) {
      SetEnabled(button, manager_.model_commands_enabled());
    }
  }

 private:
  void MakeControls() override {
    AddName(u"Conmutadores");
    tree_view_ =
        AddControl(WC_TREEVIEWW, u"",
                   WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                   kTvConmutadores, WS_EX_CLIENTEDGE);
    tree_.Attach(tree_view_);
    add_ = AddControl(L"BUTTON", u"&Buscar...", WS_TABSTOP, kBtnBuscar);
    remove_ = AddControl(L"BUTTON", u"&Eliminar", WS_TABSTOP, kBtnEliminar);
    collapse_ = AddControl(L"BUTTON", u"&Contraer", WS_TABSTOP, kBtnContraer);
    frame_ = AddControl(L"BUTTON", u"", BS_GROUPBOX | WS_CLIPSIBLINGS, kFrame1);
    file_ =
        AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS | SS_NOTIFY, kEtqArch);
    AddName(u"Comentarios");
    info_ = AddControl(L"EDIT", u"",
                       WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                       kTxtComentarios, WS_EX_CLIENTEDGE);
    install_ = AddControl(L"BUTTON", u"&Predeterminar", WS_TABSTOP, kBtnInstalar);
    ports_ = AddControl(L"BUTTON", u"P&uertos...", WS_TABSTOP, kBtnPuertos);
    default_label_ = AddControl(L"STATIC", u"Conmutador pre&determinado:", SS_LEFT | SS_CENTERIMAGE,
                                kEtqPredeterminado);
    default_ = AddControl(L"BUTTON", u"", WS_TABSTOP, kBtnDesinstalar);
    close_ = AddControl(L"BUTTON", u"Ce&rrar", WS_TABSTOP, kBtnCerrar);
    MakeFrame(frame_);
  }

  int Inset() const { return measures().Scale(12); }
  SIZE ButtonSize(HWND button) const { return measures().Button(TextOf(button)); }
  // Three buttons of one width below the tree, and two in the frame.
  SIZE CommandSize() const {
    const SIZE add = ButtonSize(add_);
    return {std::max({add.cx, ButtonSize(remove_).cx, ButtonSize(collapse_).cx}), add.cy};
  }
  SIZE ModelCommandSize() const {
    const SIZE install = ButtonSize(install_);
    return {std::max(install.cx, ButtonSize(ports_).cx), install.cy};
  }
  LONG LeftLeast() const { return 3 * CommandSize().cx + 2 * measures().gap(); }
  LONG RightLeast() const { return 2 * ModelCommandSize().cx + measures().gap() + 2 * Inset(); }
  int Indent() const { return measures().Scale(22); }
  LONG HeadingWidth() const {
    return Indent() + measures().Label(manager_.tree().root().text).cx + 2 * measures().gap();
  }
  LONG SideBySide() const {
    return LeftLeast() + 2 * measures().gap() + RightLeast() + 2 * measures().margin();
  }
  LONG BottomLeast() const {
    return measures().Label(TextOf(default_label_)).cx + measures().Button(kNoDefault).cx +
           ButtonSize(close_).cx + 3 * measures().gap() + 2 * measures().margin();
  }
  LONG LeftHeight() const { return 6 * measures().line() + measures().gap() + CommandSize().cy; }
  LONG RightHeight() const {
    return 6 * measures().line() + 2 * measures().gap() + ModelCommandSize().cy + 2 * Inset();
  }

  // Where the screen is too narrow, the model stands below the tree.
  SIZE LeastSize(SIZE most) override {
    const LONG bottom = ButtonSize(close_).cy + 2 * measures().gap() + 2 * measures().margin();
    const LONG beside = std::max(SideBySide(), BottomLeast());
    if (beside <= most.cx) return {beside, std::max(LeftHeight(), RightHeight()) + bottom};
    const LONG column = std::max(LeftLeast(), RightLeast()) + 2 * measures().margin();
    return {std::max(column, BottomLeast()),
            LeftHeight() + 2 * measures().gap() + RightHeight() + bottom};
  }

  SIZE OpeningSize(SIZE most) override {
    const SIZE least = LeastSize(most);
    return {std::max<LONG>(least.cx, measures().Scale(750)),
            std::max<LONG>(least.cy, measures().Scale(490))};
  }

  void Layout(SIZE room) override {
    const int margin = measures().margin();
    const int gap = measures().gap();

    // Bottom: the default switch, always in view, and the way out.
    const SIZE close = ButtonSize(close_);
    const LONG bottom = room.cy - margin - close.cy;
    const LONG label = measures().Label(TextOf(default_label_)).cx + gap;
    Place(default_label_, margin, bottom, {label, close.cy});
    Place(default_, margin + label, bottom,
          {room.cx - 2 * margin - label - close.cx - 2 * gap, close.cy});
    Place(close_, room.cx - margin - close.cx, bottom, close);

    const LONG width = room.cx - 2 * margin;
    const LONG height = bottom - 2 * gap - margin;
    if (room.cx >= std::max(SideBySide(), BottomLeast())) {
      // The tree takes what the window gains, and where that is little, room for its heading.
      const LONG details = std::max<LONG>(RightLeast(), measures().Scale(330));
      const LONG left = std::max({LeftLeast(), width - details - 2 * gap,
                                  std::min(HeadingWidth(), width - RightLeast() - 2 * gap)});
      LayoutTree({margin, margin, margin + left, margin + height});
      LayoutModel({margin + left + 2 * gap, margin, margin + width, margin + height});
    } else {
      const LONG upper = (height - 2 * gap) * LeftHeight() / (LeftHeight() + RightHeight());
      LayoutTree({margin, margin, margin + width, margin + upper});
      LayoutModel({margin, margin + upper + 2 * gap, margin + width, margin + height});
    }
    ShowBold();
    ShowNames();
  }

  void LayoutTree(const RECT& place) {
    const int gap = measures().gap();
    const LONG width = place.right - place.left;
    const LONG button = CommandSize().cy;
    const LONG commands = place.bottom - button;
    TreeView_SetIndent(tree_view_, Indent());  // the system's own does not grow with the font
    Place(tree_view_, place.left, place.top, {width, commands - gap - place.top});
    const LONG third = (width - 2 * gap) / 3;
    Place(add_, place.left, commands, {third, button});
    Place(remove_, place.left + third + gap, commands, {third, button});
    Place(collapse_, place.left + 2 * (third + gap), commands, {width - 2 * (third + gap), button});
  }

  void LayoutModel(const RECT& place) {
    const int gap = measures().gap();
    const LONG x = place.left + Inset();
    const LONG width = place.right - place.left - 2 * Inset();
    const LONG button = ModelCommandSize().cy;
    const LONG commands = place.bottom - Inset() - button;
    const LONG file = place.top + measures().line() + gap;
    const LONG line = measures().line() + 2;
    const LONG info = file + line + gap;
    Place(file_, x, file, {width, line});
    Place(info_, x, info, {width, commands - gap - info});
    const LONG half = (width - gap) / 2;
    Place(install_, x, commands, {half, button});
    Place(ports_, x + half + gap, commands, {width - half - gap, button});
    Place(frame_, place.left, place.top, {place.right - place.left, place.bottom - place.top});
  }

  void ShowBold() {
    LOGFONTW bold = MessageFontAt(dpi());
    bold.lfWeight = FW_BOLD;
    bold_font_ = Font(CreateFontIndirectW(&bold));
    const HFONT shown = default_is_bold_ ? bold_font_.get() : font();
    SendMessageW(default_, WM_SETFONT, reinterpret_cast<WPARAM>(shown), TRUE);
  }

  // Names that have no room are shortened, and the tool tips say them whole.
  void ShowNames() {
    SetText(frame_, WithVisibleAmpersands(manager_.Frame1()));
    SetTip(frame_, manager_.Frame1());
    RECT button{};
    GetClientRect(default_, &button);
    const Measures shown(reinterpret_cast<HFONT>(SendMessageW(default_, WM_GETFONT, 0, 0)));
    const Text caption = shown.Shortened(manager_.default_caption(),
                                         static_cast<int>(button.right) - measures().Scale(12));
    SetText(default_, WithVisibleAmpersands(caption));
    Text tip = manager_.default_tool_tip();
    if (caption != manager_.default_caption()) {
      tip.append(kLineBreak).append(manager_.default_caption());
    }
    SetTip(default_, tip);
  }

  void OnCommand(int id, int code) override {
    if (code != BN_CLICKED) return;
    switch (id) {
      case kBtnBuscar:
        return manager_.btnBuscar();
      case kBtnEliminar:
        return manager_.btnEliminar();
      case kBtnPuertos:
        return manager_.btnPuertos();
      case kBtnInstalar:
        return manager_.btnInstalar();
      case kBtnDesinstalar:
        return manager_.btnDesinstalar();
      case kBtnContraer:
        return manager_.btnContraer();
      case kBtnCerrar:
        return manager_.btnCerrar();
      default:
        return;
    }
  }

  LRESULT OnNotify(const NMHDR& header) override {
    if (header.idFrom != kTvConmutadores || !tree_.IsUsersDoing()) return 0;
    const auto& change = reinterpret_cast<const NMTREEVIEWW&>(header);
    switch (header.code) {
      case TVN_SELCHANGEDW:
        manager_.NodeClick(TreeControl::NodeOf(change.itemNew).key);
        break;
      case TVN_ITEMEXPANDEDW:
        if ((change.action & TVE_EXPAND) != 0) {
          manager_.NodeExpanded(TreeControl::NodeOf(change.itemNew).key);
        } else {
          manager_.NodeCollapsed(TreeControl::NodeOf(change.itemNew).key);
        }
        break;
      case TVN_KEYDOWN:
        if (reinterpret_cast<const NMTVKEYDOWN&>(header).wVKey == VK_DELETE &&
            manager_.model_commands_enabled()) {
          manager_.btnEliminar();
        }
        break;
      default:
        break;
    }
    return 0;
  }

  frmConmutador& manager_;
  TreeControl tree_;
  HWND tree_view_ = nullptr;
  HWND add_ = nullptr;
  HWND remove_ = nullptr;
  HWND collapse_ = nullptr;
  HWND frame_ = nullptr;
  HWND file_ = nullptr;
  HWND info_ = nullptr;
  HWND install_ = nullptr;
  HWND ports_ = nullptr;
  HWND default_label_ = nullptr;
  HWND default_ = nullptr;
  HWND close_ = nullptr;
  Font bold_font_;
  bool default_is_bold_ = false;
};

// "description|pattern" with the terminators that the system wants.
Text FilterOf(TextView filter) {
  Text terminated(filter);
  std::replace(terminated.begin(), terminated.end(), u'|', kNul);
  return terminated.append(2, kNul);
}

class ManagerView final : public RealView<frmConmutador, ManagerWindow, frmConmutador::View> {
 public:
  void TreeChanged() override {
    if (real_ != nullptr) real_->FillTree();
  }
  void NodeAdded(const SwitchNode& node) override {
    if (real_ != nullptr) real_->tree().Add(node);
  }
  void NodeRemoved(const SwitchNode& node) override {
    if (real_ != nullptr) real_->tree().Remove(node);
  }
  void NodeChanged(const SwitchNode& node) override {
    if (real_ != nullptr) real_->tree().Change(node);
  }
  void NodeSelected(const SwitchNode& node) override {
    if (real_ != nullptr) real_->tree().Select(node);
  }

  void Busy(bool busy) override { SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW)); }

  int ShowMessage(TextView text, int style, TextView title) override {
    return MessageBoxW(Owner(), Wide(Text(text)), Wide(Text(title)), static_cast<UINT>(style));
  }

  std::optional<Text> OpenFile(const OpenFileDialog& dialog) override {
    const Text filter = FilterOf(dialog.filter);
    std::vector<wchar_t> path(32768, L'\0');
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = Owner();
    request.lpstrFilter = Wide(filter);
    request.lpstrFile = path.data();
    request.nMaxFile = static_cast<DWORD>(path.size());
    request.lpstrTitle = Wide(dialog.title);
    request.Flags = dialog.flags | OFN_EXPLORER;
    if (!GetOpenFileNameW(&request)) return std::nullopt;
    const std::wstring_view chosen(path.data());
    return Text(chosen.begin(), chosen.end());
  }

 private:
  HWND Owner() const { return real_ != nullptr ? real_->handle() : nullptr; }
};

}  // namespace

std::unique_ptr<frmConmutador::View> MakeManagerView() {
  return std::make_unique<ManagerView>();
}

}  // namespace conmuta::win32
