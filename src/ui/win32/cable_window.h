#pragma once

#include <memory>

#include "cable/frmPuertos.h"

namespace conmuta::win32 {

std::unique_ptr<frmPuertos::View> MakeCableView();

}  // namespace conmuta::win32
