// Where a command reads and writes, handed in so that tests can look.
#pragma once

#include <istream>
#include <ostream>

namespace conmuta::host {

// All text is UTF-8, and lines end with LF unless a format says otherwise.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool out_is_terminal = false;  // nothing that would steer one is written to it
  bool err_is_terminal = false;
  bool out_has_colours = false;  // a terminal that knows the usual sequences, and may show them
};

}  // namespace conmuta::host
