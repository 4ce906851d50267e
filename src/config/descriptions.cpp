#include "config/descriptions.h"

#include <array>
#include <cstddef>

namespace conmuta {
namespace {

constexpr TextView kNoParameter = u"No parametro";

// The spellings, the mixed accents and the trailing blank of the first text are what hosts show.
constexpr std::array<TextView, 52> kDatoDescriptions = {
    u"Día de la fecha ",
    u"Mes de la fecha",
    u"Año de la fecha",
    u"Hora de la fecha",
    u"Minuto de la fecha",
    u"Segundo de la fecha",
    u"Día de la duración",
    u"Mes de la duración",
    u"Año de la duración",
    u"Hora de la duración",
    u"Minuto de la duración",
    u"Segundo de la duración",
    u"Horas de RING",
    u"Minutos de RING",
    u"Segundos de RING",
    u"Cuenta de usuario",
    u"Numero telefónico entrante",
    u"Numero telefónico saliente",
    u"Numero telefónico inter - extension",
    u"Numero telefónico inter - troncal",
    u"Numero telefónico inicio transferida entrante",
    u"Numero telefónico fin transferida entrante",
    u"Numero telefónico inicio transferida saliente",
    u"Numero telefónico fin transferida saliente",
    u"Numero telefónico inicio transferida inter- extension",
    u"Numero telefónico fin transferida inter- extension",
    u"Numero telefónico inicio transferida inter- troncal",
    u"Numero telefónico fin transferida inter- troncal",
    u"Troncal entrante",
    u"Extensión entrante",
    u"Troncal saliente",
    u"Extensión saliente",
    u"Extension No. 1 de inter - extension",
    u"Extension No. 2 de inter - extension",
    u"Troncal No. 1 de inter - troncal",
    u"Troncal No. 2 de inter - troncal",
    u"Troncal de inicio de transferida entrante",
    u"Extensión de inicio de transferida entrante",
    u"Troncal de fin de transferida entrante",
    u"Extensión de fin de transferida entrante",
    u"Troncal de inicio de transferida saliente",
    u"Extensión de inicio de transferida saliente",
    u"Troncal de fin de transferida saliente",
    u"Extensión de fin de transferida saliente",
    u"Extensión No. 1 de inicio de transferida inter - extensión",
    u"Extensión No. 2 de inicio de transferida inter - extensión",
    u"Extensión No. 1 de fin de transferida inter - extensión",
    u"Extensión No. 2 de fin de transferida inter - extensión",
    u"Troncal No. 1 de inicio de transferida inter - troncal",
    u"Troncal No. 2 de inicio de transferida inter - troncal",
    u"Troncal No. 1 de fin de transferida inter - troncal",
    u"Troncal No. 2 de fin de transferida inter - troncal",
};

constexpr std::array<TextView, 22> kCteDescriptions = {
    u"Identificador de horario matutino de la fecha",
    u"Identificador de horario matutino de la duración",
    u"Identificador de entrante",
    u"Identificador de entrante (AND)",
    u"Identificador de entrante (OR)",
    u"Identificador de saliente",
    u"Identificador de saliente (AND)",
    u"Identificador de saliente (OR)",
    u"Identificador de inter - extensión",
    u"Identificador de inter - extensión (AND)",
    u"Identificador de inter - extensión (OR)",
    u"Identificador de inter - troncal",
    u"Identificador de inter - troncal (AND)",
    u"Identificador de inter - troncal (OR)",
    u"Identificador de inicio de transferida entrante",
    u"Identificador de fin de transferida entrante",
    u"Identificador de inicio de transferida saliente",
    u"Identificador de fin de transferida saliente",
    u"Identificador de inicio de transferida inter - extensión",
    u"Identificador de fin de transferida inter - extensión",
    u"Identificador de inicio de transferida inter - troncal",
    u"Identificador de fin de transferida inter - troncal",
};

// In the order of their codes.
constexpr auto kCaseNames = std::to_array<TextView>({
    u"No definido",
    u"Estandar",
    u"Caso de Samsung Nx-820",
    u"Caso del Nortel Meridian",
    u"Caso norstar 0x32 SMDR6",
    u"Resta de fechas para calcular la duración",
});

// Entry `code - first` of a table; the default for every code outside it.
template <std::size_t kSize>
TextView LookUp(const std::array<TextView, kSize>& table, std::int64_t code, std::int64_t first,
                TextView otherwise) {
  const std::int64_t index = code - first;
  return index >= 0 && index < std::int64_t{kSize} ? table[static_cast<std::size_t>(index)]
                                                   : otherwise;
}

}  // namespace

namespace basConmuta {

TextView DescDATO(emParamDato kind) {
  return LookUp(kDatoDescriptions, kind, emPrimerParamDato + 1, kNoParameter);
}

TextView DescCTE(emParamDatoConstante kind) {
  return LookUp(kCteDescriptions, kind, emPrimerParamDatoConstante + 1, kNoParameter);
}

}  // namespace basConmuta

TextView CaseName(emCasos code) {
  return LookUp(kCaseNames, code, emNoCaso, u"");
}

TextView VersionName(emVersionConfiguracion code) {
  switch (code) {
    case emVersion2_0:
      return u"2.0";
    case emVersion3_0:
      return u"3.0";
    default:
      return u"No hay versión";
  }
}

TextView ObtMensajeError(emErroresConfig code) {
  switch (code) {
    case emErrorConfigNoHay:
      return u"No es posible acceder al archivo o el nombre del archivo no es válido.";
    case emErrorNoHayArchivo:
      return u"No es posible encontrar el archivo deseado.";
    case emErrorConfigDatosIncompletos:
      return u"Los datos de la configuración no estan completos.\r\n"
             u"Verifica la marca y modelo, el separador de llamadas, el caso establecido.";
    case emErrorConfigExportar:
      return u"Ocurrio un error en los datos al intentar exportar la configuración.";
    case emErrorConfigImportar:
      return u"Error de importación en la configuración.";
    case emErrorConfigAbrir:
      return u"No es posible abrir al archivo de configuración, no se reconoce.";
    default:
      return u"Error desconocido.";
  }
}

}  // namespace conmuta
