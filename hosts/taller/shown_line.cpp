#include "taller/shown_line.h"

#include <algorithm>
#include <string>

#include "conmuta/utf8.h"
#include "layouts/host_line.h"

namespace conmuta::taller {
namespace {

constexpr char16_t kPictures = u'\u2400';  // of NUL; those of the other controls follow
constexpr char16_t kPictureOfDelete = u'\u2421';
constexpr char16_t kUnseen = u'\u00B7';

char16_t Seen(char16_t c) {
  return host::Steers(c) ? kUnseen : c;
}

char16_t PictureOf(char control) {
  if (control == '\x7F') return kPictureOfDelete;
  return static_cast<char16_t>(kPictures + static_cast<unsigned char>(control));
}

// Columns of bytes: characters once they are text.
std::size_t ColumnsOf(const std::string& printed) {
  Text text;
  host::Widen(printed, text);
  return text.size();
}

}  // namespace

ShownLine Show(std::string_view bytes) {
  if (bytes.ends_with('\r')) bytes.remove_suffix(1);
  ShownLine shown;
  std::string printed;
  printed.reserve(bytes.size());
  std::size_t column = 1;
  std::size_t counted = 0;  // bytes of `printed`
  for (const char c : bytes) {
    if (layouts::IsPrinted(c)) {
      printed += c;
      continue;
    }
    column += ColumnsOf(printed.substr(counted));
    counted = printed.size();
    shown.controls.push_back({column, PictureOf(c)});
  }
  host::Widen(printed, shown.text);
  shown.seen = shown.text;
  std::transform(shown.seen.begin(), shown.seen.end(), shown.seen.begin(), Seen);
  return shown;
}

}  // namespace conmuta::taller
