// conmuta traduce
#include <atomic>
#include <filesystem>
#include <fstream>
#include <optional>

#include "conmuta/exit_codes.h"
#include "conmuta/ordered_output.h"
#include "conmuta/output_option.h"
#include "conmuta/progress.h"
#include "conmuta/translate_capture.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

struct Format {
  std::string_view name;
  MakeRowFormat make;
};

constexpr Format kFormats[] = {{"tabla", MakeTable}, {"csv", MakeCsv}, {"json", MakeJsonLines}};

MakeRowFormat FindFormat(const std::string& name) {
  for (const Format& format : kFormats) {
    if (format.name == name) return format.make;
  }
  throw UserError("No hay tal formato: " + name);
}

std::uint64_t BytesOf(const std::vector<std::string>& files) {
  std::uint64_t total = 0;
  for (const std::string& file : files) {
    std::error_code error;
    const auto size = std::filesystem::file_size(PathOf(file), error);
    if (error) return 0;
    total += size;
  }
  return total;
}

// Every file can be opened before the first line is translated. (A pipe is opened once only:
// whoever writes into it would be through with the first reader.)
void CheckFiles(const std::vector<std::string>& files) {
  bool is_input_taken = false;
  for (const std::string& file : files) {
    std::error_code ignored;
    if (file != "-") {
      const auto path = PathOf(file);
      const auto status = std::filesystem::status(path, ignored);
      if (!std::filesystem::exists(status) || std::filesystem::is_regular_file(status) ||
          std::filesystem::is_directory(status)) {
        OpenToRead(path);
      }
    } else if (std::exchange(is_input_taken, true)) {
      throw UserError("La entrada estándar sólo se puede leer una vez.");
    }
  }
}

// Nothing that is read is written over.
void CheckIsNoneOf(const std::string& output, const std::vector<std::string>& inputs) {
  for (const std::string& input : inputs) {
    std::error_code ignored;
    if (input != "-" && std::filesystem::equivalent(PathOf(output), PathOf(input), ignored)) {
      throw UserError("--salida: " + ShownPath(PathOf(output)) + " es también lo que se lee.");
    }
  }
}

int RunTraduce(const Arguments& arguments, Console& console) {
  const std::vector<std::string> files(arguments.operands().begin() + 1,
                                       arguments.operands().end());
  const auto layouts =
      FindLayouts(arguments.At(0),
                  arguments.Has("--sin-alternativas") ? Companions::kStayAway : Companions::kCome);
  const TodayOption today(arguments);
  const MakeRowFormat make = FindFormat(arguments.Value("--formato", "tabla"));
  const std::size_t jobs = arguments.Number("--trabajos", 1, 64, 1);
  CheckFiles(files);
  std::optional<std::ofstream> written;
  if (arguments.Has("--salida")) {
    const std::string output = arguments.Value("--salida", "");
    if (ExistingOf(arguments) != Existing::kStays) CheckIsNoneOf(output, arguments.operands());
    written = OpenToWrite(PathOf(output), ExistingOf(arguments));
  }
  std::ostream& out = written ? *written : console.out;
  const bool is_quiet = arguments.Has("--callado");
  Progress progress(console.err, console.err_is_terminal && !is_quiet, BytesOf(files));

  std::vector<Tally> tallies(files.size(), Tally(layouts.size()));
  const auto work = [&](std::size_t i, OutBuffer& rows) {
    const std::string& file = files[i];
    const RowSource source{file, layouts, files.size() > 1, console.out_is_terminal && !written};
    const auto format = make(source);
    if (i == 0) format->Begin(rows);
    const CaptureJob job{file,
                         layouts,
                         today,
                         arguments.Has("--todo"),
                         file == "-",
                         [&](std::uint64_t bytes, std::uint64_t lines) {
                           progress.Advance(bytes, lines); }};
    if (file == "-") {
      tallies[i] = TranslateCapture(job, console.in, *format, rows);
    } else {
      std::ifstream bytes = OpenToRead(PathOf(file));
      tallies[i] = TranslateCapture(job, bytes, *format, rows);
    }
  };
  WorkInOrder(files.size(), jobs, work, [&](std::string_view bytes) {
    if (console.out_is_terminal) progress.Clear();
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
    if (!out) throw UserError("No se puede escribir la salida.");
  });
  progress.Clear();

  Tally all(layouts.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    all.Add(tallies[i]);
    if (is_quiet || files.size() == 1) continue;
    console.err << Shown(FromUtf8(files[i])) << ": " << tallies[i].Summary(layouts) << '\n';
  }
  if (!is_quiet) {
    console.err << (files.size() > 1 ? "total: " : "") << all.Summary(layouts) << '\n';
  }
  return all.errors() != 0 ? kLinesWithErrors : kDone;
}

constexpr Operand kOperands[] = {
    {"LAYOUT",
     "Un archivo .cfg o de intercambio, un layout.toml o su carpeta, o un nombre del catálogo. "
     "Varios con +: la línea es del primero que hace de ella una llamada.",
     1, 1, Offers::kLayouts},
    {"CAPTURA", "Lo que imprimió el conmutador; - lee la entrada estándar.", 1, kAnyNumber,
     Offers::kFiles},
};

constexpr Option kOptions[] = {
    {"--formato", "-f", "tabla|csv|json",
     "tabla, para personas; csv (RFC 4180) o json (un objeto "
     "por línea), para programas. Si no se da, tabla.",
     "tabla csv json", Offers::kChoices},
    kTodayOption,
    {"--todo", "-t", "", "También un renglón por cada línea sin llamada, con su motivo.", ""},
    {"--sin-alternativas", "", "", "Sin los layouts que el LAYOUT mismo nombra como alternativas.",
     ""},
    {"--trabajos", "-j", "N", "Cuántas capturas se traducen a la vez; salen en su orden.", ""},
    kOutputOption,
    kReplaceOption,
    {"--callado", "-q", "", "Sin resumen ni avance.", ""},
};

constexpr Example kExamples[] = {
    {"conmuta traduce panasonic-kx captura.txt", "Una tabla de llamadas; el resumen, al final."},
    {"conmuta traduce --formato csv --hoy archivo sitio.cfg enero.txt febrero.txt -o llamadas.csv",
     "Dos capturas viejas, con los años de cuando se tomaron."},
    {"socat - /dev/ttyUSB0,b9600,raw | conmuta traduce -f json nec-date -",
     "Lo que llega por el puerto serial, según llega."},
};

}  // namespace

extern const Command kTraduce;
const Command kTraduce = {
    "traduce",
    "Traduce capturas en llamadas.",
    "Traduce lo que imprimió un conmutador en llamadas: un renglón por llamada en la salida, y un "
    "resumen en la salida de errores.\n\n"
    "Una captura puede empezar con un encabezado de líneas «# clave: valor», que no se traduce. "
    "Los "
    "bytes de control se descartan. Una línea que no es UTF-8 se lee como Windows-1252.",
    kOperands,
    kOptions,
    kExamples,
    RunTraduce};

}  // namespace conmuta::host
