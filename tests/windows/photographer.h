// Takes pictures of windows as the screen shows them.
#pragma once

#include <string>
#include <vector>

#include "person.h"

namespace conmuta::test {

// How many pictures are taken: some of each kind of window, each state of it that looks different,
// or all that are worth a look.
enum class Extent { kFew, kUsual, kAll };

class Photographer {
 public:
  // A state that a person brings a window into, and the name of its picture.
  struct Pose {
    Extent extent;
    std::wstring name;
    std::function<void(const Person& person, HWND window)> strike = [](const Person&, HWND) {};
  };

  // Pictures go into the folder, as bitmaps of the client areas.
  Photographer(std::wstring folder, Extent extent) : folder_(std::move(folder)), extent_(extent) {}

  int taken() const { return taken_; }
  int missed() const { return missed_; }

  // Opens a window, which has to be without a flaw, and takes its picture in each pose.
  void Take(TextView caption, const std::function<void()>& open, std::vector<Pose> poses);

 private:
  void Shoot(const Person& person, HWND window, const std::wstring& name);

  std::wstring folder_;
  Extent extent_;
  HostThread host_;
  int taken_ = 0;
  int missed_ = 0;
};

}  // namespace conmuta::test
