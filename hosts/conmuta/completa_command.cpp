// conmuta completa: what a shell and man want to know, made of the table of commands.
#include "conmuta/command.h"
#include "conmuta/exit_codes.h"
#include "conmuta/help.h"

namespace conmuta::host {
namespace {

int RunCompleta(const Arguments& arguments, Console& console) {
  console.out << (arguments.At(0) == "bash" ? BashCompletion() : ManualPage());
  return kDone;
}

constexpr Operand kOperands[] = {{"bash|man", "Para quién.", 1, 1, Offers::kChoices, "bash man"}};

constexpr Example kExamples[] = {
    {"eval \"$(conmuta completa bash)\"", "La tecla Tab completa órdenes, opciones y layouts."},
    {"conmuta completa man > conmuta.1", "La página del manual."},
};

}  // namespace

extern const Command kCompleta;
const Command kCompleta = {
    "completa",
    "Escribe el archivo que completa órdenes en bash, o la página de man.",
    "Escribe lo que otros programas quieren saber de éste: el archivo con el "
    "que bash completa sus argumentos, o su página del manual.",
    kOperands,
    {},
    kExamples,
    RunCompleta};

}  // namespace conmuta::host
