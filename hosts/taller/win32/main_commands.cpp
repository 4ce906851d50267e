// What the commands of the workshop's window do.
#include <algorithm>
#include <array>
#include <string>

#include "conmuta/layout_choice.h"
#include "layouts/layout_config.h"
#include "platform/platform.h"
#include "taller/guesses.h"
#include "taller/said.h"
#include "taller/win32/commands.h"
#include "taller/win32/guess_window.h"
#include "taller/win32/header_window.h"
#include "taller/win32/main_window.h"
#include "taller/win32/offer_window.h"
#include "ui/reports.h"
#include "ui/win32/cable_window.h"
#include "ui/win32/info_window.h"

namespace conmuta::taller {
namespace {

constexpr int kZoomStep = 10;
constexpr std::size_t kMostReasons = 90;

struct Going {
  int command;
  Counter counter;
  bool forward;
  TextView otherwise;  // when there is none
};
constexpr Going kGoings[] = {
    {kNextCall, Counter::Calls(), true, u"No hay otra llamada más adelante."},
    {kPreviousCall, Counter::Calls(), false, u"No hay otra llamada antes."},
    {kNextNoCall, Counter::NoCalls(), true, u"No hay otra línea sin llamada más adelante."},
    {kPreviousNoCall, Counter::NoCalls(), false, u"No hay otra línea sin llamada antes."},
    {kNextError, Counter::Errors(), true, u"No hay otro error más adelante."},
    {kPreviousError, Counter::Errors(), false, u"No hay otro error antes."},
};

void SetCommand(HMENU menu, int command, bool enabled) {
  EnableMenuItem(menu, static_cast<UINT>(command),
                 MF_BYCOMMAND | static_cast<UINT>(enabled ? MF_ENABLED : MF_GRAYED));
}

}  // namespace

void MainWindow::OnCommand(int id, int code) {
  if (layout_pane_.OnCommand(id, code)) return;
  if (id >= kRecent && id < kRecent + static_cast<int>(RecentFiles::kMost)) {
    return OpenRecent(static_cast<std::size_t>(id - kRecent));
  }
  for (const Going& going : kGoings) {
    if (going.command != id || !bench_.HasCapture()) continue;
    const std::uint64_t line = bench_.selection().caret().line;
    const Verdicts& verdicts = bench_.verdicts();
    return GoTo(
        going.forward ? verdicts.Next(going.counter, line) : verdicts.Previous(going.counter, line),
        going.otherwise);
  }
  Document& document = bench_.document();
  switch (id) {
    case kOpenCapture:
      return AskAndOpenCapture();
    case kNewLayout:
      return NewLayout();
    case kOpenLayout:
      return AskAndOpenLayout();
    case kSaveLayout:
      Save();
      return;
    case kSaveLayoutAs:
      SaveAs();
      return;
    case kExit:
    case IDCANCEL:
      return Leave();
    case kUndo:
      document.Undo();
      return Refresh();
    case kRedo:
      document.Redo();
      return Refresh();
    case kPasteCapture:
      return PasteCapture();
    case kRemoveAtCaret:
      return RemoveAtCaret();
    case kEditHeader:
      return EditHeader();
    case kEditCable:
      return EditCable();
    case kZoomIn:
      return lines_view_.Zoom(lines_view_.zoom() + kZoomStep);
    case kZoomOut:
      return lines_view_.Zoom(lines_view_.zoom() - kZoomStep);
    case kZoomUsual:
      return lines_view_.Zoom(LinesView::kUsualZoom);
    case kShowAllItems:
      return layout_pane_.ShowAll(!layout_pane_.shows_all());
    case kShowReport:
      return ShowReport();
    case kAskForMark:
      if (!bench_.selection().marked()) bench_.selection().Extend(1);
      lines_view_.ShowCaretLine();
      return AskForMark();
    case kShowReasons:
      return ShowReasons();
    case kStatusLine:
      if (code == STN_CLICKED) ShowReasons();
      return;
    case kGoToRemedy:
      return GoToRemedy();
    case kShowLineReport:
      return ShowLineReport();
    case kGuess:
      return Guess();
    case kShowAbout: {
      const Text said =
          u"Taller de conmutadores " CONMUTA_TALLER_VERSION
          u"\r\n\r\nDiga qué hay en cada columna de las líneas que imprime un conmutador y guarde "
          u"la configuración con la que se traducen.";
      MessageBoxW(handle(), win32::Wide(said), win32::Wide(Text(kProgramName)),
                  MB_OK | MB_ICONINFORMATION);
      return;
    }
    default:
      return;
  }
}

void MainWindow::ShowCommands(HMENU menu) {
  const Document& document = bench_.document();
  const bool has_capture = bench_.HasCapture();
  SetCommand(menu_, kUndo, document.CanUndo());
  SetCommand(menu_, kRedo, document.CanRedo());
  for (const int command : {+kAskForMark, +kShowReasons, +kGuess, +kShowLineReport}) {
    SetCommand(menu_, command, has_capture);
  }
  for (const Going& going : kGoings) SetCommand(menu_, going.command, has_capture);
  const auto result = bench_.ResultOfLine();
  SetCommand(menu_, kGoToRemedy, result && result->remedy);
  SetCommand(menu_, kRemoveAtCaret, !bench_.NamesAt(bench_.selection().caret().column).empty());
  CheckMenuItem(menu_, kShowAllItems,
                static_cast<UINT>(layout_pane_.shows_all() ? MF_CHECKED : MF_UNCHECKED));
  const auto name = [&](int command, TextView verb, const Text& what, TextView key) {
    const Text text = Text(verb) + (what.empty() ? Text() : u" " + what) + Text(key);
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STRING;
    item.dwTypeData = const_cast<wchar_t*>(win32::Wide(text));
    SetMenuItemInfoW(menu_, static_cast<UINT>(command), FALSE, &item);
  };
  name(kUndo, u"&Deshacer", document.CanUndo() ? document.UndoName() : Text(), u"\tCtrl+Z");
  name(kRedo, u"&Rehacer", document.CanRedo() ? document.RedoName() : Text(), u"\tCtrl+Y");
  const HMENU recent = RecentMenuOf(menu_);
  if (menu != recent) return;
  while (GetMenuItemCount(recent) > 0) DeleteMenu(recent, 0, MF_BYPOSITION);
  const auto& paths = bench_.recent().paths();
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const Text text = u"&" + ToText(static_cast<long long>((i + 1) % 10)) + u"  " +
                      win32::WithVisibleAmpersands(paths[i].u16string());
    AppendMenuW(recent, MF_STRING, static_cast<UINT_PTR>(kRecent) + i, win32::Wide(text));
  }
  if (paths.empty()) AppendMenuW(recent, MF_STRING | MF_GRAYED, 0, L"(ninguno)");
}

// --- lines ---

void MainWindow::AskForMark() {
  const auto& marked = bench_.selection().marked();
  if (!bench_.HasCapture() || !marked) return;
  const int last = marked->pos + marked->size - 1;
  Text caption = marked->size == 1
                     ? u"¿Qué es la columna " + ToText(marked->pos)
                     : u"¿Qué son las columnas " + ToText(marked->pos) + u" a " + ToText(last);
  caption += u"?";
  const std::vector<Offer> offers = bench_.OffersForMark();
  std::optional<SlotKind> chosen;
  AskForOffer(caption, offers, lines_view_.PlaceOfMark(), [&](const SlotKind& kind) {
    Messages said = bench_.Choose(kind);
    if (said.empty()) chosen = kind;
    return said;
  });
  SetFocus(lines_);
  if (!chosen) return;
  bench_.selection().Unmark();
  Refresh();
  layout_pane_.Select(*chosen);
}

void MainWindow::RemoveAtCaret() {
  Tell(bench_.RemoveAtCaret());
  Refresh();
}

void MainWindow::GoTo(const std::optional<std::uint64_t>& line, TextView otherwise) {
  if (!line) return Tell(Text(otherwise));
  Tell(Text());
  Selection& selection = bench_.selection();
  selection.Move(
      static_cast<std::int64_t>(*line) - static_cast<std::int64_t>(selection.caret().line), 0);
  lines_view_.ShowCaretLine();
  ShowResult();
}

// What the figures of the status line are made of; a choice goes to the next such line.
void MainWindow::ShowReasons() {
  if (!bench_.HasCapture()) return;
  reasons_.clear();
  const HMENU menu = CreatePopupMenu();
  const LineCounts counts = bench_.verdicts().counts();
  for (const Counter counter : {Counter::Calls(), Counter::NoCalls(), Counter::Errors()}) {
    const auto parts = counts.PartsOf(counter);
    if (!parts.empty() && !reasons_.empty()) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    for (const LineCounts::Part& part : parts) {
      if (reasons_.size() == kMostReasons) break;
      const Text text = ToText(static_cast<long long>(part.lines)) + u"  " +
                        win32::WithVisibleAmpersands(part.sentence);
      AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(kReasons) + reasons_.size(),
                  win32::Wide(text));
      reasons_.push_back(part.kind);
    }
  }
  RECT place{};
  GetWindowRect(GetDlgItem(handle(), kStatusLine), &place);
  const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_BOTTOMALIGN, place.left, place.top, 0,
                                    handle(), nullptr);
  DestroyMenu(menu);
  const auto index = static_cast<std::size_t>(chosen - kReasons);
  if (chosen < kReasons || index >= reasons_.size()) return;
  const Counter counter = Counter::Of(reasons_[index]);
  const auto next = bench_.verdicts().Next(counter, bench_.selection().caret().line);
  // Behind the last one comes the first.
  GoTo(next ? next : bench_.verdicts().Next(counter, 0), {});
}

// --- the layout as a whole ---

void MainWindow::EditHeader() {
  if (AskForHeader(bench_.document())) Refresh();
}

void MainWindow::EditCable() {
  const layouts::Layout& layout = bench_.document().layout();
  const auto config = host::MakeConfig(layout);
  config->EDConfigSeriales(true, win32::MakeCableView);
  const Wiring before = layout.header.Cables;
  const Wiring after = layouts::LayoutOf(*config).header.Cables;
  std::vector<layouts::LayoutChange> changes;
  for (int code = emPuertoSerialDB9DB9; code <= emPuertoSerialDB25DB25; ++code) {
    const auto pair = static_cast<emPuertoSerial>(code);
    for (int pin = 1; pin <= LeftPins(pair); ++pin) {
      const WiringMask mask = after.Table(pair)[static_cast<std::size_t>(pin)];
      if (mask == before.Table(pair)[static_cast<std::size_t>(pin)]) continue;
      changes.push_back(layouts::SetWires{pair, pin, mask});
    }
  }
  if (!changes.empty()) Tell(bench_.document().Apply(changes, u"Cable"));
  Refresh();
}

void MainWindow::ShowReport() {
  const auto config = host::MakeConfig(bench_.document().layout());
  MostrarInformacionConfiguracion(*config, win32::MakeInfoView);
}

// Of the line alone: what the component says of what it has just translated.
void MainWindow::ShowLineReport() {
  if (!bench_.HasCapture()) return;
  const auto config = host::MakeConfig(bench_.document().layout());
  const Platform& platform = SystemPlatform();
  clsTradEST translator(platform.clock);
  translator.Conmutador(config.get());
  static_cast<void>(translator.Translate(bench_.LineAt(bench_.selection().caret().line).text));
  MuestraInfoTrad(translator, SystemMonthNames(), win32::MakeInfoView);
}

void MainWindow::GoToRemedy() {
  const auto result = bench_.ResultOfLine();
  if (!result || !result->remedy) return;
  layout_pane_.Select(*result->remedy);
  SetFocus(GetDlgItem(handle(), kLayoutPos));
}

void MainWindow::Guess() {
  if (!bench_.HasCapture()) return;
  const auto chosen = AskForGuess(bench_.capture().bytes());
  if (!chosen) return;
  Complain(Take(bench_.document(), *chosen));
  Refresh();
}

}  // namespace conmuta::taller
