// conmuta cable
#include <vector>

#include "cable/wiring_text.h"
#include "conmuta/cable_drawing.h"
#include "conmuta/exit_codes.h"
#include "conmuta/layout_choice.h"
#include "conmuta/output_option.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "layouts/names.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

std::vector<emPuertoSerial> WiredPairs(const Wiring& cables) {
  std::vector<emPuertoSerial> pairs;
  for (int code = emPuertoSerialDB9DB9; code <= emPuertoSerialDB25DB25; ++code) {
    const auto pair = static_cast<emPuertoSerial>(code);
    if (!WiringList(pair, cables.Table(pair)).empty()) pairs.push_back(pair);
  }
  return pairs;
}

std::string Describe(emPuertoSerial pair, std::span<const WiringMask> table) {
  std::string text = Utf8(layouts::NameOf(pair)) + "\n\n";
  for (const char c : Utf8(WiringList(pair, table))) {
    if (c != '\r') text += c;
  }
  return text + '\n' + CableText(pair, table);
}

int RunCable(const Arguments& arguments, Console& console) {
  const auto config = OpenConfig(arguments.At(0));
  const Wiring& cables = config->Header().Cables;
  std::vector<emPuertoSerial> pairs = WiredPairs(cables);
  if (arguments.Has("--par")) {
    pairs = {*layouts::FindPair(FromUtf8(arguments.Value("--par", "")))};
  }
  if (pairs.empty()) {
    console.err << "La configuración no dice cómo es el cable.\n";
    return kDone;
  }
  std::string text;
  if (arguments.Has("--svg")) {
    if (pairs.size() > 1) throw UserError("Hay varios cables; --par dice cuál se dibuja.");
    text = CableSvg(pairs[0], cables.Table(pairs[0]));
  } else {
    for (const emPuertoSerial pair : pairs) {
      if (!text.empty()) text += '\n';
      text += Describe(pair, cables.Table(pair));
    }
  }
  WriteOut(arguments, console, text);
  return kDone;
}

constexpr Operand kOperands[] = {
    {"CONFIGURACION", "Un archivo .cfg o de intercambio, o cualquier LAYOUT de traduce.", 1, 1,
     Offers::kLayouts}};

constexpr Option kOptions[] = {
    {"--svg", "", "", "Un dibujo SVG en vez de texto.", ""},
    {"--par", "", "CONECTORES",
     "Sólo el cable entre esos conectores: DB9-DB9, DB9-DB25, DB25-DB9 o "
     "DB25-DB25.",
     "DB9-DB9 DB9-DB25 DB25-DB9 DB25-DB25", Offers::kChoices},
    kOutputOption,
    kReplaceOption,
};

constexpr Example kExamples[] = {
    {"conmuta cable panasonic-kx", "La lista de patas y un dibujo con letras."},
    {"conmuta cable --svg panasonic-kx -o cable.svg", "Un dibujo para imprimirlo."},
};

}  // namespace

extern const Command kCable;
const Command kCable = {"cable",
                        "Dice y dibuja cómo es el cable serial.",
                        "La lista de las patas que une el cable serial de una configuración, y un "
                        "dibujo: de la computadora a la izquierda, al conmutador a la derecha.",
                        kOperands,
                        kOptions,
                        kExamples,
                        RunCable};

}  // namespace conmuta::host
