#include "platform/unicode.h"

namespace conmuta {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';

constexpr bool IsHighSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xDC00;
}

constexpr unsigned Byte(char c) {
  return static_cast<unsigned char>(c);
}

// Writes bytes into a room, and counts those that have none, too.
class Utf8Writer {
 public:
  explicit Utf8Writer(std::span<char> room) : room_(room) {}

  void Write(char32_t c) {
    if (c < 0x80) {
      Put(c);
    } else if (c < 0x800) {
      Put(0xC0 | (c >> 6));
      PutTail(c, 0);
    } else if (c < 0x10000) {
      Put(0xE0 | (c >> 12));
      PutTail(c, 6);
      PutTail(c, 0);
    } else {
      Put(0xF0 | (c >> 18));
      PutTail(c, 12);
      PutTail(c, 6);
      PutTail(c, 0);
    }
  }
  std::size_t size() const { return size_; }

 private:
  void Put(char32_t byte) {
    if (size_ < room_.size()) room_[size_] = static_cast<char>(byte);
    ++size_;
  }
  void PutTail(char32_t c, unsigned shift) { Put(0x80 | ((c >> shift) & 0x3F)); }

  const std::span<char> room_;
  std::size_t size_ = 0;
};

// How many bytes follow a first byte; -1 for one that is none.
constexpr int TailBytes(unsigned first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first < 0xE0) return 1;
  if (first >= 0xE0 && first < 0xF0) return 2;
  if (first >= 0xF0 && first < 0xF5) return 3;
  return -1;
}

void AppendUtf16(Text& text, char32_t c) {
  if (c < 0x10000) {
    text.push_back(static_cast<char16_t>(c));
  } else {
    text.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
  }
}

Text FromUtf16(std::string_view bytes, bool big_endian) {
  Text text;
  text.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const unsigned low = Byte(bytes[i + (big_endian ? 1 : 0)]);
    const unsigned high = Byte(bytes[i + (big_endian ? 0 : 1)]);
    text.push_back(static_cast<char16_t>(high << 8 | low));
  }
  return text;
}

}  // namespace

Text FromUtf8(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const unsigned first = Byte(bytes[i++]);
    const int tail = TailBytes(first);
    if (tail <= 0) {
      text.push_back(tail == 0 ? static_cast<char16_t>(first) : kReplacement);
      continue;
    }
    char32_t c = first & (0x3Fu >> tail);
    int left = tail;
    while (left > 0 && i < bytes.size() && (Byte(bytes[i]) & 0xC0) == 0x80) {
      c = (c << 6) | (Byte(bytes[i++]) & 0x3F);
      --left;
    }
    constexpr char32_t kFirstOfLength[] = {0, 0x80, 0x800, 0x10000};
    const bool valid =
        left == 0 && c >= kFirstOfLength[tail] && c <= 0x10FFFF && !(c >= 0xD800 && c <= 0xDFFF);
    AppendUtf16(text, valid ? c : kReplacement);
  }
  return text;
}

std::optional<Text> FromMarkedUnicode(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return FromUtf8(bytes.substr(3));
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(bytes.substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return FromUtf16(bytes.substr(2), true);
  return std::nullopt;
}

std::optional<std::size_t> ToUtf8(TextView text, std::span<char> room) {
  Utf8Writer writer(room);
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsLowSurrogate(text[i])) return std::nullopt;
    if (IsHighSurrogate(text[i])) {
      if (++i == text.size() || !IsLowSurrogate(text[i])) return std::nullopt;
      c = 0x10000 + ((c & 0x3FF) << 10) + (text[i] & 0x3FFu);
    }
    writer.Write(c);
  }
  return writer.size();
}

std::optional<std::string> ToUtf8(TextView text) {
  const auto size = ToUtf8(text, {});
  if (!size) return std::nullopt;
  std::string bytes(*size, '\0');
  ToUtf8(text, bytes);
  return bytes;
}

}  // namespace conmuta
