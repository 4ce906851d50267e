#include "taller/first_lines.h"

#include "conmuta/capture_head.h"
#include "conmuta/utf8.h"
#include "layouts/capture_head.h"
#include "layouts/host_line.h"

namespace conmuta::taller {

std::vector<Text> FirstLines(const CaptureBytes& bytes, std::size_t most) {
  std::vector<Text> texts;
  layouts::HostLines lines;
  host::CaptureHead head;
  const auto take = [&](std::string_view line) {
    if (texts.size() < most && !head.Take(line)) host::Widen(line, texts.emplace_back());
  };
  std::string room(std::size_t{1} << 16, '\0');
  std::uint64_t offset = 0;
  while (texts.size() < most) {
    const std::size_t count = bytes.Read(offset, room);
    std::string_view piece = std::string_view(room).substr(0, count);
    if (offset == 0) piece.remove_prefix(layouts::SizeOfMark(piece));
    lines.Take(piece, take);
    offset += count;
    if (count == room.size()) continue;
    if (!bytes.IsLive() && !lines.rest().empty()) take(lines.rest());
    break;
  }
  return texts;
}

}  // namespace conmuta::taller
