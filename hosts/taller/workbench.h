// What lies on the bench: a layout, a capture, and where the person is in it.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "taller/autosave.h"
#include "taller/capture_text.h"
#include "taller/document.h"
#include "taller/explainer.h"
#include "taller/offers.h"
#include "taller/recent_files.h"
#include "taller/selection.h"
#include "taller/shown_line.h"
#include "taller/verdicts.h"

namespace conmuta::taller {

// All that a window of the workshop shows and does; it knows no toolkit.
class Workbench {
 public:
  // Files of the program's own go into the folder. `told` is called by another thread when more
  // lines have been judged. Disk and clock must live as long.
  Workbench(Disk& disk, const Clock& clock, std::filesystem::path folder,
            std::function<void()> told);

  const std::filesystem::path& folder() const { return folder_; }
  Disk& disk() { return disk_; }
  Document& document() { return document_; }
  const Document& document() const { return document_; }
  Selection& selection() { return selection_; }
  const Selection& selection() const { return selection_; }
  Verdicts& verdicts() { return verdicts_; }
  const Verdicts& verdicts() const { return verdicts_; }
  RecentFiles& recent() { return recent_; }
  Autosave& autosave() { return autosave_; }

  // --- the capture ---

  bool HasCapture() const { return capture_ != nullptr; }
  const CaptureText& capture() const { return *capture_; }
  // Of the file that it is in; empty for one that was pasted.
  const std::filesystem::path& capture_path() const { return capture_path_; }
  [[nodiscard]] Messages OpenCapture(const std::filesystem::path& path);
  void PasteCapture(std::string bytes);
  // Opens the capture's file anew where it has changed; whether it had. The caret stays.
  bool LookAtCapture();
  // Counts some more of its lines; whether there are more.
  bool CountLines();
  std::uint64_t lines() const { return capture_ ? capture_->lines() : 0; }
  // How far the counting has come, of 100.
  int PercentCounted() const;
  // Empty where there is no such line.
  ShownLine LineAt(std::uint64_t number) const;
  // What the component makes of the caret's line; nothing without a capture.
  std::optional<Result> ResultOfLine() const;

  // --- the layout ---

  // Has all lines judged anew when the layout is another one than at the last time.
  void JudgeChanges();
  // A layout in place of the present one, with the copy that a crash left of it, if any.
  struct Opening {
    Messages messages;
    bool recovered = false;
  };
  [[nodiscard]] Opening OpenLayout(const std::filesystem::path& path);
  // What a crash left of a layout without a file; whether there was something.
  bool Recover();

  // --- marked columns ---

  // What the marked columns can be, likeliest first.
  std::vector<Offer> OffersForMark() const;
  [[nodiscard]] Messages Choose(const SlotKind& kind);
  // What a column is, with commas; empty for one that is nothing.
  Text NamesAt(int column) const;
  // Takes the items and constants out of the layout that have the caret's column.
  [[nodiscard]] Messages RemoveAtCaret();

 private:
  void Show(std::shared_ptr<const CaptureBytes> bytes, std::filesystem::path path);
  std::vector<Text> Samples() const;

  Disk& disk_;
  const Explainer explainer_;
  const std::filesystem::path folder_;
  Document document_;
  std::unique_ptr<CaptureText> capture_;
  std::shared_ptr<FileBytes> capture_file_;  // none for one that was pasted
  std::filesystem::path capture_path_;
  Selection selection_;
  RecentFiles recent_;
  Autosave autosave_;
  std::optional<std::size_t> judged_revision_;
  Verdicts verdicts_;  // last: its thread ends before the rest goes
};

}  // namespace conmuta::taller
