#include "conmuta/line_source.h"

#include <algorithm>

#include "layouts/capture_head.h"

namespace conmuta::host {

std::string_view LineSource::Fill() {
  // What is there, without waiting until the room is full: a switch prints when somebody hangs up.
  // Of a file all of it is, and comes without going through the stream's own, smaller room.
  const auto room = static_cast<std::streamsize>(chunk_.size());
  const std::streamsize ready = bytes_.good() ? bytes_.rdbuf()->in_avail() : 0;
  if (ready > 0) {
    bytes_.read(chunk_.data(), std::min(ready, room));
  } else if (bytes_.peek() == std::istream::traits_type::eof()) {
    return {};
  } else {
    bytes_.readsome(chunk_.data(), room);
  }
  std::string_view bytes(chunk_.data(), static_cast<std::size_t>(bytes_.gcount()));
  if (bytes_read_ == 0) bytes.remove_prefix(layouts::SizeOfMark(bytes));
  bytes_read_ += static_cast<std::uint64_t>(bytes_.gcount());
  // A mark alone is not the end.
  return bytes.empty() && bytes_.gcount() != 0 ? Fill() : bytes;
}

}  // namespace conmuta::host
