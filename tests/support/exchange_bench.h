// A configuration beside an exchange file, with its events written down.
#pragma once

#include <string>
#include <vector>

#include "config/clsCfgConmut.h"
#include "support/config_builder.h"
#include "support/config_errors.h"
#include "support/profile_site.h"
#include "support/recording_listener.h"

namespace conmuta::test {

// Texts of the errors, as hosts know them.
inline constexpr TextView kExportFailed =
    u"Ocurrio un error en los datos al intentar exportar la configuraci\u00F3n.";
inline constexpr TextView kImportFailed = u"Error de importaci\u00F3n en la configuraci\u00F3n.";
inline constexpr TextView kWrongVersion = u"La versi\u00F3n no es correcta.";
inline constexpr TextView kNoBrand =
    u"No se encontro una marca para la configuraci\u00F3n del conmutador.";
inline constexpr TextView kNoModel =
    u"No se encontro un modelo para la configuraci\u00F3n del conmutador.";
inline constexpr TextView kWrongCase = u"El caso de la configuraci\u00F3n no esta soportado.";
inline constexpr TextView kNoSeparator = u"No hay un separador de llamadas definido.";

class ExchangeBench {
 public:
  explicit ExchangeBench(SiteKind kind) : site(MakeSite(kind)) { config.Listen(&listener); }

  // Brand, model and separator; their events are forgotten.
  void Name() {
    config.Marca(u"ACME");
    config.Modelo(u"X1");
    config.Separador(u"\r\n");
    listener.Take();
  }

  Text Path() const { return site->Path(kName); }
  void Export() { config.Exportar(Path()); }
  void Import() { config.Importar(Path()); }
  void ImportText(std::string_view bytes) {
    site->Put(kName, bytes);
    Import();
  }
  void ExpectImportError(std::string_view bytes, TextView detail) {
    site->Put(kName, bytes);
    ExpectImportError(detail);
  }
  void ExpectImportError(TextView detail) {
    ExpectConfigError(
        [&] { Import(); }, 0x800405E0, u"clsConfigConmut.Importar",
        Text(kImportFailed).append(kLineBreak).append(detail).append(kLineBreak).append(Path()));
  }
  void ExpectExportError(TextView path) {
    ExpectConfigError([&] { config.Exportar(path); }, 0x800405DF, u"clsConfigConmut.Exportar",
                      kExportFailed);
  }

  // The exported file, blank lines aside.
  std::vector<std::string> Lines() const { return site->Lines(kName); }
  // The line of a key, or nothing.
  std::string Line(const std::string& key) const {
    for (const std::string& line : Lines()) {
      if (line.starts_with(key + "=")) return line;
    }
    return {};
  }

  static constexpr TextView kName = u"exchange.ini";

  std::unique_ptr<ProfileSite> site;
  RecordingListener listener;
  clsCfgConmut config{site->platform()};
};

}  // namespace conmuta::test
