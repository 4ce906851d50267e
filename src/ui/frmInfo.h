// The information window: a report to read, select and copy.
#pragma once

#include <utility>

#include "platform/text.h"
#include "platform/window_view.h"

namespace conmuta {

class frmInfo {
 public:
  using View = WindowView<frmInfo>;

  // Twips: 1440 to the inch, as the whole window measures. The view must live as long.
  frmInfo(View& view, Text report, int width, int height)
      : txtInfo(std::move(report)), width_twips(width), height_twips(height), view_(view) {}

  const Text caption = u"Información general de configuración";
  const Text txtInfo;
  const int width_twips;
  const int height_twips;

  // Lets the user read until the window closes.
  void Show() { view_.Run(*this); }
  void btnCerrar() { view_.Close(); }

 private:
  View& view_;
};

}  // namespace conmuta
