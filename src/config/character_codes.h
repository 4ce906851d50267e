// Texts written as lists of decimal character codes of the ANSI code page.
#pragma once

#include "platform/code_page.h"

namespace conmuta::basConmuta {

// Exactly `count` codes, each followed by ",": those of the text's characters, then "0," where the
// text has ended. "ab" with 3 gives "97,98,0,".
Text CadenaACodigos(const CodePage& code_page, TextView text, int count);

// The characters of the codes in a list. Pieces that are no number of at most three characters
// from 0 to 254 are left out. Hosts rely on 255 being left out, although the other way writes it.
Text CodigosACadena(const CodePage& code_page, TextView list);

}  // namespace conmuta::basConmuta
