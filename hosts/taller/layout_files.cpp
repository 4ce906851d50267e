#include "taller/layout_files.h"

#include "config/clsCfgConmut.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "platform/errors.h"
#include "platform/platform.h"
#include "platform/text_profile.h"
#include "taller/memory_file.h"

namespace conmuta::taller {
namespace {

// A configuration whose files are one in memory.
class ConfigBytes {
 public:
  explicit ConfigBytes(std::string bytes = {}) : file_(std::move(bytes)) {}

  clsCfgConmut& config() { return config_; }
  const std::string& bytes() const { return file_.bytes(); }

 private:
  MemoryFile file_;
  const CodePage& code_page_ = SystemPlatform().code_page;
  TextProfiles profiles_{file_, code_page_};
  clsCfgConmut config_{Platform{file_, SystemPlatform().clock, code_page_, profiles_}};
};

// What a configuration says that was read by one of its ways; nothing when that is not its form.
std::optional<std::string> ReadConfig(std::string_view bytes,
                                      void (clsCfgConmut::*read)(TextView)) {
  ConfigBytes file{std::string(bytes)};
  try {
    (file.config().*read)(MemoryFile::kPath);
  } catch (const ConfigError&) {
    return std::nullopt;
  }
  return layouts::WriteLayout(layouts::LayoutOf(file.config()));
}

Message About(Text item, Text text) {
  return {std::move(item), {}, std::move(text)};
}

}  // namespace

FileReading ReadFile(std::string_view bytes, TextView name) {
  if (auto toml = ReadConfig(bytes, &clsCfgConmut::Abrir)) {
    return {Format::kConfiguration, std::move(*toml), {}};
  }
  if (auto toml = ReadConfig(bytes, &clsCfgConmut::Importar)) {
    return {Format::kExchange, std::move(*toml), {}};
  }
  auto reading = layouts::ReadLayout(bytes, name);
  if (reading.layout) return {Format::kLayout, std::string(bytes), {}};
  // Only of a file that is called so anybody wants to know what is wrong with its tables.
  if (name.ends_with(u".toml")) return {std::nullopt, {}, MessagesOf(reading.mistakes)};
  return {std::nullopt,
          {},
          {About({}, Text(name) + u": no es un layout, ni una configuración, ni un archivo de "
                                  u"intercambio")}};
}

FileWriting WriteFile(const std::string& toml, const layouts::Layout& layout, Format format) {
  if (format == Format::kLayout) return {toml, {}};
  if (format == Format::kExchange && layout.header.Caso != emCasoEstandar) {
    return {std::nullopt,
            {About(u"caso",
                   u"un archivo de intercambio sólo sabe del caso Estandar; guárdelo como "
                   u"configuración o como layout")}};
  }
  ConfigBytes file;
  layouts::Apply(layout, file.config());
  try {
    if (format == Format::kExchange) {
      file.config().Exportar(MemoryFile::kPath);
    } else {
      file.config().GuardarComo(MemoryFile::kPath);
    }
  } catch (const ConfigError& error) {
    return {std::nullopt, {About({}, error.description())}};
  }
  return {file.bytes(), {}};
}

}  // namespace conmuta::taller
