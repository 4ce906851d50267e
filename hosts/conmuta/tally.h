// What came out of a capture, counted.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "conmuta/translators.h"

namespace conmuta::host {

class Tally {
 public:
  explicit Tally(std::size_t layouts = 1) : by_layout_(layouts) {}

  void CountLine(const Outcome& outcome) {
    ++lines_;
    Count(outcome);
  }
  // So many lines of one layout that came out alike. The type counts where they are calls.
  void CountLines(const Verdict& verdict, emTiposLlamadas type, std::uint64_t lines) {
    lines_ += lines;
    Count(verdict, type, 0, lines);
  }
  // A call that no line of its own brought.
  void CountCall(const Outcome& outcome) { Count(outcome); }
  void CountCall(emTiposLlamadas type) { Count(Verdict(), type, 0, 1); }
  void CountWaiting(std::size_t calls) { waiting_ += calls; }

  void Add(const Tally& other);

  std::uint64_t lines() const { return lines_; }
  std::uint64_t calls() const;
  std::uint64_t errors() const;

  // "53 líneas: 29 llamadas (…), 24 sin llamada, 0 errores"
  std::string Headline() const;
  // The same and more, in one line or several. The layouts' names are told where there are several.
  std::string Summary(std::span<const NamedLayout> layouts) const;

 private:
  static constexpr std::size_t kTypes = emLlamadaCodigoCuenta + 1;
  static constexpr std::size_t kReasons = static_cast<std::size_t>(NoCall::kTransferNotFound) + 1;
  static constexpr std::size_t kErrors = static_cast<std::size_t>(LineError::kInvalidArgument) + 1;

  void Count(const Outcome& outcome) {
    const bool is_call = outcome.verdict.IsCall();
    Count(outcome.verdict, is_call ? outcome.call->TipoLlamada() : emLlamadaIndefinida,
          outcome.layout, 1);
  }
  void Count(const Verdict& verdict, emTiposLlamadas type, std::size_t layout,
             std::uint64_t lines) {
    if (verdict.IsCall()) {
      by_type_[static_cast<std::size_t>(type)] += lines;
      by_layout_[layout] += lines;
    } else if (verdict.error != LineError::kNone) {
      by_error_[static_cast<std::size_t>(verdict.error)] += lines;
    } else {
      by_reason_[static_cast<std::size_t>(verdict.reason)] += lines;
    }
  }

  std::uint64_t lines_ = 0;
  std::uint64_t waiting_ = 0;
  std::array<std::uint64_t, kTypes> by_type_{};
  std::array<std::uint64_t, kReasons> by_reason_{};
  std::array<std::uint64_t, kErrors> by_error_{};
  std::vector<std::uint64_t> by_layout_;
};

}  // namespace conmuta::host
