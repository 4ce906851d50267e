// The words of a layout file for the codes of a configuration.
#pragma once

#include <array>
#include <optional>
#include <span>

#include "cable/connector_pair.h"
#include "config/slots.h"
#include "platform/text.h"

namespace conmuta::layouts {

// The words, in the order of their codes.
std::span<const TextView> ItemNames();      // from code 2 on
std::span<const TextView> ConstantNames();  // from code 2 on
std::span<const TextView> TypeNames();      // from code 1 on
std::span<const TextView> CaseNames();      // from code 1 on
std::span<const TextView> PairNames();      // from code 1 on

// The word of a code; empty for one that has none.
TextView NameOf(emParamDato kind);
TextView NameOf(emParamDatoConstante kind);
TextView NameOf(emTipoDato type);
TextView NameOf(emCasos code);
TextView NameOf(emPuertoSerial pair);

// The code of a word, which is written exactly so; nothing for any other.
std::optional<emParamDato> FindItem(TextView name);
std::optional<emParamDatoConstante> FindConstant(TextView name);
std::optional<emTipoDato> FindType(TextView name);
std::optional<emCasos> FindCase(TextView name);
std::optional<emPuertoSerial> FindPair(TextView name);

}  // namespace conmuta::layouts
