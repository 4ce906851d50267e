// A clock that works the local date out once a minute.
#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

#include "platform/clock.h"

namespace conmuta {

// Turning the system's time into a local date costs far more than reading it. Days begin on whole
// minutes in every zone, so a date holds until the minute is another one: a clock that was set
// counts at once, in either direction, and a change of zone within the minute.
//
// Source has `std::int64_t Minute() const`, a cheap reading of the system's time in whole minutes
// since any moment, and `CivilDate Today() const`. May be used from any thread.
template <class Source>
class MinuteClock final : public Clock {
 public:
  template <class... Arguments>
  explicit MinuteClock(Arguments&&... arguments) : source_(std::forward<Arguments>(arguments)...) {}

  CivilDate Today() const override {
    const auto minute = static_cast<std::uint32_t>(source_.Minute());
    std::uint64_t known = known_.load(std::memory_order_relaxed);
    if (!Holds(known, minute)) {
      known = Pack(minute, source_.Today());
      known_.store(known, std::memory_order_relaxed);
    }
    return Unpack(known);
  }

 private:
  // Minute and date in one word, so that no thread sees half of each: 32 bits for the minute, then
  // year, month and day. A month of 0 is no date yet.
  static constexpr std::uint64_t Pack(std::uint32_t minute, CivilDate date) {
    return std::uint64_t{minute} << 32 | static_cast<std::uint32_t>(date.year) << 16 |
           static_cast<std::uint32_t>(date.month) << 8 | static_cast<std::uint32_t>(date.day);
  }
  static constexpr CivilDate Unpack(std::uint64_t packed) {
    return {static_cast<int>(packed >> 16 & 0xFFFF), static_cast<int>(packed >> 8 & 0xFF),
            static_cast<int>(packed & 0xFF)};
  }
  static constexpr bool Holds(std::uint64_t packed, std::uint32_t minute) {
    return packed >> 32 == minute && (packed >> 8 & 0xFF) != 0;
  }

  const Source source_;
  mutable std::atomic<std::uint64_t> known_ = 0;
};

}  // namespace conmuta
