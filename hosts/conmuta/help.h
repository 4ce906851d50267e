// What the program says of itself, made of the table of commands.
#pragma once

#include <string>

#include "conmuta/command.h"

namespace conmuta::host {

std::string UsageText();
std::string HelpText();
std::string HelpText(const Command& command);
std::string VersionText();

// "conmuta traduce [OPCIONES] LAYOUT CAPTURA..."
std::string Synopsis(const Command& command);
// "-f, --formato FORMATO"
std::string Heading(const Option& option);
// "Termina con 0; con 1 si..."
std::string ExitCodes(const Command& command);

// Sources of a shell's completion, and of the manual's page for man.
std::string BashCompletion();
std::string ManualPage();

}  // namespace conmuta::host
