#include "conmuta/help.h"

namespace conmuta::host {
namespace {

// A text as roff wants it: signs of its own escaped, none at the beginning of a line.
std::string Roff(std::string_view text) {
  std::string escaped;
  bool line_begins = true;
  for (const char c : text) {
    if (line_begins && (c == '.' || c == '\'')) escaped += "\\&";
    line_begins = c == '\n';
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

// Blank lines part paragraphs.
std::string Paragraphs(std::string_view text) {
  std::string roff = Roff(text);
  for (std::size_t at = 0; (at = roff.find("\n\n", at)) != std::string::npos;) {
    roff.replace(at, 2, "\n.PP\n");
  }
  return roff + '\n';
}

std::string Item(std::string_view name, std::string_view help) {
  return ".TP\n\\fB" + Roff(name) + "\\fR\n" + Roff(help) + '\n';
}

std::string Section(const Command& command) {
  std::string text = ".SS " + Roff(Synopsis(command)) + '\n' + Paragraphs(command.text);
  for (const Operand& operand : command.operands) text += Item(operand.name, operand.help);
  for (const Option& option : command.options) text += Item(Heading(option), option.help);
  text += ".PP\n" + Roff(ExitCodes(command)) + "\n";
  for (const Example& example : command.examples) {
    text +=
        ".PP\n" + Roff(example.what) + "\n.PP\n.RS\n.nf\n" + Roff(example.line) + "\n.fi\n.RE\n";
  }
  return text;
}

}  // namespace

std::string ManualPage() {
  std::string page =
      ".\\\" Made by: conmuta completa man\n"
      ".TH CONMUTA 1 \"\" \"conmuta " CONMUTA_VERSION
      "\"\n"
      ".SH NOMBRE\n"
      "conmuta \\- traduce lo que imprimen los conmutadores telefónicos\n"
      ".SH SINOPSIS\n"
      ".B conmuta\n"
      "ORDEN [ARGUMENTOS]\n"
      ".SH ÓRDENES\n";
  for (const Command* command : Commands()) page += Section(*command);
  return page +
         ".SH ESTADO DE SALIDA\n"
         ".TP\n0\nTodo se hizo.\n"
         ".TP\n1\nAlguna línea dio error; en las órdenes de la captura, lo que cada una dice.\n"
         ".TP\n2\nLos argumentos o los archivos no sirven.\n";
}

}  // namespace conmuta::host
