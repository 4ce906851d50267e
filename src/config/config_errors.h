// The errors of the configuration's file operations, as hosts see them.
#pragma once

#include "config/descriptions.h"
#include "platform/errors.h"

namespace conmuta {

// Number 0x80040000 and the code, the method as source, the code's message and the detail as
// description. Hosts rely on the source saying "clsConfigConmut", which is not the class's name.
inline ConfigError MakeConfigError(emErroresConfig code, TextView method, TextView detail = {}) {
  constexpr std::uint32_t kBase = 0x80040000;
  return ConfigError(kBase + static_cast<std::uint32_t>(code),
                     Text(u"clsConfigConmut.").append(method),
                     Text(ObtMensajeError(code)).append(detail));
}

}  // namespace conmuta
