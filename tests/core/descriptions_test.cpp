#include "config/descriptions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "config/clsCfgConmut.h"
#include "support/config_bench.h"

namespace conmuta {
namespace {

// A name of the vocabulary, the code it is frozen at, and the text that hosts show for it.
template <class Enum>
struct Row {
  Enum name;
  std::int32_t code;
  const char16_t* text;
};

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

TEST(Descriptions, OfEveryDato) {
  static constexpr Row<emParamDato> kRows[] = {
      {emNoParamDato, 0, u"No parametro"},
      {emPrimerParamDato, 1, u"No parametro"},
      {emParamFechaDia, 2, u"Día de la fecha "},
      {emParamFechaMes, 3, u"Mes de la fecha"},
      {emParamFechaAnio, 4, u"Año de la fecha"},
      {emParamFechaHoras, 5, u"Hora de la fecha"},
      {emParamFechaMinutos, 6, u"Minuto de la fecha"},
      {emParamFechaSegundos, 7, u"Segundo de la fecha"},
      {emParamDuracionDia, 8, u"Día de la duración"},
      {emParamDuracionMes, 9, u"Mes de la duración"},
      {emParamDuracionAnio, 10, u"Año de la duración"},
      {emParamDuracionHoras, 11, u"Hora de la duración"},
      {emParamDuracionMinutos, 12, u"Minuto de la duración"},
      {emParamDuracionSegundos, 13, u"Segundo de la duración"},
      {emParamRingHoras, 14, u"Horas de RING"},
      {emParamRingMinutos, 15, u"Minutos de RING"},
      {emParamRingSegundos, 16, u"Segundos de RING"},
      {emParamCodigoCuenta, 17, u"Cuenta de usuario"},
      {emParamTelefonoEntrante, 18, u"Numero telefónico entrante"},
      {emParamTelefonoSaliente, 19, u"Numero telefónico saliente"},
      {emParamTelefonoInterExtension, 20, u"Numero telefónico inter - extension"},
      {emParamTelefonoInterTroncal, 21, u"Numero telefónico inter - troncal"},
      {emParamTelefonoEntranteInicioTransferida, 22,
       u"Numero telefónico inicio transferida entrante"},
      {emParamTelefonoEntranteFinTransferida, 23, u"Numero telefónico fin transferida entrante"},
      {emParamTelefonoSalienteInicioTransferida, 24,
       u"Numero telefónico inicio transferida saliente"},
      {emParamTelefonoSalienteFinTransferida, 25, u"Numero telefónico fin transferida saliente"},
      {emParamTelefonoInterExtensionInicioTransferida, 26,
       u"Numero telefónico inicio transferida inter- extension"},
      {emParamTelefonoInterExtensionFinTransferida, 27,
       u"Numero telefónico fin transferida inter- extension"},
      {emParamTelefonoInterTroncalInicioTransferida, 28,
       u"Numero telefónico inicio transferida inter- troncal"},
      {emParamTelefonoInterTroncalFinTransferida, 29,
       u"Numero telefónico fin transferida inter- troncal"},
      {emParamTroncalEntrante, 30, u"Troncal entrante"},
      {emParamExtensionEntrante, 31, u"Extensión entrante"},
      {emParamTroncalSaliente, 32, u"Troncal saliente"},
      {emParamExtensionSaliente, 33, u"Extensión saliente"},
      {emParamExtension1InterExtension, 34, u"Extension No. 1 de inter - extension"},
      {emParamExtension2InterExtension, 35, u"Extension No. 2 de inter - extension"},
      {emParamTroncal1InterTroncal, 36, u"Troncal No. 1 de inter - troncal"},
      {emParamTroncal2InterTroncal, 37, u"Troncal No. 2 de inter - troncal"},
      {emParamTroncalEntranteInicioTransferida, 38, u"Troncal de inicio de transferida entrante"},
      {emParamExtensionEntranteInicioTransferida, 39,
       u"Extensión de inicio de transferida entrante"},
      {emParamTroncalEntranteFinTransferida, 40, u"Troncal de fin de transferida entrante"},
      {emParamExtensionEntranteFinTransferida, 41, u"Extensión de fin de transferida entrante"},
      {emParamTroncalSalienteInicioTransferida, 42, u"Troncal de inicio de transferida saliente"},
      {emParamExtensionSalienteInicioTransferida, 43,
       u"Extensión de inicio de transferida saliente"},
      {emParamTroncalSalienteFinTransferida, 44, u"Troncal de fin de transferida saliente"},
      {emParamExtensionSalienteFinTransferida, 45, u"Extensión de fin de transferida saliente"},
      {emParamExtension1InterExtensionInicioTransferida, 46,
       u"Extensión No. 1 de inicio de transferida inter - extensión"},
      {emParamExtension2InterExtensionInicioTransferida, 47,
       u"Extensión No. 2 de inicio de transferida inter - extensión"},
      {emParamExtension1InterExtensionFinTransferida, 48,
       u"Extensión No. 1 de fin de transferida inter - extensión"},
      {emParamExtension2InterExtensionFinTransferida, 49,
       u"Extensión No. 2 de fin de transferida inter - extensión"},
      {emParamTroncal1InterTroncalInicioTransferida, 50,
       u"Troncal No. 1 de inicio de transferida inter - troncal"},
      {emParamTroncal2InterTroncalInicioTransferida, 51,
       u"Troncal No. 2 de inicio de transferida inter - troncal"},
      {emParamTroncal1InterTroncalFinTransferida, 52,
       u"Troncal No. 1 de fin de transferida inter - troncal"},
      {emParamTroncal2InterTroncalFinTransferida, 53,
       u"Troncal No. 2 de fin de transferida inter - troncal"},
      {emUltimoParamDato, 54, u"No parametro"},
  };
  ASSERT_EQ(std::size(kRows), 55u);
  std::int32_t code = 0;
  for (const auto& row : kRows) {
    EXPECT_EQ(row.name, row.code);
    EXPECT_EQ(row.code, code++);
    EXPECT_EQ(basConmuta::DescDATO(row.name), row.text) << row.code;
  }
}

TEST(Descriptions, OfEveryConstant) {
  static constexpr Row<emParamDatoConstante> kRows[] = {
      {emNoParamDatoConstante, 0, u"No parametro"},
      {emPrimerParamDatoConstante, 1, u"No parametro"},
      {emDatoCteIdentificadorHorarioMatutinoFecha, 2,
       u"Identificador de horario matutino de la fecha"},
      {emDatoCteIdentificadorHorarioMatutinoDuracion, 3,
       u"Identificador de horario matutino de la duración"},
      {emDatoCteIdentEntrante, 4, u"Identificador de entrante"},
      {emDatoCteIdentEntranteAND, 5, u"Identificador de entrante (AND)"},
      {emDatoCteIdentEntranteOR, 6, u"Identificador de entrante (OR)"},
      {emDatoCteIdentSaliente, 7, u"Identificador de saliente"},
      {emDatoCteIdentSalienteAND, 8, u"Identificador de saliente (AND)"},
      {emDatoCteIdentSalienteOR, 9, u"Identificador de saliente (OR)"},
      {emDatoCteIdentInterExtension, 10, u"Identificador de inter - extensión"},
      {emDatoCteIdentInterExtensionAND, 11, u"Identificador de inter - extensión (AND)"},
      {emDatoCteIdentInterExtensionOR, 12, u"Identificador de inter - extensión (OR)"},
      {emDatoCteIdentInterTroncal, 13, u"Identificador de inter - troncal"},
      {emDatoCteIdentInterTroncalAND, 14, u"Identificador de inter - troncal (AND)"},
      {emDatoCteIdentInterTroncalOR, 15, u"Identificador de inter - troncal (OR)"},
      {emDatoCteIdentEntranteInicioTransferida, 16,
       u"Identificador de inicio de transferida entrante"},
      {emDatoCteIdentEntranteFinTransferida, 17, u"Identificador de fin de transferida entrante"},
      {emDatoCteIdentSalienteInicioTransferida, 18,
       u"Identificador de inicio de transferida saliente"},
      {emDatoCteIdentSalienteFinTransferida, 19, u"Identificador de fin de transferida saliente"},
      {emDatoCteIdentInterExtensionInicioTransferida, 20,
       u"Identificador de inicio de transferida inter - extensión"},
      {emDatoCteIdentInterExtensionFinTransferida, 21,
       u"Identificador de fin de transferida inter - extensión"},
      {emDatoCteIdentInterTroncalInicioTransferida, 22,
       u"Identificador de inicio de transferida inter - troncal"},
      {emDatoCteIdentInterTroncalFinTransferida, 23,
       u"Identificador de fin de transferida inter - troncal"},
      {emUltimoParamDatoConstante, 24, u"No parametro"},
  };
  ASSERT_EQ(std::size(kRows), 25u);
  std::int32_t code = 0;
  for (const auto& row : kRows) {
    EXPECT_EQ(row.name, row.code);
    EXPECT_EQ(row.code, code++);
    EXPECT_EQ(basConmuta::DescCTE(row.name), row.text) << row.code;
  }
}

TEST(Descriptions, CodesThatAreNoKindSaySo) {
  for (const std::int32_t code : {kLowest, -2, -1, 0, 1, 54, 55, 255, 256, kHighest}) {
    EXPECT_EQ(basConmuta::DescDATO(static_cast<emParamDato>(code)), u"No parametro") << code;
  }
  for (const std::int32_t code : {kLowest, -2, -1, 0, 1, 24, 25, 255, 256, kHighest}) {
    EXPECT_EQ(basConmuta::DescCTE(static_cast<emParamDatoConstante>(code)), u"No parametro")
        << code;
  }
}

TEST(Descriptions, OfEveryCase) {
  static constexpr Row<emCasos> kRows[] = {
      {emNoCaso, 0, u"No definido"},
      {emCasoEstandar, 1, u"Estandar"},
      {emCasoSamsungNX_820, 2, u"Caso de Samsung Nx-820"},
      {emCasoNortelMeridian01, 3, u"Caso del Nortel Meridian"},
      {emCasoNortelNorstar0x32SMDR6, 4, u"Caso norstar 0x32 SMDR6"},
      {emCasoRestaFechasDuracion, 5, u"Resta de fechas para calcular la duración"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.name, row.code);
    EXPECT_EQ(CaseName(row.name), row.text) << row.code;
    EXPECT_EQ(clsCfgConmut::ObtNombreCaso(row.name), row.text) << row.code;
  }
  for (const std::int32_t code : {kLowest, -1, 77, 256, kHighest}) {
    EXPECT_EQ(CaseName(static_cast<emCasos>(code)), u"") << code;
  }
}

TEST(Descriptions, OfEveryVersion) {
  static constexpr Row<emVersionConfiguracion> kRows[] = {
      {emNoVersion, 0, u"No hay versión"},
      {emVersionActual, 1, u"No hay versión"},
      {emVersion2_0, 2, u"2.0"},
      {emVersion3_0, 3, u"3.0"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.name, row.code);
    EXPECT_EQ(VersionName(row.name), row.text) << row.code;
  }
  for (const std::int32_t code : {kLowest, -1, 4, 258, kHighest}) {
    EXPECT_EQ(VersionName(static_cast<emVersionConfiguracion>(code)), u"No hay versión") << code;
  }
}

TEST(Descriptions, OfEveryConfigurationError) {
  static constexpr Row<emErroresConfig> kRows[] = {
      {emNoErrorConfig, 0, u"Error desconocido."},
      {emErrorConfigNoHay, 1500,
       u"No es posible acceder al archivo o el nombre del archivo no es válido."},
      {emErrorNoHayArchivo, 1501, u"No es posible encontrar el archivo deseado."},
      {emErrorConfigDatosIncompletos, 1502,
       u"Los datos de la configuración no estan completos.\r\nVerifica la marca y modelo, el "
       u"separador de llamadas, el caso establecido."},
      {emErrorConfigExportar, 1503,
       u"Ocurrio un error en los datos al intentar exportar la configuración."},
      {emErrorConfigImportar, 1504, u"Error de importación en la configuración."},
      {emErrorConfigAbrir, 1505,
       u"No es posible abrir al archivo de configuración, no se reconoce."},
      {emErrorDesconocido, 1506, u"Error desconocido."},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.name, row.code);
    EXPECT_EQ(ObtMensajeError(row.name), row.text) << row.code;
  }
  for (const std::int32_t code : {kLowest, -1, 1, 1499, 1507, kHighest}) {
    EXPECT_EQ(ObtMensajeError(static_cast<emErroresConfig>(code)), u"Error desconocido.") << code;
  }
}

TEST(Vocabulary, CodesWithoutTextsAreFrozenToo) {
  EXPECT_EQ(emNoDefinido, 0);
  EXPECT_EQ(emValorNumerico, 1);
  EXPECT_EQ(emValorConstante, 2);
  EXPECT_EQ(emValorCadena, 3);
  EXPECT_EQ(emNoPuerto, 0);
  EXPECT_EQ(emPuertoSerialDB9DB9, 1);
  EXPECT_EQ(emPuertoSerialDB9DB25, 2);
  EXPECT_EQ(emPuertoSerialDB25DB9, 3);
  EXPECT_EQ(emPuertoSerialDB25DB25, 4);
}

TEST(Vocabulary, NameOfACaseDoesNotDependOnTheConfiguration) {
  test::ConfigBench bench;
  EXPECT_EQ(bench.config.ObtNombreCaso(emCasoNortelMeridian01), u"Caso del Nortel Meridian");
  EXPECT_EQ(bench.config.ObtNombreCaso(static_cast<emCasos>(9)), u"");
  EXPECT_EQ(bench.config.Caso(), emCasoEstandar);
  EXPECT_FALSE(bench.config.Modificado());
  EXPECT_TRUE(bench.TakeEvents().empty());
}

}  // namespace
}  // namespace conmuta
