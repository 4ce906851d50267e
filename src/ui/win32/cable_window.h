#pragma once

#include <memory>

#include "cable/cable_editor.h"

namespace conmuta::win32 {

// A cable editor in a real window.
std::unique_ptr<CableEditor> MakeCableEditor();

}  // namespace conmuta::win32
