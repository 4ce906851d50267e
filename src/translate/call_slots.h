// Which slots belong to which kind of call.
#pragma once

#include <array>

#include "config/enums.h"
#include "translate/enums.h"

namespace conmuta {

// The identifiers of a call type.
struct TypeIdentifiers {
  emTiposLlamadas type;
  emParamDatoConstante plain;
  emParamDatoConstante also;     // AND
  emParamDatoConstante instead;  // OR
  emParamDatoConstante transfer_start;
  emParamDatoConstante transfer_end;
};

inline constexpr std::array<TypeIdentifiers, 4> kTypeIdentifiers = {{
    {emLlamadaEntrante, emDatoCteIdentEntrante, emDatoCteIdentEntranteAND, emDatoCteIdentEntranteOR,
     emDatoCteIdentEntranteInicioTransferida, emDatoCteIdentEntranteFinTransferida},
    {emLlamadaSaliente, emDatoCteIdentSaliente, emDatoCteIdentSalienteAND, emDatoCteIdentSalienteOR,
     emDatoCteIdentSalienteInicioTransferida, emDatoCteIdentSalienteFinTransferida},
    {emLlamadaInterExtension, emDatoCteIdentInterExtension, emDatoCteIdentInterExtensionAND,
     emDatoCteIdentInterExtensionOR, emDatoCteIdentInterExtensionInicioTransferida,
     emDatoCteIdentInterExtensionFinTransferida},
    {emLlamadaInterTroncal, emDatoCteIdentInterTroncal, emDatoCteIdentInterTroncalAND,
     emDatoCteIdentInterTroncalOR, emDatoCteIdentInterTroncalInicioTransferida,
     emDatoCteIdentInterTroncalFinTransferida},
}};

// Null for a type that has none.
constexpr const TypeIdentifiers* FindTypeIdentifiers(emTiposLlamadas type) {
  if (type < emLlamadaEntrante || type > emLlamadaInterTroncal) return nullptr;
  return &kTypeIdentifiers[static_cast<std::size_t>(type - emLlamadaEntrante)];
}

// The slots of number and parties, by call type and attribute.
struct CallSlots {
  emParamDato phone;
  emParamDato caller;
  emParamDato callee;
};

inline constexpr std::array<std::array<CallSlots, 4>, 4> kCallSlots = {{
    {{{emParamTelefonoEntrante, emParamTroncalEntrante, emParamExtensionEntrante},
      {emParamTelefonoEntranteInicioTransferida, emParamTroncalEntranteInicioTransferida,
       emParamExtensionEntranteInicioTransferida},
      {},  // in transfer
      {emParamTelefonoEntranteFinTransferida, emParamTroncalEntranteFinTransferida,
       emParamExtensionEntranteFinTransferida}}},
    {{{emParamTelefonoSaliente, emParamExtensionSaliente, emParamTroncalSaliente},
      {emParamTelefonoSalienteInicioTransferida, emParamExtensionSalienteInicioTransferida,
       emParamTroncalSalienteInicioTransferida},
      {},  // in transfer
      {emParamTelefonoSalienteFinTransferida, emParamExtensionSalienteFinTransferida,
       emParamTroncalSalienteFinTransferida}}},
    {{{emParamTelefonoInterExtension, emParamExtension1InterExtension,
       emParamExtension2InterExtension},
      {emParamTelefonoInterExtensionInicioTransferida,
       emParamExtension1InterExtensionInicioTransferida,
       emParamExtension2InterExtensionInicioTransferida},
      {},  // in transfer
      {emParamTelefonoInterExtensionFinTransferida, emParamExtension1InterExtensionFinTransferida,
       emParamExtension2InterExtensionFinTransferida}}},
    {{{emParamTelefonoInterTroncal, emParamTroncal1InterTroncal, emParamTroncal2InterTroncal},
      {emParamTelefonoInterTroncalInicioTransferida, emParamTroncal1InterTroncalInicioTransferida,
       emParamTroncal2InterTroncalInicioTransferida},
      {},  // in transfer
      {emParamTelefonoInterTroncalFinTransferida, emParamTroncal1InterTroncalFinTransferida,
       emParamTroncal2InterTroncalFinTransferida}}},
}};

// Null for a type outside incoming to inter-trunk, and in the middle of a transfer.
constexpr const CallSlots* FindCallSlots(emTiposLlamadas type, emAtributosLlamadas attribute) {
  if (type < emLlamadaEntrante || type > emLlamadaInterTroncal) return nullptr;
  if (attribute < emSinAtributo || attribute > emAtributoFinTransferida) return nullptr;
  if (attribute == emAtributoEnTransferencia) return nullptr;
  return &kCallSlots[static_cast<std::size_t>(type - emLlamadaEntrante)]
                    [static_cast<std::size_t>(attribute)];
}

}  // namespace conmuta
