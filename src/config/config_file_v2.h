// The version 2.0 configuration file: one record of 786 bytes, read only (docs/file-formats.md).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "config/enums.h"
#include "platform/code_page.h"

namespace conmuta {

inline constexpr std::size_t kVersion2Bytes = 786;

// The order in which the record keeps its constants and its data items, and in which they are
// applied. The identifiers of morning hours and the AND and OR variants came with version 3.0.
inline constexpr std::array<emParamDatoConstante, 12> kVersion2Constants = {
    emDatoCteIdentEntrante,
    emDatoCteIdentSaliente,
    emDatoCteIdentInterExtension,
    emDatoCteIdentInterTroncal,
    emDatoCteIdentEntranteInicioTransferida,
    emDatoCteIdentEntranteFinTransferida,
    emDatoCteIdentSalienteInicioTransferida,
    emDatoCteIdentSalienteFinTransferida,
    emDatoCteIdentInterExtensionInicioTransferida,
    emDatoCteIdentInterExtensionFinTransferida,
    emDatoCteIdentInterTroncalInicioTransferida,
    emDatoCteIdentInterTroncalFinTransferida,
};

inline constexpr std::array<emParamDato, 52> kVersion2Items = {
    emParamFechaDia,
    emParamFechaMes,
    emParamFechaAnio,
    emParamFechaHoras,
    emParamFechaMinutos,
    emParamFechaSegundos,
    emParamTelefonoEntrante,
    emParamTelefonoEntranteInicioTransferida,
    emParamTelefonoEntranteFinTransferida,
    emParamTelefonoSaliente,
    emParamTelefonoSalienteInicioTransferida,
    emParamTelefonoSalienteFinTransferida,
    emParamTelefonoInterExtension,
    emParamTelefonoInterExtensionInicioTransferida,
    emParamTelefonoInterExtensionFinTransferida,
    emParamTelefonoInterTroncal,
    emParamTelefonoInterTroncalInicioTransferida,
    emParamTelefonoInterTroncalFinTransferida,
    emParamTroncalEntrante,
    emParamExtensionSaliente,
    emParamExtension1InterExtension,
    emParamTroncal1InterTroncal,
    emParamExtensionEntrante,
    emParamTroncalSaliente,
    emParamExtension2InterExtension,
    emParamTroncal2InterTroncal,
    emParamTroncalEntranteInicioTransferida,
    emParamExtensionSalienteInicioTransferida,
    emParamExtension1InterExtensionInicioTransferida,
    emParamTroncal1InterTroncalInicioTransferida,
    emParamExtensionEntranteInicioTransferida,
    emParamTroncalSalienteInicioTransferida,
    emParamExtension2InterExtensionInicioTransferida,
    emParamTroncal2InterTroncalInicioTransferida,
    emParamTroncalEntranteFinTransferida,
    emParamExtensionSalienteFinTransferida,
    emParamExtension1InterExtensionFinTransferida,
    emParamTroncal1InterTroncalFinTransferida,
    emParamExtensionEntranteFinTransferida,
    emParamTroncalSalienteFinTransferida,
    emParamExtension2InterExtensionFinTransferida,
    emParamTroncal2InterTroncalFinTransferida,
    emParamDuracionDia,
    emParamDuracionMes,
    emParamDuracionAnio,
    emParamDuracionHoras,
    emParamDuracionMinutos,
    emParamDuracionSegundos,
    emParamRingHoras,
    emParamRingMinutos,
    emParamRingSegundos,
    emParamCodigoCuenta,
};

struct Version2Constant {
  std::uint8_t Pos = 0;
  Text Constante;  // 20 characters, NULs included
};

struct Version2Item {
  std::uint8_t Pos = 0;
  std::uint8_t Tam = 0;
  std::uint8_t TipoDato = 0;
};

struct Version2Record {
  std::int32_t Version = 0;
  Text Comentarios;  // 255
  Text Marca;        // 50
  Text Modelo;       // 50
  Text Separador;    // 12
  std::array<Version2Constant, kVersion2Constants.size()> constants;
  std::array<Version2Item, kVersion2Items.size()> items;
};

// Nothing unless there are exactly 786 bytes that say version 2 and name brand, model and
// separator. What else they hold is taken as it is.
std::optional<Version2Record> ReadVersion2(std::string_view bytes, const CodePage& code_page);

}  // namespace conmuta
