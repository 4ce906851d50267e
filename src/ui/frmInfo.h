// The information window: a report to read, select and copy.
#pragma once

#include <utility>

#include "platform/text.h"

namespace conmuta {

struct frmInfo {
  // Twips: 1440 to the inch, as the whole window measures.
  frmInfo(Text report, int width, int height)
      : txtInfo(std::move(report)), width_twips(width), height_twips(height) {}

  const Text caption = u"Información general de configuración";
  const Text txtInfo;
  const int width_twips;
  const int height_twips;
};

// Shows the window until the user closes it.
class InfoView {
 public:
  virtual ~InfoView() = default;
  virtual void Show(const frmInfo& window) = 0;
};

}  // namespace conmuta
