// Each switch of the catalogue through COM: its configuration is opened by the component, and the
// lines of its capture give the expected calls. Why a line gives none, hosts are not told.
#include <algorithm>

#include "component/host_test.h"
#include "component/scratch_files.h"
#include "component/today.h"
#include "layouts/expected_calls.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "platform/platform.h"
#include "support/source_files.h"

namespace conmuta::test {
namespace {

using layouts::ExpectedCall;
using layouts::Outcome;

class SwitchThroughTheDll : public HostTest,
                            public ::testing::WithParamInterface<std::filesystem::path> {
 protected:
  static std::string Bytes(const char* file) { return ReadWhole(GetParam() / file); }

  // The configuration as the catalogue has it, opened by the component.
  ComPtr<Cfg> OpenConfiguration() {
    const auto reading = layouts::ReadLayout(Bytes("layout.toml"));
    EXPECT_TRUE(reading.layout);
    clsCfgConmut config(SystemPlatform());
    layouts::Apply(*reading.layout, config);
    config.GuardarComo(folder_.Path(u"switch.cfg"));
    auto opened = NewConfig();
    Do(opened, &Cfg::Abrir, folder_.Path(u"switch.cfg"));
    return opened;
  }

  static Outcome Seen(HRESULT result, const ComPtr<Trd>& call) {
    Outcome seen;
    if (result == kOverflow) seen.error = LineError::kOverflow;
    if (result == kInvalidArgument) seen.error = LineError::kInvalidArgument;
    if (seen.error == LineError::kNone) {
      EXPECT_EQ(result, S_OK);
      if (Read(call, &Trd::get_EsValido) != VARIANT_FALSE) seen.call = Values(call);
    }
    return seen;
  }

  static ExpectedCall Values(const ComPtr<Trd>& call) {
    const auto part = [&](auto member, ::emParamTipoFecha of) {
      return int{Read(call, member, of)};
    };
    ExpectedCall values;
    values.type = static_cast<conmuta::emTiposLlamadas>(Read(call, &Trd::get_TipoLlamada));
    values.attribute = static_cast<conmuta::emAtributosLlamadas>(Read(call, &Trd::get_Atributos));
    values.year = part(&Trd::get_Anio, ::emParamFecha);
    values.month = part(&Trd::get_Mes, ::emParamFecha);
    values.day = part(&Trd::get_Dia, ::emParamFecha);
    values.hours = part(&Trd::get_Horas, ::emParamFecha);
    values.minutes = part(&Trd::get_Minutos, ::emParamFecha);
    values.seconds = part(&Trd::get_Segundos, ::emParamFecha);
    const bool is_date = part(&Trd::get_Anio, ::emParamDuracion) != 0 ||
                         part(&Trd::get_Mes, ::emParamDuracion) != 0 ||
                         part(&Trd::get_Dia, ::emParamDuracion) != 0;
    const int duration = static_cast<int>(Read(call, &Trd::get_Duracion));
    if (!is_date && duration >= 0) values.duration = duration;
    values.ring = static_cast<int>(Read(call, &Trd::get_Ring));
    values.caller = Read(call, &Trd::get_Emisor);
    values.callee = Read(call, &Trd::get_Receptor);
    values.phone = Read(call, &Trd::get_Telefono);
    values.transferred_to = Read(call, &Trd::get_ExtensionTransferida);
    values.account = Read(call, &Trd::get_CodigoCuenta);
    return values;
  }

  const ScratchFolder folder_;
};

TEST_P(SwitchThroughTheDll, GivesTheExpectedCalls) {
  const auto capture = layouts::ReadCapture(Bytes("capture.txt"));
  ASSERT_TRUE(capture.capture);
  const auto expected = layouts::ReadExpected(Bytes("expected.txt"), *capture.capture);
  ASSERT_TRUE(expected.rows);
  const auto translator = NewTranslator();
  Do(translator, &Trad::putref_Conmutador, OpenConfiguration().get());
  const auto call = Read(translator, &Trad::get_InfoLlamada);
  int calls = 0;
  for (std::size_t i = 0; i < expected.rows->size(); ++i) {
    const auto& line = capture.capture->lines[i];
    Outcome wanted = expected.rows->at(i).outcome;
    wanted.reason = NoCall::kNone;
    if (wanted.call) wanted.call = wanted.call->On(SystemPlatform().clock.Today());
    const Outcome seen = Seen(translator->put_Llamada(Bstr(line.text).get()), call);
    EXPECT_EQ(layouts::RowText(line.number, seen), layouts::RowText(line.number, wanted));
    calls += seen.call.has_value();
  }
  EXPECT_GT(calls, 0);
}

std::vector<std::filesystem::path> Folders() {
  std::vector<std::filesystem::path> folders;
  for (const auto& path : Entries(CONMUTA_SOURCES "/switches")) {
    if (std::filesystem::is_directory(path)) folders.push_back(path);
  }
  return folders;
}

INSTANTIATE_TEST_SUITE_P(, SwitchThroughTheDll, ::testing::ValuesIn(Folders()),
                         [](const auto& info) {
                           std::string name = info.param.filename().string();
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace conmuta::test
