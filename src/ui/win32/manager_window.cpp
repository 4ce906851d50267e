#include "ui/win32/manager_window.h"

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "ui/win32/cable_window.h"
#include "ui/win32/control_ids.h"
#include "ui/win32/dpi.h"
#include "ui/win32/tree_control.h"
#include "ui/win32/window.h"

namespace conmuta::win32 {
namespace {

constexpr int kMargin = 10;
constexpr int kGap = 6;
constexpr int kButtonHeight = 26;
constexpr int kButtonWidth = 104;
constexpr int kLineHeight = 18;
constexpr int kFrameTop = 22;  // room for a frame's caption
constexpr int kDetailsWidth = 340;

// In captions an ampersand marks the key; one in a name is to be seen.
Text WithVisibleAmpersands(TextView text) {
  Text shown;
  for (const char16_t c : text) shown.append(c == u'&' ? 2u : 1u, c);
  return shown;
}

class ManagerWindow final : public Window {
 public:
  explicit ManagerWindow(frmConmutador& manager) : manager_(manager) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    Create({u"Conmutadores", {760, 520}, {620, 380}});
    tree_.Fill(manager.tree().root());
    tree_.Select(manager.selected());
    Refresh();
  }

  TreeControl& tree() { return tree_; }

  void Refresh() {
    SetText(frame_, WithVisibleAmpersands(manager_.Frame1()));
    SetText(file_, manager_.etqArch());
    SetText(info_, manager_.txtInfo());
    SetText(default_, WithVisibleAmpersands(manager_.default_caption()));
    if (default_is_bold_ != manager_.default_is_bold()) {
      default_is_bold_ = manager_.default_is_bold();
      ShowBold();
    }
    for (const HWND button : {install_, remove_, ports_}) {
      SetEnabled(button, manager_.model_commands_enabled());
    }
    ShowToolTip();
  }

 private:
  void MakeControls() override {
    tree_view_ =
        AddControl(WC_TREEVIEWW, u"",
                   WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                   kTvConmutadores, WS_EX_CLIENTEDGE);
    tree_.Attach(tree_view_);
    add_ = AddControl(L"BUTTON", u"&Buscar...", WS_TABSTOP, kBtnBuscar);
    remove_ = AddControl(L"BUTTON", u"&Eliminar", WS_TABSTOP, kBtnEliminar);
    collapse_ = AddControl(L"BUTTON", u"&Contraer", WS_TABSTOP, kBtnContraer);
    frame_ = AddControl(L"BUTTON", u"", BS_GROUPBOX, kFrame1, WS_EX_TRANSPARENT);
    file_ = AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS, kEtqArch);
    info_ = AddControl(L"EDIT", u"",
                       WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                       kTxtComentarios, WS_EX_CLIENTEDGE);
    install_ = AddControl(L"BUTTON", u"&Predeterminar", WS_TABSTOP, kBtnInstalar);
    ports_ = AddControl(L"BUTTON", u"P&uertos...", WS_TABSTOP, kBtnPuertos);
    default_label_ = AddControl(L"STATIC", u"Conmutador pre&determinado:", SS_LEFT | SS_CENTERIMAGE,
                                kEtqPredeterminado);
    default_ = AddControl(L"BUTTON", u"", WS_TABSTOP, kBtnDesinstalar);
    close_ = AddControl(L"BUTTON", u"Ce&rrar", WS_TABSTOP, kBtnCerrar);
    tool_tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP,
                                0, 0, 0, 0, handle(), nullptr, ThisModule(), nullptr);
    TTTOOLINFOW tool = ToolOfDefault();
    SendMessageW(tool_tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }

  void Layout(SIZE client) override {
    const int margin = Scale(kMargin);
    const int gap = Scale(kGap);
    const int button = Scale(kButtonHeight);
    const int button_width = Scale(kButtonWidth);

    // Bottom: the default switch, always in view, and the way out.
    const int bottom = client.cy - margin - button;
    const int label = MeasureText(font(), u"Conmutador predeterminado:").cx + gap;
    Place(default_label_, margin, bottom, label, button);
    const int default_width =
        std::max<int>(client.cx - 2 * margin - label - button_width - 3 * gap, 0);
    Place(default_, margin + label, bottom, default_width, button);
    Place(close_, client.cx - margin - button_width, bottom, button_width, button);

    // Left: the tree, which takes what the window gains, and the commands on the catalogue.
    const int details = Scale(kDetailsWidth);
    const int left = std::max<int>(client.cx - 2 * margin - details - 2 * gap, 0);
    const int commands = bottom - 2 * gap - button;
    Place(tree_view_, margin, margin, left, std::max(commands - gap - margin, 0));
    const int third = std::max((left - 2 * gap) / 3, 0);
    Place(add_, margin, commands, third, button);
    Place(remove_, margin + third + gap, commands, third, button);
    Place(collapse_, margin + 2 * (third + gap), commands, left - 2 * (third + gap), button);

    // Right: the selected model, and the commands on it.
    const int x = margin + left + 2 * gap;
    Place(frame_, x, margin, details, std::max(commands + button - margin, 0));
    const int inner = x + gap * 2;
    const int inner_width = details - 4 * gap;
    const int file_y = margin + Scale(kFrameTop);
    Place(file_, inner, file_y, inner_width, Scale(kLineHeight));
    const int info_y = file_y + Scale(kLineHeight) + gap;
    const int model_commands = commands - gap;
    Place(info_, inner, info_y, inner_width, std::max(model_commands - gap - info_y, 0));
    const int half = (inner_width - gap) / 2;
    Place(install_, inner, model_commands, half, button);
    Place(ports_, inner + half + gap, model_commands, half, button);
    ShowBold();
  }

  void ShowBold() {
    LOGFONTW bold = MessageFontAt(dpi());
    bold.lfWeight = FW_BOLD;
    bold_font_ = Font(CreateFontIndirectW(&bold));
    const HFONT shown = default_is_bold_ ? bold_font_.get() : font();
    SendMessageW(default_, WM_SETFONT, reinterpret_cast<WPARAM>(shown), TRUE);
  }

  TTTOOLINFOW ToolOfDefault() {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = handle();
    tool.uId = reinterpret_cast<UINT_PTR>(default_);
    tool.lpszText = const_cast<wchar_t*>(Wide(manager_.default_tool_tip()));
    return tool;
  }

  void ShowToolTip() {
    TTTOOLINFOW tool = ToolOfDefault();
    SendMessageW(tool_tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
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
  HWND tool_tip_ = nullptr;
  Font bold_font_;
  bool default_is_bold_ = false;
};

// "description|pattern" with the terminators that the system wants.
Text FilterOf(TextView filter) {
  Text terminated(filter);
  std::replace(terminated.begin(), terminated.end(), u'|', kNul);
  return terminated.append(2, kNul);
}

// The window is made when it is to be shown, from the manager's state; until then there is nothing
// to tell it.
class ManagerView final : public frmConmutador::View {
 public:
  void Update() override {
    if (window_ != nullptr) window_->Refresh();
  }
  void TreeChanged() override {
    if (window_ != nullptr) window_->tree().Fill(manager_->tree().root());
  }
  void NodeAdded(const SwitchNode& node) override {
    if (window_ != nullptr) window_->tree().Add(node);
  }
  void NodeRemoved(const SwitchNode& node) override {
    if (window_ != nullptr) window_->tree().Remove(node);
  }
  void NodeChanged(const SwitchNode& node) override {
    if (window_ != nullptr) window_->tree().Change(node);
  }
  void NodeSelected(const SwitchNode& node) override {
    if (window_ != nullptr) window_->tree().Select(node);
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

  void EditCable(clsCfgConmut& config) override { config.EDConfigSeriales(false, MakeCableEditor); }

  void Run(frmConmutador& manager) override {
    ManagerWindow window(manager);
    manager_ = &manager;
    window_ = &window;
    window.RunModal();
    window_ = nullptr;
  }
  void Close() override {
    if (window_ != nullptr) window_->Close();
  }

 private:
  HWND Owner() const { return window_ != nullptr ? window_->handle() : nullptr; }

  frmConmutador* manager_ = nullptr;
  ManagerWindow* window_ = nullptr;
};

}  // namespace

std::unique_ptr<frmConmutador::View> MakeManagerView() {
  return std::make_unique<ManagerView>();
}

}  // namespace conmuta::win32
