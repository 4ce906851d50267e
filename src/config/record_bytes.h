// Writing and reading records of fixed fields: little-endian integers, texts of a fixed width in
// the ANSI code page. A record lists its fields once, for both directions.
#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "config/fixed_text.h"
#include "platform/code_page.h"

namespace conmuta {

class RecordWriter {
 public:
  RecordWriter(std::string& bytes, const CodePage& code_page)
      : bytes_(bytes), code_page_(code_page) {}

  template <std::integral T>
  void operator()(const T& value) {
    const auto bits = static_cast<std::make_unsigned_t<T>>(value);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
      bytes_.push_back(static_cast<char>((std::uint64_t{bits} >> (8 * i)) & 0xFF));
    }
  }
  template <class Enum>
  requires std::is_enum_v<Enum>
  void operator()(const Enum& value) { (*this)(static_cast<std::underlying_type_t<Enum>>(value)); }
  template <std::size_t kWidth>
  void operator()(const FixedText<kWidth>& text) {
    bytes_ += ToFixedBytes(code_page_, text.Raw(), kWidth);
  }

 private:
  std::string& bytes_;
  const CodePage& code_page_;
};

// Adds up what the fields of a record take.
class RecordSize {
 public:
  template <class T>
  constexpr void operator()(const T&) {
    bytes_ += sizeof(T);
  }
  template <std::size_t kWidth>
  constexpr void operator()(const FixedText<kWidth>&) {
    bytes_ += kWidth;
  }
  constexpr std::size_t bytes() const { return bytes_; }

 private:
  std::size_t bytes_ = 0;
};

// The caller sees to it that enough bytes are there.
class RecordReader {
 public:
  RecordReader(std::string_view bytes, const CodePage& code_page)
      : bytes_(bytes), code_page_(code_page) {}

  template <std::integral T>
  void operator()(T& value) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
      bits |= std::uint64_t{static_cast<unsigned char>(bytes_[i])} << (8 * i);
    }
    bytes_.remove_prefix(sizeof(T));
    value = static_cast<T>(bits);
  }
  template <class Enum>
  requires std::is_enum_v<Enum>
  void operator()(Enum& value) {
    std::underlying_type_t<Enum> code{};
    (*this)(code);
    value = static_cast<Enum>(code);
  }
  template <std::size_t kWidth>
  void operator()(FixedText<kWidth>& text) {
    text.Assign(TakeText(kWidth));
  }

  Text TakeText(std::size_t width) {
    Text text = code_page_.FromBytes(bytes_.substr(0, width));
    bytes_.remove_prefix(width);
    return text;
  }

 private:
  std::string_view bytes_;
  const CodePage& code_page_;
};

}  // namespace conmuta
