#pragma once

#include <memory>

#include "catalogue/frmConmutador.h"

namespace conmuta::win32 {

// The switch manager in a real window.
std::unique_ptr<frmConmutador::View> MakeManagerView();

}  // namespace conmuta::win32
