// The workshop's window.
#pragma once

#include <windows.h>

#include <atomic>
#include <filesystem>

#include "taller/win32/layout_pane.h"
#include "taller/win32/lines_view.h"
#include "taller/win32/settings.h"
#include "taller/win32/splitter.h"
#include "taller/workbench.h"
#include "ui/win32/window.h"

namespace conmuta::taller {

inline constexpr TextView kProgramName = u"Taller de conmutadores";

class MainWindow final : public win32::Window {
 public:
  // What it keeps from one run to the next goes into the folder. What a run that did not come to
  // its end has left there is brought back. Disk and clock must live as long.
  MainWindow(Disk& disk, const Clock& clock, std::filesystem::path folder);
  ~MainWindow() override;

  // A capture or a layout, whichever it is.
  void OpenAny(const std::filesystem::path& path);

  Workbench& bench() { return bench_; }
  const LinesView& lines_view() const { return lines_view_; }

 private:
  static constexpr UINT_PTR kCountTimer = 1;

  // --- what is seen ---
  void MakeControls() override;
  SIZE LeastSize(SIZE most) override;
  SIZE OpeningSize(SIZE most) override;
  void Layout(SIZE room) override;
  LONG SplitterWidth() const { return measures().Scale(5); }
  // The panes' lengths in pixels, from what is kept of them.
  LONG LayoutWidth(LONG room) const;
  LONG ResultHeight(LONG room) const;
  void PullAcross(int pixels);
  void PullDown(int pixels);

  void Refresh();  // everything, after a change
  void ShowTitle();
  void ShowResult();     // of the caret's line
  void NamePlace();      // for those who cannot see it
  void ShowStatus();     // the counters
  void Tell(Text said);  // in the line above them; empty for nothing
  void Tell(const Messages& messages);
  void Complain(const Messages& messages);  // about a file, in a box

  // --- what the person does ---
  void OnCommand(int id, int code) override;
  LRESULT OnNotify(const NMHDR& header) override { return layout_pane_.OnNotify(header); }
  bool OnEscape() override;
  bool OnKey(const MSG& message) override;
  bool OnMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) override;
  void OnTimer(WPARAM timer);
  void OnDrop(HDROP drop);
  void ShowCommands(HMENU menu);
  void Leave();

  void AskAndOpenCapture();
  void NewLayout();
  void AskAndOpenLayout();
  void OpenCapture(const std::filesystem::path& path);
  void OpenLayout(const std::filesystem::path& path);
  void OpenRecent(std::size_t index);
  void PasteCapture();
  // Whether the present layout may be left: it has no changes, they were saved, or nobody wants
  // them.
  bool MayLeaveLayout();
  bool Save();
  bool SaveAs();
  void TakeSaved();
  void AskForMark();
  void RemoveAtCaret();
  void GoTo(const std::optional<std::uint64_t>& line, TextView otherwise);
  void ShowReasons();
  void EditHeader();
  void EditCable();
  void ShowReport();
  void ShowLineReport();
  void GoToRemedy();
  void Guess();

  void BringBack();
  void KeepSettings();

  Settings settings_;
  std::atomic<HWND> told_ = nullptr;  // who is told that lines were judged
  std::atomic<bool> is_told_ = false;
  Workbench bench_;
  LinesView lines_view_;
  LayoutPane layout_pane_;
  Splitter across_{Splitter::Direction::kAcross};
  Splitter down_{Splitter::Direction::kDown};
  HMENU menu_ = nullptr;
  HACCEL keys_ = nullptr;
  HANDLE running_ = nullptr;   // tells other runs that this one goes on
  bool is_first_ = true;       // none other was running
  bool is_keep_told_ = false;  // that what is not saved cannot be kept
  Text said_;
  std::optional<std::size_t> shown_revision_;
  std::vector<LineKind> reasons_;  // of the menu that is open

  HWND lines_ = nullptr;
  HWND result_ = nullptr;
  HWND across_bar_ = nullptr;
  HWND down_bar_ = nullptr;
  HWND message_ = nullptr;
  HWND status_ = nullptr;
};

}  // namespace conmuta::taller
