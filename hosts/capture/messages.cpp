#include "capture/messages.h"

#include <array>
#include <cstdio>

namespace conmuta::capture {

namespace {

template <class MayStand>
std::string EscapedBut(std::string_view bytes, MayStand may_stand) {
  std::string text;
  for (const char c : bytes) {
    const auto code = static_cast<unsigned char>(c);
    if (may_stand(code)) {
      text += c;
    } else {
      std::array<char, 5> escape{};
      std::snprintf(escape.data(), escape.size(), "\\x%02X", unsigned{code});
      text += escape.data();
    }
  }
  return text;
}

}  // namespace

std::string Escaped(std::string_view bytes) {
  return EscapedBut(bytes, [](unsigned char code) { return code >= 0x20 && code < 0x7F; });
}

std::string Shown(std::string_view utf8) {
  // The controls behind DEL are two bytes each, C2 and 80 to 9F.
  unsigned char before = 0;
  return EscapedBut(utf8, [&before](unsigned char code) {
    const bool is_control = before == 0xC2 && code >= 0x80 && code < 0xA0;
    before = code;
    return code >= 0x20 && code != 0x7F && !is_control;
  });
}

void Messages::Tell(std::string_view sentence) {
  const std::lock_guard lock(mutex_);
  out_ << Shown(sentence) << '\n' << std::flush;
}

void Complaint::Tell(const std::string& sentence) {
  if (++times_ < next_) return;
  next_ *= 2;
  messages_.Tell(times_ == 1 ? sentence : sentence + " (van " + std::to_string(times_) + " veces)");
}

void Complaint::Over(const std::string& sentence) {
  if (times_ == 0) return;
  times_ = 0;
  next_ = 1;
  messages_.Tell(sentence);
}

}  // namespace conmuta::capture
