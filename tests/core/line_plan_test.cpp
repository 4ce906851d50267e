// A configuration is compiled for reading lines; whatever a host changes counts with the next line.
#include "translate/line_plan.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

#include "support/call_values.h"
#include "support/layouts.h"
#include "support/temporary_folder.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::Ascii;
using test::ConfigBuilder;
using test::Translation;

// The account code stands at 1 to 4, "IN" at 9 makes a call incoming.
ConfigBuilder SmallLayout() {
  ConfigBuilder layout;
  layout.Item(emParamCodigoCuenta, 1, 4).Constant(emDatoCteIdentEntrante, 9, u"IN");
  return layout;
}

constexpr char16_t kLine[] = u"12345678IN";

struct SlotChange {
  const char* name;
  std::function<void(clsCfgConmut&)> make;
  Text account;
  int type;
};

void PrintTo(const SlotChange& row, std::ostream* out) {
  *out << row.name;
}

class SlotChangeTest : public testing::TestWithParam<SlotChange> {};

TEST_P(SlotChangeTest, CountsWithTheNextLine) {
  Translation desk(SmallLayout().Build());
  desk.Translate(kLine);
  ASSERT_EQ(Ascii(desk.call().CodigoCuenta()), "1234");
  ASSERT_EQ(desk.call().TipoLlamada(), emLlamadaEntrante);
  GetParam().make(*desk.config);
  desk.Translate(kLine);
  EXPECT_EQ(Ascii(desk.call().CodigoCuenta()), Ascii(GetParam().account));
  EXPECT_EQ(desk.call().TipoLlamada(), GetParam().type);
}

void At(clsCfgConmut& config, emParamDato kind) {
  config.DATOActivo(kind);
}

INSTANTIATE_TEST_SUITE_P(
    Slots, SlotChangeTest,
    testing::Values(
        SlotChange{"position", [](clsCfgConmut& c) { At(c, emParamCodigoCuenta), c.DATOPos(3); },
                   u"3456", 2},
        SlotChange{"size", [](clsCfgConmut& c) { At(c, emParamCodigoCuenta), c.DATOTam(2); }, u"12",
                   2},
        SlotChange{"type to text and a longer place",
                   [](clsCfgConmut& c) {
                     At(c, emParamCodigoCuenta);
                     c.DATOTam(10);
                     c.TipoDatoDATO(emValorCadena);
                   },
                   u"12345678IN", 2},
        SlotChange{
            "released by its type",
            [](clsCfgConmut& c) { At(c, emParamCodigoCuenta), c.TipoDatoDATO(emNoDefinido); }, u"",
            2},
        SlotChange{"released by its position",
                   [](clsCfgConmut& c) { At(c, emParamCodigoCuenta), c.DATOPos(0); }, u"", 2},
        SlotChange{"made valid again by an equal value",
                   [](clsCfgConmut& c) {
                     At(c, emParamCodigoCuenta);
                     c.TipoDatoDATO(emNoDefinido);
                     c.DATOPos(1);
                   },
                   u"1234", 2},
        SlotChange{"constant's text",
                   [](clsCfgConmut& c) { c.CTEActivo(emDatoCteIdentEntrante), c.Constante(u"78"); },
                   u"1234", 3},
        SlotChange{"constant's position",
                   [](clsCfgConmut& c) { c.CTEActivo(emDatoCteIdentEntrante), c.CTEPos(8); },
                   u"1234", 3},
        SlotChange{"constant's size",
                   [](clsCfgConmut& c) { c.CTEActivo(emDatoCteIdentEntrante), c.CTETam(1); },
                   u"1234", 3},
        SlotChange{"constant released",
                   [](clsCfgConmut& c) { c.CTEActivo(emDatoCteIdentEntrante), c.Constante(u""); },
                   u"1234", 3},
        SlotChange{"a new constant",
                   [](clsCfgConmut& c) {
                     c.CTEActivo(emDatoCteIdentEntranteAND);
                     c.Constante(u"x");
                     c.CTEPos(1);
                   },
                   u"1234", 3},
        SlotChange{"everything released",
                   [](clsCfgConmut& c) {
                     c.Iniciar();
                     c.Marca(u"ACME");
                     c.Modelo(u"X1");
                   },
                   u"", 3}));

TEST(SlotRevision, StaysWhileNothingIsWritten) {
  const auto config = SmallLayout().Build();
  const auto before = config->SlotRevision();
  config->DATOActivo(emParamCodigoCuenta);
  config->CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config->DATOPos(), 1);
  EXPECT_EQ(config->TipoDatoDATO(), emValorNumerico);
  EXPECT_TRUE(config->HayCTE());
  EXPECT_EQ(config->Constante(), u"IN");
  config->Caso(emCasoSamsungNX_820);
  EXPECT_EQ(config->SlotRevision(), before);
}

// While the host's handler of a change runs, half of the write is done; what is translated then
// must not count for the lines to come.
class TranslatesOnChange final : public ConfigListener {
 public:
  explicit TranslatesOnChange(clsTradEST& translator) : translator_(translator) {}
  void Cambios() override { translator_.Llamada(kLine); }

 private:
  clsTradEST& translator_;
};

TEST(LinePlan, SeesWhatAWriteDoesAfterItsEvent) {
  Translation desk(SmallLayout().Build());
  TranslatesOnChange listener(desk.translator);
  desk.config->DATOActivo(emParamCodigoCuenta);
  desk.config->TipoDatoDATO(emValorCadena);
  desk.config->Listen(&listener);
  desk.config->DATOTam(10);  // makes it numeric again once the event is over
  EXPECT_EQ(Ascii(desk.call().CodigoCuenta()), "12345678IN");
  desk.Translate(kLine);
  EXPECT_EQ(Ascii(desk.call().CodigoCuenta()), "12345678");
  desk.config->Listen(nullptr);
}

TEST(LinePlan, IsThatOfTheConfigurationNowInUse) {
  Translation desk(SmallLayout().Build());
  const auto other = SmallLayout().Item(emParamCodigoCuenta, 5, 4).Build();
  desk.Translate(kLine);
  desk.translator.Conmutador(other.get());
  EXPECT_EQ(Ascii(desk.call().CodigoCuenta()), "5678");
  desk.translator.Conmutador(desk.config.get());
  EXPECT_EQ(Ascii(desk.call().CodigoCuenta()), "1234");
}

// A new configuration may stand where the one before stood, and have been changed as often.
TEST(LinePlan, IsNotKeptForAnotherConfigurationAtTheSamePlace) {
  alignas(clsCfgConmut) std::byte place[sizeof(clsCfgConmut)];
  const test::FakeClock clock;
  clsTradEST translator(clock);
  for (const int pos : {1, 3, 5}) {
    auto* config = new (place) clsCfgConmut(SystemPlatform());
    config->Marca(u"ACME");
    config->Modelo(u"X1");
    test::DefineItem(*config, emParamCodigoCuenta, pos, 2);
    translator.Conmutador(config);
    translator.Llamada(kLine);
    EXPECT_EQ(Ascii(translator.InfoLlamada().CodigoCuenta()),
              Ascii(TextView(kLine).substr(static_cast<std::size_t>(pos - 1), 2)));
    translator.Conmutador(nullptr);
    config->~clsCfgConmut();
  }
}

TEST(LinePlan, FollowsALoad) {
  const test::TemporaryFolder folder;
  const Text path = folder.Path(u"otra.cfg");
  auto other = SmallLayout().Item(emParamCodigoCuenta, 5, 4).Build();
  other->Separador(u"\r\n");
  other->GuardarComo(path);
  Translation desk(SmallLayout().Build());
  desk.Translate(kLine);
  desk.config->Abrir(path);
  desk.Translate(kLine);
  EXPECT_EQ(Ascii(desk.call().CodigoCuenta()), "5678");
}

TEST(LineErrors, AreTheSameAsValuesAndAsExceptions) {
  Translation desk(ConfigBuilder().Item(emParamFechaAnio, 1, 9).Build());
  EXPECT_EQ(desk.translator.Translate(u"2026"), LineError::kNone);
  EXPECT_EQ(desk.translator.Translate(u"99999"), LineError::kOverflow);
  EXPECT_THROW(desk.translator.Llamada(u"99999"), OverflowError);
  EXPECT_THROW(desk.translator.Conmutador(desk.config.get()), OverflowError);

  Translation norstar(test::NorstarColumns().Build());
  EXPECT_EQ(norstar.translator.Translate(u"--------"), LineError::kNone);
  EXPECT_EQ(norstar.translator.Translate(u"short"), LineError::kInvalidArgument);
  EXPECT_THROW(norstar.translator.Llamada(u"short"), InvalidArgumentError);
}

}  // namespace
}  // namespace conmuta
