#include "capture/commands.h"

#include <memory>

#include "capture/asking.h"
#include "capture/messages.h"
#include "capture/simulate.h"

namespace conmuta::capture {
namespace {

constexpr const char* kStoreHelp = "archivo del almacén, o la conexión de una base PostgreSQL";

void AddCapture(CLI::App& app, const LoadLayout& load, std::ostream& err, int& code) {
  struct Arguments {
    CaptureOptions options;
    std::vector<std::string> sources;
    SimulateOptions simulate;
  };
  const auto a = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "captura", "guarda y traduce lo que imprimen los conmutadores mientras lo imprimen");
  command
      ->add_option("FUENTE", a->sources,
                   "NOMBRE=LAYOUT@DIRECCION; la dirección es serie:PUERTO[,9600][,8N1][,rts|xon],"
                   " tcp:EQUIPO:PUERTO, escucha:[EQUIPO:]PUERTO, archivo:RUTA o -")
      ->required();
  command->add_option("--almacen", a->options.store, kStoreHelp)->capture_default_str();
  command->add_option("--derrame", a->options.spill,
                      "archivo para las líneas que el almacén no toma; si falta, junto al almacén");
  command->add_flag("--hasta-el-fin", a->options.once,
                    "termina cuando los archivos y la entrada se acaban");
  command
      ->add_option("--conexiones", a->options.source.connections,
                   "cuántas acepta a la vez una fuente que escucha")
      ->capture_default_str();
  command
      ->add_option("--bytes-por-segundo", a->options.source.bytes_a_second,
                   "cuántos se leen de una conexión de éstas; 0 sin límite")
      ->capture_default_str();
  command->add_option("--simula", a->simulate.capture,
                      "en vez de capturar, envía una captura a la dirección, o a pty");
  command->add_option("--velocidad", a->simulate.speed,
                      "de la simulación, en bits por segundo; 0 sin pausas");
  command->callback([a, &load, &err, &code] {
    if (!a->simulate.capture.empty()) {
      a->simulate.to = a->sources.front();
      code = a->sources.size() == 1 ? Simulate(a->simulate, err) : kUsage;
      return;
    }
    for (const std::string& text : a->sources) {
      const auto source = ReadNamedSource(text);
      if (!source) throw CLI::ValidationError("FUENTE", "no se entiende «" + Shown(text) + "»");
      for (const NamedSource& other : a->options.sources) {
        if (other.name == source->name) {
          throw CLI::ValidationError("FUENTE", "dos se llaman «" + Shown(source->name) + "»");
        }
      }
      a->options.sources.push_back(*source);
    }
    code = Capture(a->options, load, err);
  });
}

void AddStatus(CLI::App& app, std::ostream& out, std::ostream& err, int& code) {
  const auto options = std::make_shared<StatusOptions>();
  CLI::App* command = app.add_subcommand("estado", "dice qué ha llegado de cada fuente");
  command->add_option("--almacen", options->store, kStoreHelp)->capture_default_str();
  command->add_option("--silencio", options->silence_minutes,
                      "minutos sin líneas tras los que una fuente está en silencio (código 1)");
  command->callback([options, &out, &err, &code] { code = Status(*options, out, err); });
}

void AddReprocess(CLI::App& app, const LoadLayout& load, std::ostream& err, int& code) {
  struct Arguments {
    ReprocessOptions options;
    std::vector<std::string> layouts;
  };
  const auto a = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand(
      "reprocesa", "traduce otra vez las líneas guardadas, con la captura detenida");
  command->add_option("FUENTE", a->layouts, "NOMBRE=LAYOUT")->required();
  command->add_option("--almacen", a->options.store, kStoreHelp)->capture_default_str();
  command->callback([a, &load, &err, &code] {
    for (const std::string& text : a->layouts) {
      const std::size_t equals = text.find('=');
      if (equals == 0 || equals == std::string::npos || equals + 1 == text.size()) {
        throw CLI::ValidationError("FUENTE", "no se entiende «" + Shown(text) + "»");
      }
      a->options.layouts.emplace_back(text.substr(0, equals), text.substr(equals + 1));
    }
    code = Reprocess(a->options, load, err);
  });
}

void AddExport(CLI::App& app, std::ostream& out, std::ostream& err, int& code) {
  const auto options = std::make_shared<ExportOptions>();
  CLI::App* command = app.add_subcommand("exporta", "escribe las llamadas guardadas");
  command->add_option("--almacen", options->store, kStoreHelp)->capture_default_str();
  command->add_option("--fuente", options->source, "de una sola fuente");
  const auto day = [command](const char* name, std::int64_t& to, const char* help) {
    command->add_option_function<std::string>(
        name,
        [name, &to](const std::string& text) {
          const auto day = ReadDay(text);
          if (!day) throw CLI::ValidationError(name, "no es un día como 2026-11-21");
          to = *day;
        },
        help);
  };
  day("--desde", options->first_day, "primer día, por ejemplo 2026-11-01");
  day("--hasta", options->last_day, "último día");
  command->add_option("--formato", options->format, "csv o json (un objeto por línea)")
      ->transform(CLI::CheckedTransformer(std::map<std::string, ExportFormat>{
          {"csv", ExportFormat::kCsv}, {"json", ExportFormat::kJsonLines}}));
  command->callback([options, &out, &err, &code] { code = Export(*options, out, err); });
}

}  // namespace

void AddCaptureCommands(CLI::App& app, const LoadLayout& load, std::ostream& out, std::ostream& err,
                        int& code) {
  AddCapture(app, load, err, code);
  AddStatus(app, out, err, code);
  AddReprocess(app, load, err, code);
  AddExport(app, out, err, code);
}

}  // namespace conmuta::capture
