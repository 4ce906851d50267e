// The files of the workshop's window, and what it keeps from one run to the next.
#include <windows.h>

#include <shellapi.h>

#include "conmuta/utf8.h"
#include "taller/win32/file_dialogs.h"
#include "taller/win32/main_window.h"

namespace conmuta::taller {
namespace {

constexpr std::uintmax_t kMostOfLayout = 1 << 20;  // bytes; what is larger is a capture

}  // namespace

void MainWindow::AskAndOpenCapture() {
  if (const auto path = AskForCapture(handle())) OpenCapture(*path);
}

void MainWindow::OpenCapture(const std::filesystem::path& path) {
  const Messages said = bench_.OpenCapture(path);
  if (!said.empty()) return Complain(said);
  Tell(u"Captura: " + path.u16string());
  settings_.capture = path;
  KeepSettings();
  SetTimer(handle(), kCountTimer, USER_TIMER_MINIMUM, nullptr);
  lines_view_.ShowCaretLine();
  SetFocus(lines_);
  Refresh();
}

void MainWindow::PasteCapture() {
  std::string bytes;
  if (!OpenClipboard(handle())) return;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* text = static_cast<const char16_t*>(GlobalLock(data))) {
      bytes = host::Utf8(TextView(text));
      GlobalUnlock(data);
    }
  }
  CloseClipboard();
  if (bytes.empty()) return Tell(Text(u"El portapapeles no tiene texto."));
  bench_.PasteCapture(std::move(bytes));
  settings_.capture.clear();
  KeepSettings();
  Tell(Text());
  SetTimer(handle(), kCountTimer, USER_TIMER_MINIMUM, nullptr);
  Refresh();
}

void MainWindow::OnDrop(HDROP drop) {
  const UINT files = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  std::vector<std::filesystem::path> paths;
  for (UINT i = 0; i < files; ++i) {
    std::wstring name(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
    name.resize(DragQueryFileW(drop, i, name.data(), static_cast<UINT>(name.size())));
    paths.emplace_back(name);
  }
  DragFinish(drop);
  for (const auto& path : paths) OpenAny(path);
}

// --- layouts ---

void MainWindow::NewLayout() {
  if (!MayLeaveLayout()) return;
  bench_.document().New();
  settings_.layout.clear();
  KeepSettings();
  Refresh();
}

void MainWindow::AskAndOpenLayout() {
  if (!MayLeaveLayout()) return;
  const auto path = AskForLayout(handle());
  if (!path) return;
  // While a person chose, what is not wanted was kept again.
  bench_.autosave().Discard(bench_.document().path());
  OpenLayout(*path);
}

void MainWindow::OpenAny(const std::filesystem::path& path) {
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(path, unknown);
  bool is_layout = FormatOf(path).has_value();
  if (!is_layout && !unknown && size <= kMostOfLayout) {
    try {
      is_layout = ReadFile(bench_.disk().Read(path), path.filename().u16string()).format ==
                  Format::kConfiguration;
    } catch (const std::exception&) {
      is_layout = false;  // as a capture it says why it cannot be read
    }
  }
  if (!is_layout) return OpenCapture(path);
  if (MayLeaveLayout()) OpenLayout(path);
}

void MainWindow::OpenLayout(const std::filesystem::path& path) {
  const Workbench::Opening opening = bench_.OpenLayout(path);
  if (!opening.messages.empty()) {
    bench_.recent().Remove(path);
    return Complain(opening.messages);
  }
  bench_.recent().Add(path);
  settings_.layout = path;
  KeepSettings();
  Tell(opening.recovered ? Text(u"Se recuperó lo que no se había guardado. Deshacer lo quita.")
                         : Text());
  Refresh();
}

void MainWindow::OpenRecent(std::size_t index) {
  const auto& paths = bench_.recent().paths();
  if (index >= paths.size() || !MayLeaveLayout()) return;
  const std::filesystem::path path = paths[index];  // the list changes meanwhile
  OpenLayout(path);
}

bool MainWindow::MayLeaveLayout() {
  bench_.document().EndTyping();
  if (!bench_.document().IsModified()) return true;
  Text name = bench_.document().Title();
  name.resize(name.size() - 2);  // without its mark
  const Text question = u"¿Guardar los cambios de " + name + u"?";
  switch (MessageBoxW(handle(), win32::Wide(question), win32::Wide(Text(kProgramName)),
                      MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
      return Save();
    case IDNO:
      // Who opens the file again wants what is in it.
      bench_.autosave().Discard(bench_.document().path());
      return true;
    default:
      return false;
  }
}

bool MainWindow::Save() {
  Document& document = bench_.document();
  if (document.path().empty()) return SaveAs();
  document.EndTyping();
  const Messages said = document.Save(bench_.disk());
  Complain(said);
  if (said.empty()) TakeSaved();
  Refresh();
  return said.empty();
}

bool MainWindow::SaveAs() {
  Document& document = bench_.document();
  const auto target = AskWhereToSave(handle(), document.path(), document.format());
  if (!target) return false;
  document.EndTyping();
  const Messages said = document.SaveAs(bench_.disk(), target->path, target->format);
  Complain(said);
  if (said.empty()) TakeSaved();
  Refresh();
  return said.empty();
}

// What has been saved needs no copy.
void MainWindow::TakeSaved() {
  const std::filesystem::path& path = bench_.document().path();
  Tell(u"Se guardó " + path.u16string());
  bench_.recent().Add(path);
  settings_.layout = path;
  KeepSettings();
  if (const Messages kept = bench_.autosave().Keep(bench_.document()); !kept.empty()) Tell(kept);
}

// --- from one run to the next ---

// Files of a run that has ended as it should are only kept in the list of recent ones.
void MainWindow::BringBack() {
  if (!is_first_) return;
  const bool ended = settings_.ended;
  const auto layout = ended ? std::filesystem::path() : settings_.layout;
  const auto capture = ended ? std::filesystem::path() : settings_.capture;
  settings_.layout.clear();
  settings_.capture.clear();
  if (!capture.empty() && bench_.disk().Exists(capture)) OpenCapture(capture);
  if (!layout.empty() && bench_.disk().Exists(layout)) {
    OpenLayout(layout);
  } else if (bench_.Recover()) {
    Tell(Text(u"Se recuperó lo que no se había guardado. Deshacer lo quita."));
  }
  KeepSettings();
}

void MainWindow::KeepSettings() {
  settings_.ended = false;
  settings_.Write();
}

void MainWindow::Leave() {
  if (!MayLeaveLayout()) return;
  bench_.autosave().Discard(bench_.document().path());
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(handle(), &placement);
  settings_.maximised = IsZoomed(handle()) != 0;
  const RECT& place = placement.rcNormalPosition;
  const SIZE frame = OuterOf({0, 0});
  const auto unscaled = [this](LONG pixels) {
    return MulDiv(static_cast<int>(pixels), 15, measures().line());
  };
  settings_.width = unscaled(place.right - place.left - frame.cx);
  settings_.height = unscaled(place.bottom - place.top - frame.cy);
  settings_.zoom = lines_view_.zoom();
  settings_.ended = true;
  settings_.Write();
  Close();
}

}  // namespace conmuta::taller
