#include "conmuta/help.h"

#include <algorithm>

#include "conmuta/utf8.h"

namespace conmuta::host {
namespace {

constexpr std::size_t kWidth = 88;

// The words of a text in lines that are indented; blank lines of the text stay.
std::string Wrapped(std::string_view text, std::size_t indent) {
  std::string lines;
  std::size_t column = 0;
  while (!text.empty()) {
    if (text[0] == '\n') {
      lines += "\n\n";
      column = 0;
      text.remove_prefix(std::min(text.find_first_not_of('\n'), text.size()));
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
    const std::string_view word = text.substr(0, end);
    if (column != 0 && column + 1 + Columns(word) > kWidth) {
      lines += '\n';
      column = 0;
    }
    if (column == 0) {
      lines.append(indent, ' ');
      column = indent;
    } else {
      lines += ' ';
      ++column;
    }
    lines += word;
    column += Columns(word);
    text.remove_prefix(
        std::min(end + (end < text.size() && text[end] == ' ' ? 1 : 0), text.size()));
  }
  return lines + '\n';
}

// A name, and beside or under it what it means.
std::string Row(const std::string& name, std::string_view help) {
  constexpr std::size_t kColumn = 26;
  std::string row = "  " + name;
  const std::string text = Wrapped(help, kColumn);
  if (Columns(row) + 2 > kColumn) return row + '\n' + text;
  row.append(kColumn - Columns(row), ' ');
  return row + text.substr(kColumn);
}

}  // namespace

std::string ExitCodes(const Command& command) {
  std::string text = "Termina con 0; ";
  if (!command.one.empty()) text += "con 1 " + std::string(command.one) + "; ";
  return text + "con 2 si los argumentos o los archivos no sirven.";
}

std::string Heading(const Option& option) {
  std::string heading(option.letter);
  if (!heading.empty()) heading += ", ";
  heading += option.name;
  if (!option.value.empty()) (heading += ' ') += option.value;
  return heading;
}

std::string Synopsis(const Command& command) {
  std::string line = "conmuta " + std::string(command.name);
  if (!command.options.empty()) line += " [OPCIONES]";
  for (const Operand& operand : command.operands) {
    std::string name(operand.name);
    if (operand.most > 1) name += "...";
    line += operand.least == 0 ? " [" + name + "]" : " " + name;
  }
  return line;
}

std::string UsageText() {
  return "Uso: conmuta ORDEN [ARGUMENTOS]; conmuta --help las explica.";
}

std::string VersionText() {
  return "conmuta " CONMUTA_VERSION "\n";
}

std::string HelpText() {
  std::string text =
      "conmuta: traduce lo que imprimen los conmutadores telefónicos.\n\n"
      "Uso: conmuta ORDEN [ARGUMENTOS]\n\nÓrdenes:\n";
  for (const Command* command : Commands()) text += Row(std::string(command->name), command->brief);
  text += "\nOpciones:\n";
  text += Row("-h, --help", "Esta ayuda, o la de una orden: conmuta traduce --help.");
  text += Row("--version", "La versión.");
  text += "\nEjemplos:\n";
  for (const Command* command : Commands()) {
    if (!command->examples.empty()) {
      text += "  " + std::string(command->examples.front().line) + '\n';
    }
  }
  return text += '\n' + Wrapped(ExitCodes(Command{}) + '\n', 0);
}

std::string HelpText(const Command& command) {
  std::string text = "Uso: " + Synopsis(command) + "\n\n" + Wrapped(command.text, 0);
  if (!command.operands.empty()) text += "\nArgumentos:\n";
  for (const Operand& operand : command.operands) {
    text += Row(std::string(operand.name), operand.help);
  }
  text += "\nOpciones:\n";
  for (const Option& option : command.options) text += Row(Heading(option), option.help);
  text += Row("-h, --help", "Esta ayuda.");
  text += "\nEjemplos:\n";
  for (const Example& example : command.examples) {
    text += "  " + std::string(example.line) + '\n' + Wrapped(example.what, 6);
  }
  return text += '\n' + Wrapped(ExitCodes(command) + '\n', 0);
}

}  // namespace conmuta::host
