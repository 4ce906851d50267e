// Other sizes of the fonts that the user has chosen for the system.
#pragma once

#include <windows.h>

namespace conmuta::test {

// The user's message font, larger for as long as it lives.
class MessageFontOf {
 public:
  explicit MessageFontOf(int percent) {
    before_.cbSize = sizeof before_;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof before_, &before_, 0);
    NONCLIENTMETRICSW larger = before_;
    larger.lfMessageFont.lfHeight = MulDiv(before_.lfMessageFont.lfHeight, percent, 100);
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof larger, &larger, 0);
  }
  ~MessageFontOf() { SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof before_, &before_, 0); }
  MessageFontOf(const MessageFontOf&) = delete;
  MessageFontOf& operator=(const MessageFontOf&) = delete;

 private:
  NONCLIENTMETRICSW before_{};
};

}  // namespace conmuta::test
