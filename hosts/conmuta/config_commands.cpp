// conmuta compila, descompila, informe: configurations made of layouts, and looked at.
#include <algorithm>
#include <filesystem>
#include <set>

#include "config/report.h"
#include "conmuta/config_files.h"
#include "conmuta/exit_codes.h"
#include "conmuta/layout_choice.h"
#include "conmuta/output_option.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "layouts/layout_config.h"
#include "layouts/write_layout.h"

namespace conmuta::host {
namespace {

namespace fs = std::filesystem;

int RunCompila(const Arguments& arguments, Console&) {
  const std::string target = arguments.Value("--salida", "");
  if (target.empty())
    throw UserError("Falta --salida: el archivo .cfg, o una carpeta para varios.");
  std::error_code ignored;
  const fs::path path = PathOf(target);
  std::vector<ConfigFile> files;
  if (arguments.operands().size() == 1 && !fs::is_directory(path, ignored) && path.has_filename()) {
    files.push_back({path, FindLayout(arguments.At(0)).layout});
  } else {
    std::set<std::string> names;
    for (const std::string& operand : arguments.operands()) {
      NamedLayout named = FindLayout(operand);
      if (!names.insert(named.name).second) {
        throw UserError(operand + ": otro conmutador tiene el mismo nombre");
      }
      files.push_back({path / PathOf(named.name + ".cfg"), std::move(named.layout)});
    }
    MakeFolder(path);
  }
  WriteConfigs(files, ExistingOf(arguments));
  return kDone;
}

int RunDescompila(const Arguments& arguments, Console& console) {
  const auto config = OpenConfig(arguments.At(0));
  WriteOut(arguments, console, layouts::WriteLayout(layouts::LayoutOf(*config)));
  return kDone;
}

int RunInforme(const Arguments& arguments, Console& console) {
  const auto config = OpenConfig(arguments.At(0));
  const Text report = ConfigurationReport(*config);
  std::string text;
  for (TextView rest = report; !rest.empty();) {
    const std::size_t end = std::min(rest.find(kLineBreak), rest.size());
    AppendShown(text, rest.substr(0, end));
    text += '\n';
    rest.remove_prefix(std::min(end + kLineBreak.size(), rest.size()));
  }
  WriteOut(arguments, console, text);
  return kDone;
}

constexpr Operand kLayouts[] = {{"LAYOUT", "Un layout.toml o su carpeta, o un nombre del catálogo.",
                                 1, kAnyNumber, Offers::kLayouts}};
constexpr Operand kConfig[] = {{"CONFIGURACION",
                                "Un archivo .cfg o de intercambio, o cualquier LAYOUT de traduce.",
                                1, 1, Offers::kLayouts}};

constexpr Option kCompilaOptions[] = {
    {"--salida", "-o", "DESTINO",
     "El archivo .cfg; o una carpeta, en la que cada uno toma el nombre de su layout.", "",
     Offers::kFiles},
    kReplaceOption,
};
constexpr Option kOutputOptions[] = {kOutputOption, kReplaceOption};

constexpr Example kCompilaExamples[] = {
    {"conmuta compila layout.toml -o sitio.cfg", "La configuración que abre el componente."},
    {"conmuta compila switches/* -o catalogo/", "Una por carpeta."},
};
constexpr Example kDescompilaExamples[] = {
    {"conmuta descompila sitio.cfg -o layout.toml", "Para cambiarla con un editor de texto."}};
constexpr Example kInformeExamples[] = {
    {"conmuta informe sitio.cfg", "Sus datos y constantes, con sus columnas."}};

}  // namespace

extern const Command kCompila;
extern const Command kDescompila;
extern const Command kInforme;

const Command kCompila = {"compila",
                          "Hace archivos .cfg de layouts.",
                          "Hace de cada layout la configuración que abre el componente. Si uno "
                          "tiene un error no se escribe ninguna.",
                          kLayouts,
                          kCompilaOptions,
                          kCompilaExamples,
                          RunCompila};

const Command kDescompila = {"descompila",
                             "Hace un layout.toml de una configuración.",
                             "Escribe una configuración como layout.toml: para leerla, compararla "
                             "o cambiarla con un editor de texto.",
                             kConfig,
                             kOutputOptions,
                             kDescompilaExamples,
                             RunDescompila};

const Command kInforme = {"informe",
                          "Muestra lo que dice una configuración.",
                          "El mismo informe que da el componente: el conmutador, sus datos y sus "
                          "constantes.",
                          kConfig,
                          kOutputOptions,
                          kInformeExamples,
                          RunInforme};

}  // namespace conmuta::host
