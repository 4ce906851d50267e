#include "taller/win32/main_window.h"

#include <commctrl.h>
#include <shellapi.h>
#include <windowsx.h>

#include <algorithm>

#include "platform/unicode.h"
#include "taller/said.h"
#include "taller/win32/commands.h"
#include "taller/win32/result_text.h"

namespace conmuta::taller {
namespace {

constexpr UINT kJudged = WM_APP + 1;
constexpr UINT kAsked = WM_APP + 2;
constexpr UINT_PTR kKeepTimer = 2;
constexpr UINT kKeepEvery = 5000;  // milliseconds
constexpr DWORD kCountFor = 30;    // milliseconds, between two looks at the person
constexpr wchar_t kRunning[] = L"Conmuta.Taller.Running";

}  // namespace

MainWindow::MainWindow(Disk& disk, const Clock& clock, std::filesystem::path folder)
    : settings_(folder),
      bench_(disk, clock, std::move(folder),
             [this] {
               if (!is_told_.exchange(true)) PostMessageW(told_, kJudged, 0, 0);
             }),
      lines_view_(bench_),
      layout_pane_(bench_.document()) {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  running_ = CreateMutexW(nullptr, FALSE, kRunning);
  is_first_ = GetLastError() != ERROR_ALREADY_EXISTS;
  keys_ = MakeAccelerators();
  if (settings_.zoom != 0) lines_view_.Zoom(settings_.zoom);
  Create(Text(kProgramName));
  told_ = handle();
  const HICON icon = LoadIconW(win32::ThisModule(), MAKEINTRESOURCEW(1));
  if (icon != nullptr) SendMessageW(handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
  DragAcceptFiles(handle(), TRUE);
  SetTimer(handle(), kKeepTimer, kKeepEvery, nullptr);
  if (settings_.maximised) ShowWindow(handle(), SW_MAXIMIZE);
  BringBack();
  Refresh();
}

MainWindow::~MainWindow() {
  if (keys_ != nullptr) DestroyAcceleratorTable(keys_);
  if (running_ != nullptr) CloseHandle(running_);
}

// --- what is seen ---

void MainWindow::MakeControls() {
  menu_ = MakeMenuBar();
  SetMenu(handle(), menu_);
  lines_ = AddControl(LinesView::ClassName(), u"Líneas de la captura",
                      WS_TABSTOP | WS_BORDER | WS_HSCROLL | WS_VSCROLL, kLinesView);
  lines_view_.Attach(lines_,
                     [this](const std::function<void()>& body) { Safely([&] { body(); }); });
  lines_view_.Moved = [this] {
    lines_view_.Refresh();
    ShowResult();
  };
  // Not from within the message that the mouse sends.
  lines_view_.Asked = [this] { PostMessageW(handle(), kAsked, 0, 0); };
  lines_view_.Removed = [this] { RemoveAtCaret(); };
  down_bar_ = AddControl(Splitter::ClassName(), u"", 0, kDownSplitter);
  down_.Attach(down_bar_);
  down_.Pulled = [this](int pixels) { Safely([&] { PullDown(pixels); }); };
  AddName(u"Resultado de la línea");
  result_ = AddControl(L"EDIT", u"",
                       WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                       kResultText, WS_EX_CLIENTEDGE);
  across_bar_ = AddControl(Splitter::ClassName(), u"", 0, kAcrossSplitter);
  across_.Attach(across_bar_);
  across_.Pulled = [this](int pixels) { Safely([&] { PullAcross(pixels); }); };
  layout_pane_.MakeControls(
      [this](const wchar_t* window_class, TextView text, DWORD style, int id, DWORD extended) {
        return AddControl(window_class, text, style, id, extended);
      });
  layout_pane_.Changed = [this] { Refresh(); };
  message_ =
      AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY, kMessageLine);
  status_ =
      AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY, kStatusLine);
}

LONG MainWindow::LayoutWidth(LONG room) const {
  const LONG least = layout_pane_.LeastSize(measures()).cx;
  const LONG most = room - SplitterWidth() - measures().Scale(160);
  const LONG wanted = settings_.layout_width != 0 ? measures().Scale(settings_.layout_width)
                                                  : measures().Scale(430);
  return std::clamp(wanted, least, std::max(most, least));
}

LONG MainWindow::ResultHeight(LONG room) const {
  const LONG least = 3 * measures().line();
  const LONG most = room - SplitterWidth() - 6 * measures().line();
  const LONG wanted = settings_.result_height != 0 ? measures().Scale(settings_.result_height)
                                                   : 9 * measures().line();
  return std::clamp(wanted, least, std::max(most, least));
}

SIZE MainWindow::LeastSize(SIZE) {
  const LONG around = 2 * measures().margin();
  const SIZE pane = layout_pane_.LeastSize(measures());
  const LONG lines = 2 * (measures().line() + measures().Scale(4));
  const LONG height = std::max<LONG>(pane.cy, 9 * measures().line() + SplitterWidth());
  return {around + pane.cx + SplitterWidth() + measures().Scale(160), around + height + lines};
}

SIZE MainWindow::OpeningSize(SIZE most) {
  const LONG width = settings_.width != 0 ? measures().Scale(settings_.width) : most.cx * 9 / 10;
  const LONG height = settings_.height != 0 ? measures().Scale(settings_.height) : most.cy * 9 / 10;
  return {std::min(width, most.cx), std::min(height, most.cy)};
}

void MainWindow::Layout(SIZE room) {
  const LONG margin = measures().margin();
  const LONG line = measures().line() + measures().Scale(4);
  const LONG bar = SplitterWidth();
  const LONG width = room.cx - 2 * margin;
  const auto place = [this](HWND control, LONG x, LONG y, SIZE size) {
    Place(control, static_cast<int>(x), static_cast<int>(y), size);
  };
  place(status_, margin, room.cy - margin - line, {width, line});
  place(message_, margin, room.cy - margin - 2 * line, {width, line});
  const LONG height = room.cy - 2 * margin - 2 * line;
  const LONG layout = LayoutWidth(width);
  const LONG left = width - layout - bar;
  const LONG result = ResultHeight(height);
  const LONG lines = height - result - bar;
  place(lines_, margin, margin, {left, lines});
  place(down_bar_, margin, margin + lines, {left, bar});
  place(result_, margin, margin + lines + bar, {left, result});
  place(across_bar_, margin + left, margin, {bar, height});
  layout_pane_.Layout({margin + left + bar, margin, margin + width, margin + height}, measures(),
                      place);
}

void MainWindow::PullAcross(int pixels) {
  RECT client{};
  GetClientRect(handle(), &client);
  const LONG now = LayoutWidth(client.right - 2 * measures().margin());
  settings_.layout_width = MulDiv(static_cast<int>(now) - pixels, 15, measures().line());
  LayoutNow();
}

void MainWindow::PullDown(int pixels) {
  RECT client{};
  GetClientRect(handle(), &client);
  const LONG line = measures().line() + measures().Scale(4);
  const LONG now = ResultHeight(client.bottom - 2 * measures().margin() - 2 * line);
  settings_.result_height = MulDiv(static_cast<int>(now) - pixels, 15, measures().line());
  LayoutNow();
}

void MainWindow::Refresh() {
  bench_.JudgeChanges();
  ShowTitle();
  layout_pane_.Refresh();
  lines_view_.Refresh();
  ShowResult();
  ShowStatus();
}

void MainWindow::ShowTitle() {
  win32::SetText(handle(), Text(kProgramName) + u" - " + bench_.document().Title());
}

void MainWindow::ShowResult() {
  const auto result = bench_.ResultOfLine();
  win32::SetText(result_, result ? TextOf(*result) : Text());
  NamePlace();
}

void MainWindow::NamePlace() {
  Text name = u"Líneas de la captura";
  if (bench_.HasCapture()) {
    const Caret& caret = bench_.selection().caret();
    const Text line = bench_.LineAt(caret.line).seen;
    name = u"Línea " + ToText(static_cast<long long>(caret.line)) + u", columna " +
           ToText(caret.column);
    if (const auto& marked = bench_.selection().marked()) {
      name +=
          u", marcadas " + ToText(marked->pos) + u" a " + ToText(marked->pos + marked->size - 1);
    }
    name += u": " + line;
  }
  win32::SetText(lines_, name);
}

void MainWindow::ShowStatus() {
  Text status;
  if (!bench_.HasCapture()) {
    status = u"Sin captura";
  } else {
    status = FromUtf8(bench_.verdicts().counts().Sentence());
    const Verdicts::Progress progress = bench_.verdicts().progress();
    if (!progress.is_done && progress.bytes != 0) {
      status += u"  (revisado " +
                ToText(static_cast<long long>(progress.bytes_done * 100 / progress.bytes)) + u" %)";
    }
    if (const int counted = bench_.PercentCounted(); counted < 100) {
      status += u"  (leído " + ToText(counted) + u" %)";
    }
  }
  win32::SetText(status_, status);
  SetTip(status_, status);
}

void MainWindow::Tell(Text said) {
  win32::SetText(message_, said);
  SetTip(message_, said);
}

void MainWindow::Tell(const Messages& messages) {
  Tell(Said(messages));
}

void MainWindow::Complain(const Messages& messages) {
  if (messages.empty()) return;
  const Text said = Said(messages);
  MessageBoxW(handle(), win32::Wide(said), win32::Wide(Text(kProgramName)), MB_OK | MB_ICONWARNING);
}

// --- messages ---

bool MainWindow::OnEscape() {
  lines_view_.Escape();
  Tell(Text());
  return true;
}

// A field keeps the keys that one edits with.
bool MainWindow::OnKey(const MSG& message) {
  const LRESULT code = SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0);
  const bool is_field = (code & DLGC_HASSETSEL) != 0;
  const bool pastes = message.wParam == 'V' && GetKeyState(VK_CONTROL) < 0;
  if (is_field && pastes && message.hwnd != result_) return false;
  MSG copy = message;
  return keys_ != nullptr && TranslateAcceleratorW(handle(), keys_, &copy) != 0;
}

bool MainWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
  switch (message) {
    case kJudged:
      is_told_ = false;
      lines_view_.Refresh();
      ShowStatus();
      return true;
    case kAsked:
      AskForMark();
      return true;
    case WM_TIMER:
      OnTimer(wparam);
      return true;
    case WM_DROPFILES:
      OnDrop(reinterpret_cast<HDROP>(wparam));
      return true;
    case WM_INITMENUPOPUP:
      ShowCommands(reinterpret_cast<HMENU>(wparam));
      return true;
    case WM_MOUSEWHEEL: {
      // Whatever has the focus, the wheel is for what the pointer is over.
      RECT place{};
      GetWindowRect(lines_, &place);
      if (!PtInRect(&place, {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)})) return false;
      result = SendMessageW(lines_, message, wparam, lparam);
      return true;
    }
    case WM_QUERYENDSESSION:
      // Nobody ends a session over changes that cannot even be kept.
      result = static_cast<LRESULT>(bench_.autosave().Keep(bench_.document()).empty() ||
                                    !bench_.document().IsModified());
      return true;
    default:
      return false;
  }
}

void MainWindow::OnTimer(WPARAM timer) {
  if (timer == kKeepTimer) {
    const Messages said = bench_.autosave().Keep(bench_.document());
    // Once, or it would wipe away what else is said.
    if (!said.empty() && !is_keep_told_) Tell(said);
    is_keep_told_ = !said.empty();
    if (!bench_.LookAtCapture()) return;
    SetTimer(handle(), kCountTimer, USER_TIMER_MINIMUM, nullptr);
    Refresh();
    return;
  }
  const ULONGLONG end = GetTickCount64() + kCountFor;
  bool has_more = true;
  while (has_more && GetTickCount64() < end) has_more = bench_.CountLines();
  if (!has_more) KillTimer(handle(), kCountTimer);
  lines_view_.Refresh();
  ShowStatus();
}

}  // namespace conmuta::taller
