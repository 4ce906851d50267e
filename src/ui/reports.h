// The two reports in their window.
#pragma once

#include "config/clsCfgConmut.h"
#include "platform/month_names.h"
#include "translate/clsTradEST.h"
#include "ui/frmInfo.h"

namespace conmuta {

void MostrarInformacionConfiguracion(clsCfgConmut& config, const ViewFactory<frmInfo>& make_view);

// The window keeps the caption of the other report: hosts know it so.
void MuestraInfoTrad(clsTradEST& translator, const MonthNames& months,
                     const ViewFactory<frmInfo>& make_view);

}  // namespace conmuta
