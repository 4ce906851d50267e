// A text that a person wrote, and the few places where it is to be changed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "layouts/place.h"

namespace conmuta::layouts {

// The place behind all of the text, which ends with a whole character.
Place PlaceBehind(std::string_view text);

// Changes are collected, by places of the text as it was, and must not overlap. All bytes between
// them stay.
class SourceText {
 public:
  explicit SourceText(std::string_view text);

  std::string_view At(Extent extent) const;
  char First(Place place) const;  // NUL at the end of the text

  void Replace(Extent extent, std::string by);
  void Insert(Place place, std::string what) { Replace({place, place}, std::move(what)); }

  // Whole lines, from 1. What the text ends with, a line end or not, it still ends with.
  void RemoveLines(int first, int last);
  // Behind the line of that number, 0 for before the first, and indented like it if it has text of
  // its own to go by; with line ends as the text has them.
  void InsertLine(int after, std::string_view line);
  // At the end of the text, after a blank line.
  void AppendLines(std::initializer_list<std::string_view> lines);

  // The text with all changes.
  std::string Changed() const;

 private:
  struct Change {
    std::size_t begin;
    std::size_t end;
    std::string by;
  };

  std::size_t Offset(Place place) const;
  // Where a line begins; the end of the text for one behind the last.
  std::size_t Begin(int line) const;

  std::string_view text_;
  std::vector<std::size_t> begins_;  // of the lines
  std::string line_end_;
  std::vector<Change> changes_;
};

}  // namespace conmuta::layouts
