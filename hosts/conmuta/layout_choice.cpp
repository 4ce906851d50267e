#include "conmuta/layout_choice.h"

#include <algorithm>
#include <stdexcept>

#include "conmuta/builtin_layouts.h"
#include "conmuta/files.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "layouts/layout_config.h"
#include "layouts/nearest.h"
#include "layouts/read_layout.h"
#include "platform/errors.h"
#include "platform/unicode.h"
#include "translation/translators.h"

namespace conmuta::host {
namespace {

namespace fs = std::filesystem;

const fs::path kLayoutFile = "layout.toml";

bool Exists(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

layouts::Layout ReadToml(std::string_view toml, const std::string& file) {
  auto reading = layouts::ReadLayout(toml, FromUtf8(file));
  if (reading.layout) return std::move(*reading.layout);
  std::string sentences;
  for (const layouts::Mistake& mistake : reading.mistakes) {
    if (!sentences.empty()) sentences += '\n';
    sentences += Shown(Sentence(mistake));
  }
  throw UserError(sentences);
}

// That of the folder is its name; of a file that is called as all are, too.
std::string NameOf(const fs::path& path) {
  if (path.filename() != kLayoutFile) return ShownPath(path.stem());
  std::error_code ignored;
  return ShownPath(fs::absolute(path, ignored).lexically_normal().parent_path().filename());
}

NamedLayout FromTomlFile(const fs::path& path) {
  return {NameOf(path), ReadToml(ReadWhole(path), ShownPath(path))};
}

std::unique_ptr<clsCfgConmut> OpenConfigFile(const fs::path& path) {
  OpenToRead(path);  // says what is the matter with it
  auto config = std::make_unique<clsCfgConmut>(SystemPlatform());
  try {
    config->Abrir(CorePath(path));
    return config;
  } catch (const ConfigError&) {
  }
  try {
    config->Importar(CorePath(path));
  } catch (const ConfigError&) {
    throw UserError(ShownPath(path) + ": no es una configuración ni un archivo de intercambio");
  }
  return config;
}

std::optional<NamedLayout> FindFile(const fs::path& path) {
  if (!Exists(path)) return std::nullopt;
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) {
    if (!Exists(path / kLayoutFile)) {
      throw UserError(ShownPath(path) + ": la carpeta no tiene un layout.toml");
    }
    return FromTomlFile(path / kLayoutFile);
  }
  if (path.extension() == ".toml") return FromTomlFile(path);
  return NamedLayout{NameOf(path), layouts::LayoutOf(*OpenConfigFile(path))};
}

const NamedLayout* FindInCatalogue(std::string_view name) {
  const auto& all = Catalogue();
  const auto row = std::find_if(all.begin(), all.end(),
                                [&](const NamedLayout& layout) { return layout.name == name; });
  return row != all.end() ? &*row : nullptr;
}

[[noreturn]] void FailToFind(std::string_view name) {
  std::vector<Text> names;
  for (const auto& row : BuiltinLayouts()) names.push_back(FromUtf8(row.name));
  const std::vector<TextView> views(names.begin(), names.end());
  const Text written = FromUtf8(name);
  std::string sentence = Shown(written) + ": no hay tal archivo ni tal conmutador en el catálogo";
  if (const TextView nearest = layouts::Nearest(written, views); !nearest.empty()) {
    sentence += "; ¿quiso decir " + Utf8(nearest) + "?";
  }
  throw UserError(sentence);
}

// Beside the layout that names it, or in the catalogue.
NamedLayout FindAlternative(const std::string& name, const fs::path& beside) {
  const fs::path folder = fs::is_directory(beside) ? beside : beside.parent_path();
  const fs::path sibling = folder / ".." / PathOf(name) / kLayoutFile;
  if (Exists(beside) && Exists(sibling)) return FromTomlFile(sibling);
  return FindLayout(name);
}

bool IsIn(const std::vector<NamedLayout>& layouts, const std::string& name) {
  return std::any_of(layouts.begin(), layouts.end(),
                     [&](const NamedLayout& layout) { return layout.name == name; });
}

std::vector<std::string> Parts(std::string_view argument) {
  // A file may have the sign in its name.
  if (Exists(PathOf(argument))) return {std::string(argument)};
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t plus = argument.find('+');
    parts.emplace_back(argument.substr(0, plus));
    if (plus == std::string_view::npos) return parts;
    argument.remove_prefix(plus + 1);
  }
}

}  // namespace

const std::vector<NamedLayout>& Catalogue() {
  static const std::vector<NamedLayout> catalogue = [] {
    std::vector<NamedLayout> all;
    for (const auto& row : BuiltinLayouts()) {
      all.push_back({std::string(row.name), ReadToml(row.toml, std::string(row.name))});
    }
    return all;
  }();
  return catalogue;
}

NamedLayout FindLayout(std::string_view argument) {
  if (argument.empty()) throw UserError("El LAYOUT está vacío.");
  if (auto found = FindFile(PathOf(argument))) return std::move(*found);
  if (const NamedLayout* found = FindInCatalogue(argument)) return *found;
  FailToFind(argument);
}

std::vector<NamedLayout> FindLayouts(std::string_view argument, Companions companions) {
  std::vector<NamedLayout> found;
  std::vector<std::pair<std::string, fs::path>> named;
  for (const std::string& part : Parts(argument)) {
    NamedLayout layout = FindLayout(part);
    for (const Text& name : layout.layout.sheet.alternatives) {
      named.emplace_back(Utf8(name), PathOf(part));
    }
    found.push_back(std::move(layout));
  }
  if (companions == Companions::kStayAway) return found;
  for (const auto& [name, beside] : named) {
    if (!IsIn(found, name)) found.push_back(FindAlternative(name, beside));
  }
  return found;
}

std::unique_ptr<clsCfgConmut> OpenConfig(std::string_view argument) {
  const fs::path path = PathOf(argument);
  if (Exists(path) && !fs::is_directory(path) && path.extension() != ".toml") {
    return OpenConfigFile(path);
  }
  return MakeConfig(FindLayout(argument).layout);
}

std::unique_ptr<clsCfgConmut> MakeConfig(const layouts::Layout& layout) {
  auto config = std::make_unique<clsCfgConmut>(SystemPlatform());
  layouts::Apply(layout, *config);
  return config;
}

std::vector<std::unique_ptr<clsCfgConmut>> MakeUsefulConfigs(std::span<const NamedLayout> layouts) {
  std::vector<std::unique_ptr<clsCfgConmut>> configs;
  for (const NamedLayout& named : layouts) {
    configs.push_back(MakeConfig(named.layout));
    if (const auto reason = translation::WhyUseless(*configs.back())) {
      throw UserError(named.name + ": " + Utf8(Sentence(*reason)));
    }
  }
  return configs;
}

}  // namespace conmuta::host
