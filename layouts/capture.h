// Reading capture.txt: what a switch printed, and how it was taken.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "layouts/mistake.h"
#include "platform/calendar.h"

namespace conmuta::layouts {

struct CaptureLine {
  int number = 0;  // in the file, from 1
  Text text;       // as a host hands it to the component
};

struct Capture {
  Text switch_name;
  CivilDate date{};  // on which it was taken
  int speed = 0;     // bits a second
  Text framing;      // "8N1"
  std::vector<Text> sources;
  std::vector<CaptureLine> lines;
};

struct CaptureReading {
  std::optional<Capture> capture;  // when there is no mistake
  std::vector<Mistake> mistakes;   // by place
};

// Takes any bytes. `file` is what mistakes call them.
CaptureReading ReadCapture(std::string_view bytes, TextView file = u"capture.txt");

}  // namespace conmuta::layouts
