// The layout that is being worked on.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "layouts/edit_layout.h"
#include "taller/disk.h"
#include "taller/history.h"
#include "taller/layout_files.h"
#include "taller/message.h"

namespace conmuta::taller {

// Is the text of a layout file at all times, whatever file it came from: what a person wrote into
// it stays. What cannot be changes nothing and is said.
class Document {
 public:
  // A new one, of a brand and model that have yet to be named.
  Document();

  const std::string& toml() const { return history_.present().toml; }
  const layouts::Layout& layout() const { return history_.present().layout; }
  // Another number after each change of the two.
  std::size_t revision() const { return history_.revision(); }

  // "Panasonic, KX-TD1232", with " *" while there are changes that no file has.
  Text Title() const;
  bool IsModified() const { return !history_.IsSaved(); }

  // Empty for one that has no file yet.
  const std::filesystem::path& path() const { return path_; }
  Format format() const { return format_; }

  // Typing goes on being one step while it is the same thing that is typed.
  enum class As : std::uint8_t { kStep, kTyping };
  [[nodiscard]] Messages Apply(const layouts::LayoutChange& change, As as = As::kStep);
  // All of them as one step, or none.
  [[nodiscard]] Messages Apply(std::span<const layouts::LayoutChange> changes, Text name);
  // Another text in its place, which can be undone like any change.
  [[nodiscard]] Messages Replace(std::string toml, Text name);
  // What is typed from now on is another step.
  void EndTyping() { history_.EndRun(); }

  const Text UndoName() const { return history_.UndoName(); }
  const Text RedoName() const { return history_.RedoName(); }
  bool CanUndo() const { return history_.CanUndo(); }
  bool CanRedo() const { return history_.CanRedo(); }
  void Undo() { history_.Undo(); }
  void Redo() { history_.Redo(); }

  void New();
  [[nodiscard]] Messages Open(Disk& disk, const std::filesystem::path& path);
  // Where it has a file.
  [[nodiscard]] Messages Save(Disk& disk) { return SaveAs(disk, path_, format_); }
  [[nodiscard]] Messages SaveAs(Disk& disk, const std::filesystem::path& path, Format format);

  // What the layout says and no translator can do, by the item or constant that says it.
  Messages Doubts() const;

 private:
  struct State {
    std::string toml;
    layouts::Layout layout;
  };
  static State NewState();

  Messages Add(std::string toml, Text name, std::string run);

  History<State> history_;
  std::filesystem::path path_;
  Format format_ = Format::kLayout;
};

// What a change is called where it can be undone: "FechaMes".
Text NameOf(const layouts::LayoutChange& change);

}  // namespace conmuta::taller
