#include "ui/reports.h"

#include "config/report.h"
#include "translate/report.h"

namespace conmuta {

void MostrarInformacionConfiguracion(clsCfgConmut& config, InfoView& view) {
  view.Show(frmInfo(ConfigurationReport(config), 8500, 5500));
}

void MuestraInfoTrad(clsTradEST& translator, const MonthNames& months, InfoView& view) {
  view.Show(frmInfo(TranslationReport(translator, months), 7500, 5500));
}

}  // namespace conmuta
