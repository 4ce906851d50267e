#include "conmuta/line_source.h"

#include <algorithm>

#include "conmuta/day.h"

namespace conmuta::host {

std::size_t LineSource::Fill() {
  // What is there, without waiting until the room is full: a switch prints when somebody hangs up.
  // Of a file all of it is, and comes without going through the stream's own, smaller room.
  const auto room = static_cast<std::streamsize>(chunk_.size());
  const std::streamsize ready = bytes_.good() ? bytes_.rdbuf()->in_avail() : 0;
  if (ready > 0) {
    bytes_.read(chunk_.data(), std::min(ready, room));
  } else if (bytes_.peek() == std::istream::traits_type::eof()) {
    return 0;
  } else {
    bytes_.readsome(chunk_.data(), room);
  }
  const auto count = static_cast<std::size_t>(bytes_.gcount());
  bytes_read_ += count;
  return count;
}

bool LineSource::TakeHead(std::string_view line) {
  constexpr std::string_view kDate = "# fecha: ";
  in_head_ = line.starts_with("# ");
  if (in_head_ && line.starts_with(kDate)) date_ = ReadDay(line.substr(kDate.size()));
  return in_head_;
}

}  // namespace conmuta::host
