// The pieces between the commas of a text.
#pragma once

#include <optional>

#include "platform/text.h"

namespace conmuta {

// "1,,2," has the pieces "1", "", "2" and "". Views into the text.
class Pieces {
 public:
  explicit Pieces(TextView text) : rest_(text) {}

  // The next piece; nothing after the last.
  std::optional<TextView> Next() {
    if (!rest_) return std::nullopt;
    const std::size_t comma = rest_->find(u',');
    const TextView piece = rest_->substr(0, comma);
    if (comma == TextView::npos) {
      rest_.reset();
    } else {
      rest_->remove_prefix(comma + 1);
    }
    return piece;
  }

 private:
  std::optional<TextView> rest_;
};

}  // namespace conmuta
