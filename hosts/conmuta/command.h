// A subcommand as a row of the table: what it takes, what it says of itself, what it does. Parsing,
// help, completion and manual are made of it.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string_view>

#include "conmuta/arguments.h"
#include "conmuta/console.h"

namespace conmuta::host {

// What a shell can offer in an argument's place.
enum class Offers { kNothing, kFiles, kFolders, kLayouts, kChoices };

struct Option {
  std::string_view name;     // "--formato"
  std::string_view letter;   // "-f", or empty
  std::string_view value;    // what the help calls it; empty for one that takes none
  std::string_view help;     // a sentence
  std::string_view choices;  // apart by blanks; empty where anything goes
  Offers offers = Offers::kNothing;
};

inline constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

// Arguments without a name, in their order.
struct Operand {
  std::string_view name;  // "CAPTURA"
  std::string_view help;
  std::size_t least = 1;
  std::size_t most = 1;
  Offers offers = Offers::kNothing;
  std::string_view choices = {};
};

struct Example {
  std::string_view line;
  std::string_view what;
};

struct Command {
  std::string_view name;
  std::string_view brief;  // half a sentence
  std::string_view text;   // paragraphs, apart by blank lines
  std::span<const Operand> operands;
  std::span<const Option> options;
  std::span<const Example> examples;
  // Reads what was asked for and does it; gives the exit code. UserError for what a person has to
  // put right.
  int (*run)(const Arguments& arguments, Console& console);
  std::string_view one = "si alguna línea dio error";  // when it ends with 1; empty for never
};

// All of them, in the order in which the help names them.
std::span<const Command* const> Commands();

}  // namespace conmuta::host
