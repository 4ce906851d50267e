// What a layout file says of a switch.
#pragma once

#include <string>
#include <vector>

#include "config/header.h"
#include "config/slots.h"
#include "platform/text.h"

namespace conmuta::layouts {

// What the catalogue's page says of a switch; no part of its configuration.
struct Sheet {
  // Stores of calls keep the values.
  enum class TimeOf : std::uint8_t { kUnknown = 0, kStart = 1, kEnd = 2 };

  Text covers;
  Text date;      // form of date and time as printed
  Text duration;  // likewise
  TimeOf time_of = TimeOf::kUnknown;
  Text transfers;
  Text proof;  // how far the layout is proven
  std::vector<Text> sources;
  std::vector<Text> losses;        // what is lost or read wrongly, a sentence each
  std::vector<Text> alternatives;  // names of the layouts that the switch needs beside this one

  bool operator==(const Sheet&) const = default;
};

// A letter of a mask: the columns of one or more items and constants.
struct DrawnLetter {
  char16_t letter = 0;
  std::vector<emParamDato> items;
  std::vector<emParamDatoConstante> constants;

  bool operator==(const DrawnLetter&) const = default;
};

// Places that are drawn instead of counted: a line of the switch, under it a mask.
struct Drawing {
  Text name;
  Text line;
  Text mask;
  std::vector<DrawnLetter> letters;

  bool operator==(const Drawing&) const = default;
};

// Items and constants stand in their order of appearance, those that are drawn among them. Each
// kind is there at most once, and each is valid as a slot of a configuration is.
struct Layout {
  ConfigHeader header;
  std::vector<DATO> items;
  std::vector<CTE> constants;
  Sheet sheet;
  std::vector<Drawing> drawings;

  bool operator==(const Layout&) const = default;
};

}  // namespace conmuta::layouts
