#include "taller/workbench.h"

#include <algorithm>

#include "conmuta/user_error.h"
#include "taller/column_marks.h"

namespace conmuta::taller {
namespace {

constexpr std::uint64_t kSamples = 200;  // lines that tell what columns can be

// Of all that have a column.
template <class Take>
void ForEachAt(const layouts::Layout& layout, int column, Take take) {
  for (const ColumnMark& mark : MarksOf(layout)) {
    if (column < mark.pos || column >= mark.pos + mark.size) continue;
    for (const SlotKind& kind : mark.kinds) take(kind);
  }
}

}  // namespace

Workbench::Workbench(Disk& disk, const Clock& clock, std::filesystem::path folder,
                     std::function<void()> told)
    : disk_(disk),
      explainer_(clock),
      folder_(std::move(folder)),
      recent_(disk, folder_ / "recientes.txt"),
      autosave_(disk, folder_),
      verdicts_(clock, std::move(told)) {}

// --- the capture ---

Messages Workbench::OpenCapture(const std::filesystem::path& path) {
  try {
    auto file = std::make_shared<FileBytes>(path);
    Show(file, path);
    capture_file_ = std::move(file);
  } catch (const host::UserError& error) {
    return {MessageOf(error.what())};
  }
  return {};
}

void Workbench::PasteCapture(std::string bytes) {
  capture_file_.reset();
  Show(std::make_shared<MemoryBytes>(MemoryBytes::Kind::kPasted, std::move(bytes)), {});
}

bool Workbench::LookAtCapture() {
  if (!capture_file_) return false;
  const FileBytes::Change change = capture_file_->Look();
  if (change == FileBytes::Change::kNone || change == FileBytes::Change::kGone) return false;
  const Selection kept = selection_;
  if (!OpenCapture(capture_path_).empty()) return false;
  while (lines() <= kept.caret().line && CountLines()) {
  }
  selection_ = kept;
  selection_.SetLines(lines());
  return true;
}

void Workbench::Show(std::shared_ptr<const CaptureBytes> bytes, std::filesystem::path path) {
  capture_ = std::make_unique<CaptureText>(std::move(bytes));
  capture_path_ = std::move(path);
  selection_ = Selection();
  judged_revision_.reset();
  CountLines();  // the first ones are there at once
  selection_.Move(static_cast<std::int64_t>(capture_->head_lines()), 0);
  JudgeChanges();
}

bool Workbench::CountLines() {
  if (!capture_) return false;
  const bool has_more = capture_->Step();
  selection_.SetLines(capture_->lines());
  return has_more;
}

int Workbench::PercentCounted() const {
  if (!capture_ || capture_->bytes()->size() == 0) return 100;
  return static_cast<int>(capture_->bytes_seen() * 100 / capture_->bytes()->size());
}

ShownLine Workbench::LineAt(std::uint64_t number) const {
  return capture_ ? taller::Show(capture_->Line(number)) : ShownLine();
}

std::optional<Result> Workbench::ResultOfLine() const {
  const std::uint64_t line = selection_.caret().line;
  if (line > lines()) return std::nullopt;
  return explainer_.Explain(*capture_, document_.layout(), line, verdicts_.RestBefore(line));
}

// --- the layout ---

void Workbench::JudgeChanges() {
  if (!capture_ || judged_revision_ == document_.revision()) return;
  judged_revision_ = document_.revision();
  verdicts_.Judge(capture_->bytes(), document_.layout());
}

Workbench::Opening Workbench::OpenLayout(const std::filesystem::path& path) {
  Opening opening{document_.Open(disk_, path)};
  if (!opening.messages.empty()) return opening;
  opening.recovered = autosave_.HasCopyOf(path) && autosave_.Restore(document_).empty();
  return opening;
}

bool Workbench::Recover() {
  return autosave_.HasCopyOf({}) && autosave_.Restore(document_).empty();
}

// --- marked columns ---

// The lines around the marked one: what a switch prints changes over the years.
std::vector<Text> Workbench::Samples() const {
  const std::uint64_t head = capture_->head_lines();
  const std::uint64_t line = selection_.caret().line;
  const std::uint64_t first = std::max(head, line - std::min(line, kSamples / 2)) + 1;
  std::vector<Text> samples;
  for (std::uint64_t n = first; n < first + kSamples && n <= capture_->lines(); ++n) {
    samples.push_back(LineAt(n).text);
  }
  return samples;
}

std::vector<Offer> Workbench::OffersForMark() const {
  if (!capture_ || !selection_.marked()) return {};
  const Marked& marked = *selection_.marked();
  return OffersFor(marked, LineAt(marked.line).text, Samples(), document_.layout());
}

Messages Workbench::Choose(const SlotKind& kind) {
  if (!selection_.marked()) return {};
  const Marked marked = *selection_.marked();
  return taller::Choose(document_, kind, marked, LineAt(marked.line).text);
}

Text Workbench::NamesAt(int column) const {
  Text names;
  ForEachAt(document_.layout(), column, [&](const SlotKind& kind) {
    if (!names.empty()) names += u", ";
    names += NameOf(kind);
  });
  return names;
}

Messages Workbench::RemoveAtCaret() {
  std::vector<layouts::LayoutChange> changes;
  ForEachAt(document_.layout(), selection_.caret().column, [&](const SlotKind& kind) {
    if (const auto* item = std::get_if<emParamDato>(&kind)) {
      changes.push_back(layouts::RemoveItem{*item});
    } else {
      changes.push_back(layouts::RemoveConstant{std::get<emParamDatoConstante>(kind)});
    }
  });
  if (changes.empty()) return {};
  return document_.Apply(changes, u"Quitar " + NameOf(changes.front()));
}

}  // namespace conmuta::taller
