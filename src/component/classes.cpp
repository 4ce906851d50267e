// The table of the creatable classes.
#include <array>

#include "component/module.h"
#include "component/objects.h"

namespace conmuta::component {

std::span<const ComClass> Classes() {
  static const std::array<ComClass, 4> classes = {{
      {&CLSID_clsCfgConmut, &IID__clsCfgConmut, L"clsCfgConmut", L"Configuración de un conmutador",
       CreateCfgConmut},
      {&CLSID_clsTradEST, &IID__clsTradEST, L"clsTradEST", L"Traductor de llamadas", CreateTradEST},
      {&CLSID_clsLlamadaTRD, &IID__clsLlamadaTRD, L"clsLlamadaTRD", L"Llamada traducida",
       CreateLlamadaTRD},
      {&CLSID_clsConmutadores, &IID__clsConmutadores, L"clsConmutadores",
       L"Catálogo de conmutadores", CreateConmutadores},
  }};
  return classes;
}

}  // namespace conmuta::component
