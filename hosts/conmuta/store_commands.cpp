// conmuta estado, conmuta reprocesa, conmuta exporta: what is asked of the capture's store.
#include "capture/asking.h"
#include "conmuta/day.h"
#include "conmuta/layout_choice.h"
#include "conmuta/named_store.h"
#include "conmuta/user_error.h"

namespace conmuta::host {

std::vector<capture::LoadedLayout> LoadNamedLayouts(const std::string& name) {
  const auto named = FindLayouts(name, Companions::kCome);
  auto configs = MakeUsefulConfigs(named);
  std::vector<capture::LoadedLayout> loaded;
  for (std::size_t i = 0; i < named.size(); ++i) {
    loaded.push_back({named[i].name, std::move(configs[i]), named[i].layout.sheet.time_of});
  }
  return loaded;
}

namespace {

int RunEstado(const Arguments& arguments, Console& console) {
  capture::StatusOptions options;
  options.store = arguments.Value("--almacen", options.store);
  if (arguments.Has("--silencio")) {
    options.silence_minutes =
        static_cast<std::int64_t>(arguments.Number("--silencio", 1, 10'000'000, 1));
  }
  return capture::Status(options, console.out, console.err);
}

int RunReprocesa(const Arguments& arguments, Console& console) {
  capture::ReprocessOptions options;
  options.store = arguments.Value("--almacen", options.store);
  for (const std::string& text : arguments.operands()) {
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos || equals + 1 == text.size()) {
      throw UserError("FUENTE: «" + text + "» no es NOMBRE=LAYOUT.");
    }
    options.layouts.emplace_back(text.substr(0, equals), text.substr(equals + 1));
  }
  return capture::Reprocess(options, LoadNamedLayouts, console.err);
}

std::int64_t Day(const Arguments& arguments, std::string_view option, std::int64_t otherwise) {
  if (!arguments.Has(option)) return otherwise;
  const std::string text = arguments.Value(option, "");
  const auto day = ReadDay(text);
  if (!day) throw UserError(std::string(option) + ": «" + text + "» no es un día como 2026-11-21.");
  return (std::int64_t{day->year} * 100 + day->month) * 100 + day->day;
}

int RunExporta(const Arguments& arguments, Console& console) {
  capture::ExportOptions options;
  options.store = arguments.Value("--almacen", options.store);
  options.source = arguments.Value("--fuente", "");
  options.first_day = Day(arguments, "--desde", options.first_day);
  options.last_day = Day(arguments, "--hasta", options.last_day);
  if (arguments.Value("--formato", "csv") == "json") {
    options.format = capture::ExportFormat::kJsonLines;
  }
  options.to_terminal = console.out_is_terminal;
  return capture::Export(options, console.out, console.err);
}

constexpr Option kStatusOptions[] = {
    kStoreOption,
    {"--silencio", "", "MINUTOS",
     "Sin líneas por tanto tiempo, una fuente está en silencio y la orden termina con 1.", ""}};

constexpr Operand kReprocessOperands[] = {
    {"FUENTE", "NOMBRE=LAYOUT: la fuente y con qué se traduce.", 1, kAnyNumber, Offers::kNothing}};

constexpr Option kReprocessOptions[] = {kStoreOption};

constexpr Option kExportOptions[] = {
    kStoreOption,
    {"--fuente", "", "NOMBRE", "De una sola fuente.", ""},
    {"--desde", "", "FECHA", "El primer día, como 2026-11-01.", ""},
    {"--hasta", "", "FECHA", "El último día.", ""},
    {"--formato", "-f", "csv|json",
     "csv (RFC 4180) o json (un objeto por línea). Si no se da, csv.", "csv json",
     Offers::kChoices}};

constexpr Example kStatusExamples[] = {
    {"conmuta estado --almacen sitio.db --silencio 30",
     "Para un vigilante: termina con 1 si alguna central calla hace media hora."}};

constexpr Example kReprocessExamples[] = {
    {"conmuta reprocesa --almacen sitio.db centro=corregido.toml",
     "Lo guardado de una central, con la descripción corregida."}};

constexpr Example kExportExamples[] = {
    {"conmuta exporta --almacen sitio.db --desde 2026-11-01 --hasta 2026-11-30 > noviembre.csv",
     "Las llamadas de un mes."}};

}  // namespace

extern const Command kEstado;
const Command kEstado = {"estado",
                         "Dice qué ha llegado de cada fuente de la captura.",
                         "Por fuente: líneas, llamadas, rechazadas por motivo, errores, y cuándo "
                         "llegó la última. Se puede preguntar mientras se captura.",
                         {},
                         kStatusOptions,
                         kStatusExamples,
                         RunEstado,
                         "si una fuente está en silencio"};

extern const Command kReprocesa;
const Command kReprocesa = {"reprocesa",
                            "Traduce otra vez las líneas guardadas, con otro layout.",
                            "Cada línea se lee con el día en que llegó. Lo que se había hecho de "
                            "ellas queda como estaba si "
                            "algo falla. Mientras una captura guarda una de esas fuentes no hace "
                            "nada, y termina con 2.",
                            kReprocessOperands,
                            kReprocessOptions,
                            kReprocessExamples,
                            RunReprocesa,
                            {}};

extern const Command kExporta;
const Command kExporta = {"exporta",
                          "Escribe las llamadas guardadas, por fechas.",
                          "Un renglón por llamada en la salida, por el día de la llamada.",
                          {},
                          kExportOptions,
                          kExportExamples,
                          RunExporta,
                          {}};

}  // namespace conmuta::host
