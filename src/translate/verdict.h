// What became of a line: a call, no call and why, or an error.
#pragma once

#include <cstdint>

#include "platform/text.h"
#include "translate/line_error.h"

namespace conmuta {

// The first reason why a line gave no call.
enum class NoCall : std::uint8_t {
  kNone,
  kNoConfiguration,
  kIncompleteConfiguration,
  kEmptyLine,
  kNoTranslation,
  kNoDigits,
  kUnknownType,
  kNoCaller,
  kNoCallee,
  kNoDate,
  kNoNumber,
  kAccountCode,
  kListFull,
  kUnknownRecord,
  kOutsideBlock,
  kBlockBegins,
  kPartOfBlock,
  kTransferNotFound,
};

struct Verdict {
  LineError error = LineError::kNone;
  NoCall reason = NoCall::kNone;  // why there is no call
  bool parked = false;            // put on the list of those that wait for the end of a transfer

  bool IsCall() const { return error == LineError::kNone && reason == NoCall::kNone; }
  bool operator==(const Verdict&) const = default;
};

// One sentence for people, in Spanish.
TextView Sentence(NoCall reason);
TextView Sentence(LineError error);
TextView Sentence(const Verdict& verdict);

}  // namespace conmuta
