// A line as a PBX sent it.
#pragma once

#include <cstdint>
#include <string>

namespace conmuta::capture {

// As it is stored: the values stay.
enum class Wholeness : std::uint8_t {
  kWhole = 0,
  kCut = 1,   // a piece of a line that is longer than any line may be
  kTorn = 2,  // the connection ended before the line did
  kHead = 3,  // no line of the PBX's, but one in front of them in a file, which tells of them
};

// What comes before the store can be asked how far it is gets numbers from here on, all below zero.
// They only tell the order; the line's own number comes later.
inline constexpr std::int64_t kUnnumbered = -(std::int64_t{1} << 62);

struct Received {
  std::int64_t number = 0;   // within its source, from 1
  std::int64_t time_ms = 0;  // since 1970, UTC
  Wholeness wholeness = Wholeness::kWhole;
  std::string bytes;  // all between two line ends, control bytes too
  std::string place;  // where a source that can be read again goes on after this line
};

// A line of one of several sources, which are counted from 0.
struct Arrival {
  std::size_t source = 0;
  Received line;
};

// What is counted of a source beside its lines. As they are stored: the values stay.
enum class Incident : std::uint8_t {
  kFraming = 1,
  kParity = 2,
  kOverrun = 3,
  kConnectionLost = 4,
  kConnectionDropped = 5,  // to make room for another
  kSpilled = 6,
  kLost = 7,
  kUnprintable = 8,
};

}  // namespace conmuta::capture
