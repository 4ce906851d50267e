#include "conmuta/program.h"

#include <algorithm>
#include <exception>
#include <new>

#include "conmuta/command.h"
#include "conmuta/exit_codes.h"
#include "conmuta/help.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

bool AsksForHelp(const std::vector<std::string>& words) {
  return std::any_of(words.begin(), std::find(words.begin(), words.end(), "--"),
                     [](const std::string& word) { return word == "--help" || word == "-h"; });
}

const Command& FindCommand(const std::string& name) {
  for (const Command* command : Commands()) {
    if (command->name == name) return *command;
  }
  throw UserError("No hay tal orden: " + name + "\nconmuta --help las nombra.");
}

int Run(const std::vector<std::string>& arguments, Console& console) {
  if (arguments.empty()) throw UserError("Falta la orden.\n" + UsageText());
  const std::string& first = arguments[0];
  if (first == "--help" || first == "-h") {
    console.out << HelpText();
    return kDone;
  }
  if (first == "--version") {
    console.out << VersionText();
    return kDone;
  }
  const Command& command = FindCommand(first);
  const std::vector<std::string> words(arguments.begin() + 1, arguments.end());
  if (AsksForHelp(words)) {
    console.out << HelpText(command);
    return kDone;
  }
  return command.run(Arguments(command, words), console);
}

// Files and arguments of others are named in it: each line as a terminal may be given it.
void Tell(Console& console, std::string_view sentence) {
  while (!sentence.empty()) {
    const std::size_t end = std::min(sentence.find('\n'), sentence.size());
    console.err << Shown(FromUtf8(sentence.substr(0, end))) << '\n';
    sentence.remove_prefix(std::min(end + 1, sentence.size()));
  }
}

}  // namespace

int RunProgram(const std::vector<std::string>& arguments, Console& console) {
  int code = kUsage;
  try {
    code = Run(arguments, console);
  } catch (const UserError& error) {
    console.out.flush();
    Tell(console, error.what());
    return kUsage;
  } catch (const std::bad_alloc&) {
    Tell(console, "No alcanza la memoria.");
    return kUsage;
  } catch (const std::exception& error) {
    Tell(console, std::string("Error inesperado: ") + error.what());
    return kUsage;
  }
  if (!console.out.flush()) {
    Tell(console, "No se puede escribir la salida.");
    return kUsage;
  }
  return code;
}

}  // namespace conmuta::host
