#pragma once

#include "ui/frmInfo.h"

namespace conmuta::win32 {

// Shows reports in a real window.
class InfoWindowView final : public InfoView {
 public:
  void Show(const frmInfo& window) override;
};

}  // namespace conmuta::win32
