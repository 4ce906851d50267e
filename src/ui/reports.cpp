#include "ui/reports.h"

#include <utility>

#include "config/report.h"
#include "translate/report.h"

namespace conmuta {
namespace {

void ShowReport(const ViewFactory<frmInfo>& make_view, Text report, int width, int height) {
  const auto view = make_view();
  frmInfo(*view, std::move(report), width, height).Show();
}

}  // namespace

void MostrarInformacionConfiguracion(clsCfgConmut& config, const ViewFactory<frmInfo>& make_view) {
  ShowReport(make_view, ConfigurationReport(config), 8500, 5500);
}

void MuestraInfoTrad(clsTradEST& translator, const MonthNames& months,
                     const ViewFactory<frmInfo>& make_view) {
  ShowReport(make_view, TranslationReport(translator, months), 7500, 5500);
}

}  // namespace conmuta
