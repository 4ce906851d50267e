// Lines of a switch of the catalogue, and its layout.
#pragma once

#include <memory>
#include <string>

#include "layouts/read_layout.h"
#include "support/source_files.h"
#include "taller/capture_bytes.h"

namespace conmuta::test {

inline const std::filesystem::path kSwitches = std::filesystem::path(CONMUTA_SOURCES) / "switches";

inline layouts::Layout LayoutOf(const std::string& name) {
  return layouts::ReadLayout(ReadWhole(kSwitches / name / "layout.toml")).layout.value();
}
inline layouts::Layout Kx() {
  return LayoutOf("panasonic-kx");
}
inline layouts::Layout Norstar() {
  return LayoutOf("nortel-norstar");
}

inline const std::string kOut =
    "01/14/19 09:07AM *1204 03 18005550123                    00:12'40 98765\r\n";
inline const std::string kIn =
    "01/14/19 09:15AM 1210  01 <I>5550177                0'12 00:00'20 431211     TR\r\n";
inline const std::string kLog = "01/14/19 09:20AM 1200     LOG IN\r\n";

inline const std::string kBlock =
    "-------- 04/11/97 09:41:11 LINE = 0003 STN = 7344\r\n"
    "00:00:00   OUTGOING CALL\r\n"
    "           DIGITS DIALED    5551212\r\n";
inline const std::string kBlockEnd = "00:12:59   CALL RELEASED\r\n";

inline std::shared_ptr<taller::MemoryBytes> Bytes(
    std::string bytes, taller::MemoryBytes::Kind kind = taller::MemoryBytes::Kind::kPasted) {
  return std::make_shared<taller::MemoryBytes>(kind, std::move(bytes));
}

}  // namespace conmuta::test
