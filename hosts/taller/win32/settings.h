// What the window keeps from one run to the next.
#pragma once

#include <filesystem>

namespace conmuta::taller {

// In a file of the program's folder. That it cannot be read or written bothers nobody.
class Settings {
 public:
  explicit Settings(const std::filesystem::path& folder);

  // Of the window, in pixels at 96 dots per inch; 0 where nobody has chosen.
  int width = 0;
  int height = 0;
  bool maximised = false;
  // Of the panes to the right and below, in the same measure.
  int layout_width = 0;
  int result_height = 0;
  int zoom = 0;

  // What was open when a run did not come to its end; empty after one that did.
  std::filesystem::path layout;
  std::filesystem::path capture;
  bool ended = true;

  void Write() const;

 private:
  std::filesystem::path file_;
};

}  // namespace conmuta::taller
