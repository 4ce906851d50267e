// Values of a profile file as text.
#pragma once

#include "platform/platform.h"

namespace conmuta::basConmuta {

// The value in the form in which profile files hold it.
ProfileValue ValorPerfil(const CodePage& code_page, TextView section, TextView key, TextView value);

// The value up to a NUL, less the blanks at its end; empty when there is none.
Text LeeValorPerfil(const CodePage& code_page, ProfileFile& file, TextView section, TextView key);

// The text up to its first NUL.
TextView CortaEnNulo(TextView text);

}  // namespace conmuta::basConmuta
