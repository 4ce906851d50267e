// When the translator translates, what it cleans, and which translation it chooses.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::Ascii;
using test::ConfigBuilder;
using test::FixedColumns;
using test::FixedLine;
using test::IsCleared;
using test::Translation;
using test::ValuesOf;

TEST(Translator, IsCreatedEmpty) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  EXPECT_EQ(translator.Llamada(), u"");
  EXPECT_EQ(translator.Conmutador(), nullptr);
  EXPECT_TRUE(IsCleared(translator.InfoLlamada()));
  for (int slot = 1; slot <= 100; ++slot) {
    translator.QuitaLlamadaLista(static_cast<std::int16_t>(slot));
  }
  EXPECT_EQ(translator.BuscaLlamadaTroncalLista(u""), 0);
  EXPECT_EQ(clock.readings, 0);
}

TEST(Translator, LineWithoutConfigurationLeavesTheRecordCleared) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  translator.InfoLlamada().Telefono(u"555");
  translator.Llamada(u"\r\nN 027 00");
  EXPECT_EQ(translator.Llamada(), u"N 027 00");
  EXPECT_TRUE(IsCleared(translator.InfoLlamada()));
}

TEST(Translator, ConfigurationTranslatesTheLineThatIsThere) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  translator.Llamada(FixedLine().text());
  const auto config = FixedColumns().Build();
  translator.Conmutador(config.get());
  EXPECT_EQ(translator.Conmutador(), config.get());
  EXPECT_EQ(Text(translator.InfoLlamada().Telefono()), u"5551234567");

  const auto other = ConfigBuilder().Item(emParamTelefonoSaliente, 1, 4).Build();
  translator.Conmutador(other.get());
  EXPECT_EQ(Text(translator.InfoLlamada().Telefono()), u"2026");

  translator.Conmutador(nullptr);
  EXPECT_EQ(translator.Conmutador(), nullptr);
  EXPECT_TRUE(IsCleared(translator.InfoLlamada()));
  EXPECT_EQ(translator.Llamada(), FixedLine().text());
}

TEST(Translator, ConfigurationWithoutALineDoesNotTouchTheRecord) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  translator.InfoLlamada().Telefono(u"555");
  const auto config = FixedColumns().Build();
  translator.Conmutador(config.get());
  EXPECT_EQ(Text(translator.InfoLlamada().Telefono()), u"555");
  translator.Llamada(u"\r\n\r\n");  // empty once cleaned
  translator.InfoLlamada().Telefono(u"555");
  translator.Conmutador(config.get());
  EXPECT_EQ(Text(translator.InfoLlamada().Telefono()), u"555");
}

TEST(Translator, RecordIsOneAndTheSame) {
  Translation desk(FixedColumns().Build());
  const clsLlamadaTRD* record = &desk.call();
  desk.Translate(FixedLine().text());
  desk.translator.Conmutador(nullptr);
  EXPECT_EQ(&desk.call(), record);
}

TEST(Translator, SameTextTwiceIsTranslatedTwice) {
  Translation desk(FixedColumns().Build());
  desk.Translate(FixedLine().text());
  const auto first = ValuesOf(desk.call());
  desk.call().Inicializa();
  desk.Translate(FixedLine().text());
  EXPECT_EQ(ValuesOf(desk.call()), first);
}

TEST(Translator, CanBeGivenItsOwnText) {
  Translation desk(FixedColumns().Build());
  desk.Translate(FixedLine().text());
  desk.Translate(desk.translator.Llamada());
  EXPECT_EQ(desk.translator.Llamada(), FixedLine().text());
  desk.Translate(TextView(desk.translator.Llamada()).substr(11));
  EXPECT_EQ(desk.translator.Llamada(), FixedLine().text().substr(11));
}

struct RawLine {
  Text raw, cleaned;
};

void PrintTo(const RawLine& row, std::ostream* out) {
  *out << '[' << Ascii(row.raw) << ']';
}

class LineEnds : public testing::TestWithParam<RawLine> {};

TEST_P(LineEnds, AreRemovedFromTheBeginningOnly) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  translator.Llamada(GetParam().raw);
  EXPECT_EQ(translator.Llamada(), GetParam().cleaned);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LineEnds,
    testing::Values(RawLine{u"", u""}, RawLine{u"X", u"X"}, RawLine{u"\r\nX", u"X"},
                    RawLine{u"\n\rX", u"X"}, RawLine{u"\r\r\n\n\r\nX", u"X"}, RawLine{u"\r\n", u""},
                    RawLine{u"\n\n\r\r\n", u""}, RawLine{u"X\r\n", u"X\r\n"},
                    RawLine{u"X\r\nY", u"X\r\nY"}, RawLine{u"\nX\r\n\nY\n", u"X\r\n\nY\n"},
                    RawLine{u" \r\nX", u" \r\nX"}, RawLine{u"\r\n \r\nX", u" \r\nX"},
                    RawLine{u"\t\nX", u"\t\nX"}, RawLine{u"\f\nX", u"\f\nX"},
                    RawLine{u"\u0085X", u"\u0085X"}, RawLine{u"\u2028X", u"\u2028X"},
                    RawLine{Text(u"\0\r\nX", 4), Text(u"\0\r\nX", 4)},
                    RawLine{Text(u"\r\n\0X", 4), Text(u"\0X", 2)}));

TEST(Translator, LineOfLineEndsOnlyLeavesTheRecordCleared) {
  Translation desk(ConfigBuilder().Build());
  desk.Translate(FixedLine().text());
  ASSERT_FALSE(IsCleared(desk.call()));
  EXPECT_TRUE(IsCleared(desk.Translate(u"\r\n\r\n\n")));
  EXPECT_TRUE(IsCleared(desk.Translate(u"")));
  EXPECT_EQ(desk.clock.readings, 1);
}

TEST(Translator, ColumnsCountFromTheCleanedBeginning) {
  Translation desk(ConfigBuilder().TextItem(emParamTelefonoSaliente, 1, 3).Build());
  EXPECT_EQ(Text(desk.Translate(u"\r\n\n123456").Telefono()), u"123");
}

TEST(Translator, IncompleteConfigurationLeavesTheRecordCleared) {
  const auto spoil = {
      +[](clsCfgConmut& c) { c.Marca(u""); }, +[](clsCfgConmut& c) { c.Modelo(u""); },
      +[](clsCfgConmut& c) { c.Caso(emNoCaso); }, +[](clsCfgConmut& c) { c.Iniciar(); }};
  for (const auto change : spoil) {
    Translation desk(FixedColumns().Build());
    ASSERT_FALSE(IsCleared(desk.Translate(FixedLine().text())));
    change(*desk.config);
    EXPECT_TRUE(IsCleared(desk.Translate(FixedLine().text())));
  }
}

TEST(Translator, UnknownCaseLeavesTheRecordCleared) {
  for (const int code : {-1, 0, 77, 1000}) {
    Translation desk(FixedColumns().Case(static_cast<emCasos>(code)).Build());
    EXPECT_TRUE(IsCleared(desk.Translate(FixedLine().text()))) << code;
  }
}

// A line that nothing identifies tells the translations apart.
TEST(Translator, CaseChoosesTheTranslation) {
  const Text line = u"12345 without any identifier";
  for (const emCasos code : {emCasoEstandar, emCasoRestaFechasDuracion}) {
    Translation desk(ConfigBuilder().Case(code).Build());
    EXPECT_EQ(desk.Translate(line).TipoLlamada(), emLlamadaSaliente) << code;
  }
  Translation samsung(ConfigBuilder()
                          .Case(emCasoSamsungNX_820)
                          .TextItem(emParamExtensionSaliente, 1, 2)
                          .TextItem(emParamTroncalSaliente, 3, 2)
                          .Build());
  EXPECT_TRUE(IsCleared(samsung.Translate(line))) << "an outgoing call without a number";
  Translation meridian(ConfigBuilder().Case(emCasoNortelMeridian01).Build());
  EXPECT_EQ(meridian.Translate(line).TipoLlamada(), emLlamadaIndefinida);
  EXPECT_EQ(meridian.call().Anio(emParamFecha), 2026);
  Translation norstar(ConfigBuilder().Case(emCasoNortelNorstar0x32SMDR6).Build());
  EXPECT_TRUE(IsCleared(norstar.Translate(line))) << "no block is open";
}

TEST(Translator, ChangedCaseCountsFromTheNextLineOn) {
  Translation desk(FixedColumns().Build());
  EXPECT_EQ(desk.Translate(u"12345").TipoLlamada(), emLlamadaSaliente);
  desk.config->Caso(emCasoNortelMeridian01);
  EXPECT_EQ(desk.call().TipoLlamada(), emLlamadaSaliente) << "changed without a line";
  EXPECT_EQ(desk.Translate(u"12345").TipoLlamada(), emLlamadaIndefinida);
}

TEST(DirectTranslation, WithoutConfigurationIsAnError) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  translator.Llamada(FixedLine().text());
  translator.InfoLlamada().Telefono(u"555");
  EXPECT_THROW(translator.TraduceEstandar(), ObjectNotSetError);
  EXPECT_THROW(translator.TraduceMeridian01(), ObjectNotSetError);
  EXPECT_THROW(translator.TraduceNortelNorstar0x32SMDR6(), ObjectNotSetError);
  EXPECT_EQ(Text(translator.InfoLlamada().Telefono()), u"555");
}

TEST(DirectTranslation, WorksOnTopOfThePresentRecord) {
  Translation desk(FixedColumns().Build());
  desk.Translate(FixedLine().text());
  desk.call().ExtensionTransferida(u"777");
  desk.translator.TraduceEstandar();
  EXPECT_EQ(desk.call().Ring(), 10) << "ring time adds to what is there";
  EXPECT_EQ(Text(desk.call().ExtensionTransferida()), u"777");
}

TEST(DirectTranslation, DoesNotAskForACompleteConfigurationOrItsCase) {
  Translation desk(FixedColumns().Case(emNoCaso).Build());
  desk.config->Marca(u"");
  ASSERT_TRUE(IsCleared(desk.Translate(FixedLine().text())));
  desk.translator.TraduceEstandar();
  EXPECT_EQ(Text(desk.call().Telefono()), u"5551234567");
}

TEST(DirectTranslation, OfAnEmptyLineReadsNothing) {
  Translation desk(FixedColumns().Build());
  desk.translator.TraduceMeridian01();
  EXPECT_EQ(desk.call().TipoLlamada(), emLlamadaIndefinida);
  desk.call().Inicializa();
  desk.translator.TraduceNortelNorstar0x32SMDR6();
  EXPECT_TRUE(IsCleared(desk.call()));
  desk.translator.TraduceEstandar();
  EXPECT_EQ(desk.call().TipoLlamada(), emLlamadaSaliente);
  EXPECT_FALSE(desk.call().EsValido());
}

TEST(DirectTranslation, OfMeridianReadsThePartiesOfThePresentAttribute) {
  Translation desk(
      test::MeridianColumns().TextItem(emParamExtensionEntranteInicioTransferida, 3, 3).Build());
  desk.Translate(u"N 028 00 T047000 DN2221  04/04 14:22 00:12:04");
  ASSERT_EQ(Text(desk.call().Receptor()), u"DN2221 ");
  desk.call().Atributos(emAtributoIniTransferida);
  desk.translator.TraduceMeridian01();
  EXPECT_EQ(Text(desk.call().Receptor()), u"028");
}

// The items are read in a fixed order; those before the one that overflows are stored.
TEST(TranslatorOverflow, LeavesTheRecordPartlyFilled) {
  const FixedLine line{.date = u"2027/03/04", .time = u"10:05:30"};
  const auto overflowing = [&](emParamDato kind, int pos, int size) {
    auto desk = std::make_unique<Translation>(FixedColumns().Item(kind, pos, size).Build());
    EXPECT_THROW(desk->Translate(line.text()), OverflowError);
    return ValuesOf(desk->call());
  };
  test::CallValues expected;
  EXPECT_EQ(overflowing(emParamFechaAnio, 255, 1), expected);
  expected.start[0] = 2027;
  EXPECT_EQ(overflowing(emParamFechaMes, 1, 254), expected);
  expected.start[1] = 3;
  EXPECT_EQ(overflowing(emParamFechaDia, 1, 10), expected);
  expected.start[2] = 4;
  EXPECT_EQ(overflowing(emParamFechaHoras, 49, 5), expected) << "beyond 16 bits";
  EXPECT_EQ(overflowing(emParamFechaHoras, 49, 10), expected) << "beyond 32 bits";
  expected.start[3] = 10;
  EXPECT_EQ(overflowing(emParamFechaMinutos, 49, 10), expected);
  expected.start[4] = 5;
  expected.start[5] = 30;
  expected.duration = {0, 0, 0, 0, 7, 20};
  EXPECT_EQ(overflowing(emParamRingHoras, 12, 2), expected) << "ten hours of ring";
  expected.ring = 5;
  expected.type = emLlamadaEntrante;
  EXPECT_EQ(overflowing(emParamTelefonoEntrante, 255, 1), expected);
  expected.phone = u"5551234567";
  expected.caller = u"T001";
  EXPECT_EQ(overflowing(emParamExtensionEntrante, 255, 1), expected);
  expected.callee = u"0205";
  EXPECT_EQ(overflowing(emParamCodigoCuenta, 255, 1), expected);
}

TEST(TranslatorOverflow, MorningMarkersAreAppliedInBetween) {
  Translation start(FixedColumns()
                        .Constant(emDatoCteIdentificadorHorarioMatutinoFecha, 1, u"AM")
                        .Item(emParamDuracionHoras, 49, 10)
                        .Build());
  EXPECT_THROW(start.Translate(FixedLine().text()), OverflowError);
  EXPECT_EQ(start.call().Horas(emParamFecha), 22);

  Translation duration(FixedColumns()
                           .Constant(emDatoCteIdentificadorHorarioMatutinoDuracion, 1, u"AM")
                           .Item(emParamRingHoras, 49, 10)
                           .Build());
  EXPECT_THROW(duration.Translate(FixedLine{.duration = u"01:00:00"}.text()), OverflowError);
  EXPECT_EQ(duration.call().Horas(emParamDuracion), 13);

  Translation marker(
      FixedColumns().Constant(emDatoCteIdentificadorHorarioMatutinoFecha, 254, u"AM").Build());
  EXPECT_THROW(marker.Translate(FixedLine().text()), OverflowError);
  EXPECT_EQ(marker.call().Segundos(emParamFecha), 30);
  EXPECT_EQ(marker.call().Minutos(emParamDuracion), 0);
}

TEST(TranslatorOverflow, OfOneLineDoesNotSpoilTheNext) {
  Translation desk(FixedColumns().Item(emParamRingHoras, 60, 6).Build());
  EXPECT_THROW(desk.Translate(FixedLine{.account = u"000010"}.text()), OverflowError);
  EXPECT_EQ(desk.translator.Llamada(), FixedLine{.account = u"000010"}.text());
  EXPECT_TRUE(desk.Translate(FixedLine{.account = u"000009"}.text()).EsValido());
  EXPECT_EQ(desk.call().Ring(), 9 * 3600 + 5);
}

TEST(TranslatorOverflow, ComesOutOfBothSetters) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  const auto config = ConfigBuilder().Item(emParamFechaAnio, 1, 9).Build();
  translator.Llamada(u"999999999");
  EXPECT_THROW(translator.Conmutador(config.get()), OverflowError);
  EXPECT_EQ(translator.Conmutador(), config.get());
  EXPECT_THROW(translator.Llamada(u"888888888"), OverflowError);
  EXPECT_EQ(translator.Llamada(), u"888888888");
}

TEST(TranslatorClock, IsReadAtMostOncePerLine) {
  for (const int code : {0, 1, 2, 3, 4, 5, 77}) {
    Translation desk(ConfigBuilder()
                         .Case(static_cast<emCasos>(code))
                         .Item(emParamFechaAnio, 20, 4)
                         .Item(emParamFechaMes, 20, 4)
                         .Item(emParamFechaDia, 20, 4)
                         .Item(emParamDuracionAnio, 20, 4)
                         .Item(emParamDuracionMes, 20, 4)
                         .Item(emParamDuracionDia, 20, 4)
                         .Constant(emDatoCteIdentSaliente, 1, u"-")
                         .Build());
    int lines = 0;
    for (const TextView line :
         {u"--------            2026", u"--------", u"-      1 12", u"---", u""}) {
      const int before = desk.clock.readings;
      try {
        desk.Translate(line);
      } catch (const InvalidArgumentError&) {
      }
      EXPECT_LE(desk.clock.readings - before, 1) << "case " << code << " [" << Ascii(line) << ']';
      lines += desk.clock.readings - before;
    }
    EXPECT_EQ(lines > 0, code >= emCasoEstandar && code <= emCasoRestaFechasDuracion) << code;
  }
}

TEST(TranslatorClock, IsNotReadWhenTheLineTellsEverything) {
  auto layout = FixedColumns().Build();
  test::DefineItem(*layout, emParamFechaAnio, 1, 0);  // only years are completed from the clock
  Translation desk(std::move(layout));
  desk.Translate(FixedLine().text());
  EXPECT_EQ(desk.clock.readings, 1);
  desk.config->DATOActivo(emParamFechaMes);
  desk.config->TipoDatoDATO(emNoDefinido);
  desk.Translate(FixedLine().text());
  EXPECT_EQ(desk.clock.readings, 2);
}

TEST(TranslatorClock, IsReadAnewForEveryLine) {
  Translation desk(ConfigBuilder().Build());
  desk.clock.today = {2026, 12, 31};
  desk.Translate(u"1");
  EXPECT_EQ(desk.call().Dia(emParamFecha), 31);
  desk.clock.today = {2027, 1, 1};
  desk.Translate(u"1");
  EXPECT_EQ(desk.call().Anio(emParamFecha), 2027);
  EXPECT_EQ(desk.call().Mes(emParamFecha), 1);
  EXPECT_EQ(desk.call().Dia(emParamFecha), 1);
  desk.clock.today = {2028, 2, 3};
  desk.translator.Conmutador(desk.config.get());
  EXPECT_EQ(desk.call().Anio(emParamFecha), 2028);
}

// Each reading is a day later.
class TickingClock final : public Clock {
 public:
  CivilDate Today() const override { return DateOfDayNumber(++day_); }

 private:
  mutable std::int64_t day_ = DayNumber(2026, 12, 30);
};

TEST(TranslatorClock, DatesAllItemsOfALineAlikeOverMidnight) {
  const TickingClock clock;
  clsTradEST translator(clock);
  const auto config = ConfigBuilder().Build();
  translator.Conmutador(config.get());
  translator.Llamada(u"1");
  EXPECT_EQ(translator.InfoLlamada().Fecha(), static_cast<double>(DayNumber(2026, 12, 31)));
  translator.Llamada(u"1");
  EXPECT_EQ(translator.InfoLlamada().Fecha(), static_cast<double>(DayNumber(2027, 1, 1)));
}

TEST(TranslatorClock, RecordOutsideATranslationReadsTheClockItself) {
  Translation desk(ConfigBuilder().Build());
  desk.Translate(u"1");
  desk.clock.today = {2030, 5, 6};
  desk.call().Dia(emParamFecha, 0);
  EXPECT_EQ(desk.call().Dia(emParamFecha), 6);
}

}  // namespace
}  // namespace conmuta
