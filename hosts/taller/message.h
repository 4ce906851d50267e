// What the workshop says to the person who works in it.
#pragma once

#include <vector>

#include "layouts/mistake.h"

namespace conmuta::taller {

// Stands beside what it is about, never in a box of its own.
struct Message {
  Text item;             // the item, constant or key; empty for what is about a whole file
  layouts::Place place;  // in a layout file; of no meaning elsewhere
  Text text;             // in Spanish

  bool operator==(const Message&) const = default;
};

using Messages = std::vector<Message>;  // empty when all went well

Message MessageOf(const layouts::Mistake& mistake);
Messages MessagesOf(const std::vector<layouts::Mistake>& mistakes);

// About a file, as the one who reads or writes it says it, in UTF-8.
Message MessageOf(std::string_view sentence);

}  // namespace conmuta::taller
