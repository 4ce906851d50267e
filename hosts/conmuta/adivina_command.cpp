// conmuta adivina
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

#include "conmuta/command.h"
#include "conmuta/exit_codes.h"
#include "conmuta/files.h"
#include "conmuta/fit.h"
#include "conmuta/json_text.h"
#include "conmuta/line_source.h"
#include "conmuta/utf8.h"

namespace conmuta::host {
namespace {

constexpr double kAlike = 1e-9;

std::vector<Text> FirstLines(std::istream& bytes) {
  std::vector<Text> texts;
  LineSource lines(bytes);
  const auto take = [&](std::uint64_t, std::string_view line) {
    if (texts.size() < kEnoughLines) Widen(line, texts.emplace_back());
  };
  while (lines.Next(take) && texts.size() < kEnoughLines) {
  }
  return texts;
}

std::string Aligned(std::string text, std::size_t width) {
  return text.append(width - std::min(width, Columns(text)), ' ');
}

std::string NameOfSwitch(const NamedLayout& layout) {
  return Shown(MakeConfig(layout.layout)->NombreConmutador());
}

void WriteTable(const std::vector<Fit>& fits, std::size_t count, Console& console) {
  if (count == 0) {
    console.out << "Ningún conmutador del catálogo explica estas líneas.\n";
    return;
  }
  for (std::size_t i = 0; i < count; ++i) {
    const Fit& fit = fits[i];
    const auto percent = static_cast<int>(std::lround(fit.Score() * 100));
    std::string bar;
    for (int step = 0; step < 10; ++step) bar += step * 10 + 5 <= percent ? "█" : "·";
    console.out << Aligned(fit.layout().name, 24) << bar << ' '
                << Aligned(std::to_string(percent) + " %", 6) << ' ' << fit.calls() << " de "
                << fit.lines() << (fit.lines() == 1 ? " línea" : " líneas");
    if (fit.implausible() != 0) console.out << ", " << fit.implausible() << " dudosas";
    console.out << "  " << NameOfSwitch(fit.layout()) << '\n';
  }
  std::size_t alike = 1;
  while (alike < count && fits[0].Score() - fits[alike].Score() < kAlike) ++alike;
  if (alike > 1) {
    console.out << "\nLos primeros " << alike << " explican estas líneas por igual.\n";
  }
}

void WriteJson(const std::vector<Fit>& fits, std::size_t count, Console& console) {
  for (std::size_t i = 0; i < count; ++i) {
    nlohmann::ordered_json json;
    json["formato"] = 1;
    json["conmutador"] = fits[i].layout().name;
    json["puntos"] = std::round(fits[i].Score() * 10000) / 10000;
    json["lineas"] = fits[i].lines();
    json["llamadas"] = fits[i].calls();
    json["dudosas"] = fits[i].implausible();
    console.out << JsonLine(json);
  }
}

int RunAdivina(const Arguments& arguments, Console& console) {
  const std::string file = arguments.At(0);
  std::ifstream opened;
  if (file != "-") opened = OpenToRead(PathOf(file));
  const auto fits = RankCatalogue(FirstLines(file != "-" ? opened : console.in));
  std::size_t count = arguments.Number("--cuantos", 1, fits.size(), 5);
  while (count != 0 && fits[count - 1].Score() <= 0) --count;
  (arguments.Has("--json") ? WriteJson : WriteTable)(fits, count, console);
  return kDone;
}

constexpr Operand kOperands[] = {
    {"CAPTURA", "Lo que imprimió el conmutador; - lee la entrada estándar.", 1, 1, Offers::kFiles}};

constexpr Option kOptions[] = {
    {"--cuantos", "-n", "N", "Cuántos se muestran. Si no se da, 5.", ""},
    {"--json", "", "", "Un objeto JSON por conmutador.", ""},
};

constexpr Example kExamples[] = {
    {"conmuta adivina captura.txt", "Los conmutadores del catálogo que mejor la explican."},
};

}  // namespace

extern const Command kAdivina;
const Command kAdivina = {
    "adivina",
    "Dice qué conmutador del catálogo explica mejor una captura.",
    "Traduce las primeras líneas de una captura con cada layout del catálogo y los ordena por la "
    "parte de lo impreso que usan las llamadas creíbles: con fechas que existen, duraciones de "
    "menos de un día, y sin números cortados.",
    kOperands,
    kOptions,
    kExamples,
    RunAdivina};

}  // namespace conmuta::host
