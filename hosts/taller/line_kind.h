// What became of a line, in a byte: a capture has millions of them.
#pragma once

#include <compare>
#include <cstdint>

#include "translate/enums.h"
#include "translate/verdict.h"

namespace conmuta::taller {

class LineKind {
 public:
  // Of a line that nobody has looked at yet.
  constexpr LineKind() = default;

  static constexpr LineKind Head() { return LineKind(1); }
  static constexpr LineKind Call(emTiposLlamadas type) {
    return LineKind(kCalls + static_cast<int>(type));
  }
  static constexpr LineKind None(NoCall reason) {
    return LineKind(kNoCalls + static_cast<int>(reason));
  }
  static constexpr LineKind Error(LineError error) {
    return LineKind(kErrors + static_cast<int>(error));
  }
  static constexpr LineKind Of(const Verdict& verdict, emTiposLlamadas type) {
    if (verdict.error != LineError::kNone) return Error(verdict.error);
    return verdict.reason != NoCall::kNone ? None(verdict.reason) : Call(type);
  }

  static constexpr LineKind FromCode(std::uint8_t code) { return LineKind(code); }
  constexpr std::uint8_t code() const { return code_; }
  constexpr bool IsKnown() const { return code_ != 0; }
  constexpr bool IsHead() const { return code_ == 1; }
  constexpr bool IsCall() const { return code_ >= kCalls && code_ < kNoCalls; }
  constexpr bool IsNoCall() const { return code_ >= kNoCalls && code_ < kErrors; }
  constexpr bool IsOfBlock() const {
    return *this == None(NoCall::kBlockBegins) || *this == None(NoCall::kPartOfBlock);
  }
  constexpr bool IsError() const { return code_ >= kErrors; }

  // The other way; undefined for what is no call.
  constexpr emTiposLlamadas type() const {
    return IsCall() ? static_cast<emTiposLlamadas>(code_ - kCalls) : emLlamadaIndefinida;
  }
  constexpr Verdict verdict() const {
    Verdict verdict;
    if (IsNoCall()) verdict.reason = static_cast<NoCall>(code_ - kNoCalls);
    if (IsError()) verdict.error = static_cast<LineError>(code_ - kErrors);
    return verdict;
  }

  auto operator<=>(const LineKind&) const = default;

 private:
  friend struct Counter;  // its bounds
  static constexpr int kCalls = 0x10;
  static constexpr int kNoCalls = 0x20;
  static constexpr int kErrors = 0x60;

  constexpr explicit LineKind(int code) : code_(static_cast<std::uint8_t>(code)) {}

  std::uint8_t code_ = 0;
};

// The lines that a figure counts: of one kind, or of all that are calls, no calls or errors.
struct Counter {
  LineKind first;
  LineKind last;

  static constexpr Counter Calls() {
    return {LineKind(LineKind::kCalls), LineKind(LineKind::kNoCalls - 1)};
  }
  static constexpr Counter NoCalls() {
    return {LineKind(LineKind::kNoCalls), LineKind(LineKind::kErrors - 1)};
  }
  static constexpr Counter Errors() { return {LineKind(LineKind::kErrors), LineKind(0xFF)}; }
  static constexpr Counter Of(LineKind kind) { return {kind, kind}; }

  constexpr bool Counts(LineKind kind) const { return kind >= first && kind <= last; }

  bool operator==(const Counter&) const = default;
};

}  // namespace conmuta::taller
