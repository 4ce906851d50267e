#pragma once

#include <memory>

#include "ui/frmInfo.h"

namespace conmuta::win32 {

std::unique_ptr<frmInfo::View> MakeInfoView();

}  // namespace conmuta::win32
