// conmuta captura
#include <algorithm>
#include <limits>

#include "capture/capture.h"
#include "capture/messages.h"
#include "capture/simulate.h"
#include "conmuta/command.h"
#include "conmuta/named_store.h"
#include "conmuta/user_error.h"

namespace conmuta::host {
namespace {

std::vector<capture::NamedSource> Sources(const Arguments& arguments) {
  std::vector<capture::NamedSource> sources;
  for (const std::string& text : arguments.operands()) {
    const auto source = capture::ReadNamedSource(text);
    if (!source) {
      throw UserError("FUENTE: «" + text + "» no es NOMBRE=LAYOUT@DIRECCION.\n" +
                      "conmuta captura --help dice qué direcciones hay.");
    }
    const auto is_same = [&](const auto& other) { return other.name == source->name; };
    if (std::any_of(sources.begin(), sources.end(), is_same)) {
      throw UserError("FUENTE: dos se llaman «" + source->name + "».");
    }
    sources.push_back(*source);
  }
  return sources;
}

int Simulate(const Arguments& arguments, Console& console) {
  if (arguments.operands().size() != 1) {
    throw UserError("--simula: hace falta una sola dirección, o «pty».");
  }
  capture::SimulateOptions options;
  options.capture = arguments.Value("--simula", "");
  options.to = arguments.At(0);
  if (arguments.Has("--velocidad")) {
    options.speed = static_cast<unsigned>(arguments.Number("--velocidad", 0, 4'000'000, 0));
  }
  return capture::Simulate(options, console.err);
}

int RunCaptura(const Arguments& arguments, Console& console) {
  if (arguments.Has("--simula")) return Simulate(arguments, console);
  capture::CaptureOptions options;
  options.store = arguments.Value("--almacen", options.store);
  options.spill = arguments.Value("--derrame", "");
  options.once = arguments.Has("--hasta-el-fin");
  options.source.connections =
      arguments.Number("--conexiones", 1, 10'000, options.source.connections);
  const auto usual = static_cast<std::size_t>(options.source.bytes_a_second);
  options.source.bytes_a_second = static_cast<std::int64_t>(
      arguments.Number("--bytes-por-segundo", 0, std::numeric_limits<std::int32_t>::max(), usual));
  options.sources = Sources(arguments);
  return capture::Capture(options, LoadNamedLayouts, console.err);
}

constexpr Operand kOperands[] = {
    {"FUENTE",
     "NOMBRE=LAYOUT@DIRECCION; varios layouts con +, como en traduce. La dirección es "
     "serie:PUERTO[,9600][,8N1][,rts|xon], "
     "tcp:EQUIPO:PUERTO, escucha:[EQUIPO:]PUERTO, archivo:RUTA (uno que crece) o - (la entrada "
     "estándar). Con --simula, una dirección sola, o pty.",
     1, kAnyNumber, Offers::kNothing}};

constexpr Option kOptions[] = {
    kStoreOption,
    {"--derrame", "", "ARCHIVO",
     "Donde esperan las líneas que el almacén no toma. Si no se da, junto al almacén.", "",
     Offers::kFiles},
    {"--hasta-el-fin", "", "", "Termina cuando los archivos y la entrada se acaban.", ""},
    {"--conexiones", "", "N",
     "Cuántas atiende a la vez una fuente que escucha; con una más se cierra la que más tiempo "
     "lleva callada. Si no se da, 8.",
     ""},
    {"--bytes-por-segundo", "", "N",
     "Cuántos se leen de una conexión de éstas; 0, sin límite. Si no se da, 1048576.", ""},
    {"--simula", "", "CAPTURA",
     "En vez de capturar, envía una captura como lo haría el conmutador, a la velocidad de su "
     "encabezado.",
     "", Offers::kFiles},
    {"--velocidad", "", "N", "La de la simulación, en bits por segundo; 0, sin pausas.", ""},
};

constexpr Example kExamples[] = {
    {"conmuta captura centro=panasonic-kx@serie:/dev/ttyUSB0,9600,8N1",
     "Una central en el puerto serial; en Windows, serie:COM3."},
    {"conmuta captura --almacen sitio.db a=nortel-norstar@tcp:10.0.0.7:2300 b=mi.cfg@escucha:5000",
     "Dos centrales de red: a una se llama, la otra llama."},
    {"conmuta captura --simula captura.txt tcp:127.0.0.1:5000",
     "Hace de central, para probar la línea de arriba."},
};

}  // namespace

extern const Command kCaptura;
const Command kCaptura = {
    "captura",
    "Guarda y traduce lo que los conmutadores imprimen, mientras lo imprimen.",
    "Cada línea se guarda primero, sin cambiarla, con su fuente, su número y el momento en que "
    "llegó; lo que se hizo de ella (la llamada, o por qué no la hay) se guarda aparte y se puede "
    "rehacer con reprocesa. Las líneas se leen con el día en que llegaron. Las de un encabezado "
    "(«# clave: valor») en un archivo se guardan y no se traducen.\n\n"
    "Una conexión que se corta se intenta otra vez, con pausas cada vez mayores. Si el almacén no "
    "puede, o no está, lo que llega espera en la memoria y después en un archivo, de donde la "
    "próxima captura lo pasa al almacén. Un almacén dañado se aparta "
    "con otro nombre, nunca se borra. Una fuente que escucha sólo atiende a este equipo si no se "
    "dice otro. Termina con Ctrl+C, o con SIGTERM.",
    kOperands,
    kOptions,
    kExamples,
    RunCaptura,
    "si alguna línea no se pudo guardar"};

}  // namespace conmuta::host
