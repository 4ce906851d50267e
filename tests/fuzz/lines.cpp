#include <array>

#include "fuzz/targets.h"
#include "support/fake_clock.h"
#include "support/layouts.h"
#include "translate/clsTradEST.h"

namespace conmuta::fuzz {
namespace {

constexpr int kLayouts = 6;

std::unique_ptr<clsCfgConmut> MakeLayout(int layout) {
  switch (layout) {
    case 0:
      return test::FixedColumns().Build();
    case 1:
      return test::FixedColumns().Case(emCasoSamsungNX_820).Build();
    case 2:
      return test::MeridianColumns().Build();
    case 3:
      return test::NorstarColumns().Build();
    case 4:
      return test::FixedColumns().Case(emCasoRestaFechasDuracion).Build();
    default:
      return test::FixedColumns().Case(emNoCaso).Build();
  }
}

void Check(const clsLlamadaTRD& call) {
  Require(call.Telefono().size() <= 30 && call.CodigoCuenta().size() <= 30 &&
              call.Emisor().size() <= 10 && call.Receptor().size() <= 10 &&
              call.ExtensionTransferida().size() <= 10,
          "texts keep their width");
  Require(call.Ring() >= 0, "nobody rings for less than no time");
  try {
    (void)call.Fecha();
    (void)call.Hora();
    (void)call.Duracion();
    (void)call.EsValido();
  } catch (const InvalidArgumentError&) {
  } catch (const OverflowError&) {
  }
}

}  // namespace

void Lines(std::string_view bytes) {
  if (bytes.empty()) return;
  const auto config = MakeLayout(static_cast<unsigned char>(bytes[0]) % kLayouts);
  bytes.remove_prefix(1);
  const test::FakeClock clock;
  clsTradEST translator(clock);
  translator.Conmutador(config.get());

  // A line may hold line ends of its own; a form feed goes between what the host hands over.
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\f'), bytes.size());
    Text line;
    for (const char b : bytes.substr(0, end)) line.push_back(static_cast<unsigned char>(b));
    try {
      translator.Llamada(line);
    } catch (const OverflowError&) {
    } catch (const InvalidArgumentError&) {
    }
    Check(translator.InfoLlamada());
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
}

}  // namespace conmuta::fuzz
