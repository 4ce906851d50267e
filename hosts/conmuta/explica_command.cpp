// conmuta explica
#include <charconv>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "conmuta/command.h"
#include "conmuta/exit_codes.h"
#include "conmuta/explanation.h"
#include "conmuta/files.h"
#include "conmuta/layout_choice.h"
#include "conmuta/today_option.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/platform.h"

namespace conmuta::host {
namespace {

// What is to be explained: a text, or a capture, or one line of it.
struct Subject {
  std::string file = "-";
  std::optional<std::uint64_t> line;
  std::optional<std::string> text;
};

bool IsThere(std::string_view file) {
  std::error_code ignored;
  return std::filesystem::exists(PathOf(file), ignored);
}

Subject ReadSubject(const std::string& operand) {
  Subject subject;
  if (operand == "-") return subject;
  subject.file = operand;
  if (IsThere(operand)) return subject;
  const std::size_t colon = operand.rfind(':');
  if (colon != std::string::npos && colon != 0 && IsThere(operand.substr(0, colon))) {
    const std::string digits = operand.substr(colon + 1);
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size() || number == 0) {
      throw UserError("«" + digits + "» no es un número de línea");
    }
    subject.file = operand.substr(0, colon);
    subject.line = number;
    return subject;
  }
  subject.file = "-";
  subject.text = operand;
  return subject;
}

int RunExplica(const Arguments& arguments, Console& console) {
  const NamedLayout layout = FindLayout(arguments.At(0));
  const Subject subject = ReadSubject(arguments.At(1, "-"));
  const TodayOption today(arguments);
  const bool as_json = arguments.Has("--json");

  std::istringstream text(subject.text.value_or(""));
  std::ifstream file;
  if (!subject.text && subject.file != "-") file = OpenToRead(PathOf(subject.file));
  std::istream& bytes = subject.text ? text : subject.file != "-" ? file : console.in;

  const auto config = MakeConfig(layout.layout);
  DayClock clock(SystemPlatform().clock);
  clsTradEST translator(clock);
  translator.Conmutador(config.get());
  LineSource lines(bytes);
  Text line;
  bool is_first = true;
  bool is_found = false;
  bool has_errors = false;
  const auto take = [&](std::uint64_t number, std::string_view raw) {
    if (is_first) today.Set(clock, lines, subject.file);
    is_first = false;
    Widen(raw, line);
    Explanation explanation(number, line);
    // Those before the one that was asked for may be part of its block or of its transfer.
    const Verdict verdict = translator.Translate(line, explanation);
    if (subject.line && number != *subject.line) return;
    if (!as_json && is_found) console.out << '\n';
    is_found = true;
    has_errors = has_errors || verdict.error != LineError::kNone;
    console.out << (as_json ? ExplanationJson(explanation, translator.InfoLlamada())
                            : ExplanationText(explanation, translator.InfoLlamada(),
                                              console.out_has_colours));
  };
  const auto arrived = [&clock] { clock.LookAgain(); };
  while (lines.Next(take, arrived) && !(subject.line && is_found)) {
  }
  if (subject.line && !is_found) {
    throw UserError(ShownPath(PathOf(subject.file)) + ": no tiene una línea " +
                    std::to_string(*subject.line) + " que traducir");
  }
  return has_errors ? kLinesWithErrors : kDone;
}

constexpr Operand kOperands[] = {
    {"LAYOUT", "Como en traduce, pero uno solo.", 1, 1, Offers::kLayouts},
    {"LINEA",
     "Una línea, entre comillas; o una captura; o CAPTURA:N, su línea N. Si no se da, o es "
     "-, la entrada estándar.",
     0, 1, Offers::kFiles},
};

constexpr Option kOptions[] = {
    {"--json", "", "", "Un objeto JSON por línea.", ""},
    kTodayOption,
};

constexpr Example kExamples[] = {
    {"conmuta explica panasonic-kx captura.txt:9", "La línea 9, con sus columnas y su veredicto."},
    {"conmuta explica mi.cfg \"01/14/19 09:21AM 1201     EXT1215\"", "Una línea suelta."},
};

}  // namespace

extern const Command kExplica;
const Command kExplica = {
    "explica",
    "Dice qué se lee en cada línea, y por qué no es llamada.",
    "Muestra cada línea bajo una regla, con las columnas de cada dato marcadas; lo que se leyó en "
    "ellas, lo que esperaba cada constante y lo que encontró, y el veredicto.",
    kOperands,
    kOptions,
    kExamples,
    RunExplica};

}  // namespace conmuta::host
