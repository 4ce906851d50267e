// Texts written as lists of decimal character codes.
#pragma once

#include "platform/code_page.h"

namespace conmuta::basConmuta {

// Exactly `count` codes, each followed by ",": those of the text's characters in the ANSI code
// page, then "0," where the text has ended. "ab" with 3 gives "97,98,0,".
Text CadenaACodigos(const CodePage& code_page, TextView text, int count);

}  // namespace conmuta::basConmuta
