// What of a TOML text a parser can be given.
#pragma once

#include <string>
#include <string_view>

namespace conmuta::layouts {

// The text, or its beginning up to something that no TOML has and that does a parser harm, with a
// "!" in its place, so that this is the error there at the latest: a dotted key of more than
// sixteen parts (toml++ makes a table of each and runs out of stack over thousands), a character
// beyond ASCII outside of texts and comments, as in "día = 1", or behind a backslash and blanks in
// a text, or a quote where no text can begin, or a second "=" in one value (over such characters
// the behaviour of toml++ 3.3 is undefined).
std::string ParsableToml(std::string_view toml);

}  // namespace conmuta::layouts
