// How well a layout explains a capture that nobody knows the switch of.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "conmuta/layout_choice.h"
#include "translate/clsTradEST.h"

namespace conmuta::host {

// Fed with the capture's lines, one after the other.
class Fit {
 public:
  explicit Fit(const NamedLayout& layout);

  void Take(TextView line);

  const NamedLayout& layout() const { return *layout_; }

  std::uint64_t lines() const { return lines_; }  // those with a digit
  std::uint64_t calls() const { return calls_; }
  // Calls with a date that no calendar has, a duration of days, a party or number that is cut or
  // has letters in it.
  std::uint64_t implausible() const { return implausible_; }

  // 0 to 1: the share of what the lines say that plausible calls make use of.
  double Score() const;

 private:
  // Which columns of a line the layout makes use of, and whether that makes sense.
  class Look;

  const NamedLayout* layout_;
  std::unique_ptr<clsCfgConmut> config_;
  std::unique_ptr<clsTradEST> translator_;
  std::uint64_t lines_ = 0;
  std::uint64_t calls_ = 0;
  std::uint64_t implausible_ = 0;
  double explained_ = 0;
  // Of the block whose call has not come yet.
  double of_block_ = 0;
  bool block_is_plausible_ = true;
};

// Of a capture, lines that are enough to tell, and read in no time.
inline constexpr std::size_t kEnoughLines = 2000;

// Every layout of the catalogue, best first, over a capture's lines.
std::vector<Fit> RankCatalogue(const std::vector<Text>& lines);

}  // namespace conmuta::host
