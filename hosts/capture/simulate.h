// A PBX that is not there: `conmuta captura --simula`.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "capture/address.h"

namespace conmuta::capture {

struct SimulateOptions {
  std::string capture;            // a file with a head
  std::string to;                 // an address, or "pty"
  std::optional<unsigned> speed;  // bits a second instead of the head's; 0 as fast as it goes
};

// Plays the lines of a capture once. kUsage for a capture without a head or a wrong address,
// kFailed when the other end goes away.
int Simulate(const SimulateOptions& options, std::ostream& err);

}  // namespace conmuta::capture
