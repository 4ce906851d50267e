// The binary configuration file in its present layout (docs/file-formats.md): header, then the
// valid DATO records, then the valid CTE records. Bytes only; no file is touched here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/header.h"
#include "config/slots.h"
#include "platform/code_page.h"

namespace conmuta {

inline constexpr std::size_t kHeaderBytes = 660;
inline constexpr std::size_t kDatoBytes = 10;
inline constexpr std::size_t kCteBytes = 30;

// No file of this layout can have anything to say beyond this size.
inline constexpr std::size_t kMostBytes =
    kHeaderBytes + INT16_MAX * kDatoBytes + INT16_MAX * kCteBytes;

// The header as a file holds it: with the number of records that are said to follow.
struct FileHeader {
  ConfigHeader config;
  std::int16_t NumDATO = 0;
  std::int16_t NumCTE = 0;
};

// Each appends its record to `bytes`.
void AppendHeader(std::string& bytes, const FileHeader& header, const CodePage& code_page);
void AppendRecord(std::string& bytes, const DATO& slot, const CodePage& code_page);
void AppendRecord(std::string& bytes, const CTE& slot, const CodePage& code_page);

// Nothing when fewer than kHeaderBytes are there. Any content is accepted.
std::optional<FileHeader> ReadHeader(std::string_view bytes, const CodePage& code_page);

// Takes the next record off the front of `bytes`; nothing, and nothing taken, when it would end
// past their end.
std::optional<DATO> TakeDATO(std::string_view& bytes, const CodePage& code_page);
std::optional<CTE> TakeCTE(std::string_view& bytes, const CodePage& code_page);

}  // namespace conmuta
