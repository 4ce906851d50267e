#include "conmuta/line_source.h"

#include "conmuta/day.h"

namespace conmuta::host {

std::size_t LineSource::Fill() {
  // What is there, without waiting until the room is full: a switch prints when somebody hangs up.
  if (bytes_.peek() == std::istream::traits_type::eof()) return 0;
  const auto count = bytes_.readsome(chunk_.data(), static_cast<std::streamsize>(chunk_.size()));
  bytes_read_ += static_cast<std::uint64_t>(count);
  return static_cast<std::size_t>(count);
}

bool LineSource::TakeHead(std::string_view line) {
  constexpr std::string_view kDate = "# fecha: ";
  in_head_ = line.starts_with("# ");
  if (in_head_ && line.starts_with(kDate)) date_ = ReadDay(line.substr(kDate.size()));
  return in_head_;
}

}  // namespace conmuta::host
