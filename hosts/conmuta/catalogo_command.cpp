// conmuta catalogo
#include <nlohmann/json.hpp>

#include "catalogue/switch_folder.h"
#include "conmuta/config_files.h"
#include "conmuta/exit_codes.h"
#include "conmuta/json_text.h"
#include "conmuta/layout_choice.h"
#include "conmuta/output_option.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

std::string_view TimeOf(const layouts::Sheet& sheet) {
  switch (sheet.time_of) {
    case layouts::Sheet::TimeOf::kStart:
      return "inicio";
    case layouts::Sheet::TimeOf::kEnd:
      return "fin";
    default:
      return "";
  }
}

void List(Console& console, bool as_json) {
  for (const NamedLayout& named : Catalogue()) {
    const auto config = MakeConfig(named.layout);
    const layouts::Sheet& sheet = named.layout.sheet;
    if (!as_json) {
      std::string name = named.name;
      name.append(name.size() < 24 ? 24 - name.size() : 1, ' ');
      console.out << name << Utf8(config->NombreConmutador()) << "\n    " << Utf8(sheet.covers)
                  << '\n';
      continue;
    }
    nlohmann::ordered_json json;
    json["formato"] = 1;
    json["conmutador"] = named.name;
    json["marca"] = Utf8(config->Marca());
    json["modelo"] = Utf8(config->Modelo());
    json["caso"] = Utf8(config->NombreCaso());
    json["cubre"] = Utf8(sheet.covers);
    json["hora"] = TimeOf(sheet);
    json["prueba"] = Utf8(sheet.proof);
    json["pierde"] = nlohmann::ordered_json::array();
    for (const Text& loss : sheet.losses) json["pierde"].push_back(Utf8(loss));
    json["alternativas"] = nlohmann::ordered_json::array();
    for (const Text& name : sheet.alternatives) json["alternativas"].push_back(Utf8(name));
    console.out << JsonLine(json);
  }
}

// Numbered as the component's catalogue wants them, in the order of the names.
void Install(const Arguments& arguments, Console& console) {
  const auto folder = PathOf(arguments.At(1));
  SwitchFolder naming;
  naming.prefix = FromUtf8(arguments.Value("--prefijo", "CNM"));
  naming.extension = FromUtf8(arguments.Value("--extension", "cfg"));
  if ((naming.prefix + naming.extension).find_first_of(u"\\/:*?\"<>|") != Text::npos) {
    throw UserError("--prefijo y --extension no pueden llevar ninguno de \\ / : * ? \" < > |");
  }
  std::vector<ConfigFile> files;
  for (const NamedLayout& named : Catalogue()) {
    const auto number = static_cast<std::int32_t>(files.size() + 1);
    files.push_back({folder / PathOf(Utf8(naming.FileOf(number))), named.layout});
  }
  MakeFolder(folder);
  WriteConfigs(files, ExistingOf(arguments));
  console.err << files.size() << " configuraciones en " << ShownPath(folder) << '\n';
}

int RunCatalogo(const Arguments& arguments, Console& console) {
  if (arguments.operands().empty()) {
    List(console, arguments.Has("--json"));
  } else if (arguments.operands().size() == 1) {
    throw UserError("Falta la carpeta: conmuta catalogo instala DIR");
  } else {
    Install(arguments, console);
  }
  return kDone;
}

constexpr Operand kOperands[] = {
    {"instala", "Escribe el catálogo en una carpeta.", 0, 1, Offers::kChoices, "instala"},
    {"DIR", "La carpeta; se crea si no existe.", 0, 1, Offers::kFolders},
};

constexpr Option kOptions[] = {
    {"--json", "", "", "Un objeto JSON por conmutador, con su ficha.", ""},
    {"--prefijo", "", "TEXTO", "Con qué empiezan los archivos, como en Prefijo. Si no se da, CNM.",
     ""},
    {"--extension", "", "TEXTO", "Su extensión, como en Extension. Si no se da, cfg.", ""},
    kReplaceOption,
};

constexpr Example kExamples[] = {
    {"conmuta catalogo", "Los conmutadores que el programa conoce."},
    {"conmuta catalogo instala conmutadores/",
     "Los archivos CNM1.cfg, CNM2.cfg... que administra Conmuta.clsConmutadores."},
};

}  // namespace

extern const Command kCatalogo;
const Command kCatalogo = {
    "catalogo",
    "Nombra los conmutadores que el programa conoce, o los instala.",
    "Sin argumentos, una lista de los layouts que el programa lleva dentro. Con «instala DIR», los "
    "escribe como archivos numerados: la carpeta que abre el administrador del componente. Nada de "
    "lo "
    "que ya existe se reemplaza si no se pide.",
    kOperands,
    kOptions,
    kExamples,
    RunCatalogo};

}  // namespace conmuta::host
