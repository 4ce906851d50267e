// A line at the wrong speed, guessed from its bytes.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

namespace conmuta::capture {

// Counts blocks of bytes in which many are no text: beyond ASCII, or controls that no PBX prints.
class UnprintableGuess {
 public:
  static constexpr int kBlock = 256;
  static constexpr int kMany = kBlock / 4;

  void Take(std::string_view bytes) {
    for (const char c : bytes) {
      const auto code = static_cast<unsigned char>(c);
      // NUL, XON, XOFF, DLE, line ends and form feeds are usual company.
      const bool usual = (code >= 0x20 && code < 0x7F) || code == 0 || (code >= 9 && code <= 13) ||
                         (code >= 0x10 && code <= 0x13);
      unprintable_ += !usual;
      if (++taken_ < kBlock) continue;
      suspicious_ += unprintable_ >= kMany;
      taken_ = unprintable_ = 0;
    }
  }

  // Since the last time it was asked.
  std::int64_t Suspicious() { return std::exchange(suspicious_, 0); }

 private:
  int taken_ = 0;
  int unprintable_ = 0;
  std::int64_t suspicious_ = 0;
};

}  // namespace conmuta::capture
