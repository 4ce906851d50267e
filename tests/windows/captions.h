// How our windows are called.
#pragma once

#include "platform/text.h"

namespace conmuta::test {

inline constexpr TextView kInfoCaption = u"Información general de configuración";
inline constexpr TextView kCableCaption = u"Configuración de puerto SMDR";
inline constexpr TextView kManagerCaption = u"Conmutadores";

}  // namespace conmuta::test
