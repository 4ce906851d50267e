// The lines at the head of a capture that say how it was taken.
#pragma once

#include <optional>
#include <string_view>

#include "platform/calendar.h"

namespace conmuta::host {

// "# clave: valor", only where they begin the capture.
class CaptureHead {
 public:
  // Whether the next line belongs to the head. Once one does not, none does.
  bool Take(std::string_view line);

  // The day on which the capture was taken, if the head says so.
  std::optional<CivilDate> date() const { return date_; }

 private:
  bool open_ = true;
  std::optional<CivilDate> date_;
};

}  // namespace conmuta::host
