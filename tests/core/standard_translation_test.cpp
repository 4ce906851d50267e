// Lines whose items stand at fixed places.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::CallValues;
using test::ConfigBuilder;
using test::FixedColumns;
using test::FixedLine;
using test::Translation;
using test::ValuesOf;

TEST(StandardTranslation, ReadsEveryItem) {
  Translation desk(FixedColumns().Build());
  CallValues expected;
  expected.start = {2026, 11, 21, 10, 5, 30};
  expected.duration = {0, 0, 0, 0, 7, 20};
  expected.ring = 5;
  expected.type = emLlamadaEntrante;
  expected.phone = u"5551234567";
  expected.caller = u"T001";
  expected.callee = u"0205";
  expected.account = u"004321";
  const clsLlamadaTRD& call = desk.Translate(FixedLine().text());
  EXPECT_EQ(ValuesOf(call), expected);
  EXPECT_TRUE(call.EsValido());
  EXPECT_EQ(call.Fecha(), 46347);
  EXPECT_DOUBLE_EQ(call.Hora(), 36330.0 / 86400);
  EXPECT_EQ(call.Duracion(), 440);
}

struct KindOfLine {
  Text mark;
  emTiposLlamadas type;
  emAtributosLlamadas attribute;
};

void PrintTo(const KindOfLine& row, std::ostream* out) {
  *out << '[' << test::Ascii(row.mark) << ']';
}

class StandardTranslationKind : public testing::TestWithParam<KindOfLine> {};

TEST_P(StandardTranslationKind, IsTypeAndAttributeByTheIdentifiers) {
  Translation desk(FixedColumns().Build());
  const clsLlamadaTRD& call = desk.Translate(FixedLine{.kind = GetParam().mark}.text());
  EXPECT_EQ(call.TipoLlamada(), GetParam().type);
  EXPECT_EQ(call.Atributos(), GetParam().attribute);
  EXPECT_EQ(Text(call.Telefono()), u"5551234567");
  EXPECT_EQ(Text(call.Emisor()), u"T001");
  EXPECT_EQ(Text(call.Receptor()), u"0205");
}

INSTANTIATE_TEST_SUITE_P(
    Marks, StandardTranslationKind,
    testing::Values(KindOfLine{u"I ", emLlamadaEntrante, emSinAtributo},
                    KindOfLine{u"IS", emLlamadaEntrante, emAtributoIniTransferida},
                    KindOfLine{u"IE", emLlamadaEntrante, emAtributoFinTransferida},
                    KindOfLine{u"O ", emLlamadaSaliente, emSinAtributo},
                    KindOfLine{u"OS", emLlamadaSaliente, emAtributoIniTransferida},
                    KindOfLine{u"OE", emLlamadaSaliente, emAtributoFinTransferida},
                    KindOfLine{u"X ", emLlamadaInterExtension, emSinAtributo},
                    KindOfLine{u"XS", emLlamadaInterExtension, emAtributoIniTransferida},
                    KindOfLine{u"XE", emLlamadaInterExtension, emAtributoFinTransferida},
                    KindOfLine{u"T ", emLlamadaInterTroncal, emSinAtributo},
                    KindOfLine{u"TS", emLlamadaInterTroncal, emAtributoIniTransferida},
                    KindOfLine{u"TE", emLlamadaInterTroncal, emAtributoFinTransferida},
                    // Not recognised: outgoing, and its transfer identifiers count.
                    KindOfLine{u"? ", emLlamadaSaliente, emSinAtributo},
                    KindOfLine{u"?S", emLlamadaSaliente, emAtributoIniTransferida},
                    KindOfLine{u"iE", emLlamadaSaliente, emAtributoFinTransferida}));

TEST(StandardTranslation, WithoutIdentifiersEveryCallIsOutgoing) {
  Translation desk(ConfigBuilder().Item(emParamTelefonoSaliente, 1, 5).Build());
  for (const TextView line : {u"12345", u"letters only", u"\u00f1", u" "}) {
    EXPECT_EQ(desk.Translate(line).TipoLlamada(), emLlamadaSaliente);
  }
}

TEST(StandardTranslation, WithoutItemsIsAnEmptyCallOfToday) {
  Translation desk(ConfigBuilder().Build());
  CallValues expected;
  expected.start = {2026, 11, 21, 0, 0, 0};
  expected.type = emLlamadaSaliente;
  EXPECT_EQ(ValuesOf(desk.Translate(FixedLine().text())), expected);
  EXPECT_FALSE(desk.call().EsValido());
}

TEST(StandardTranslation, OfATruncatedLineReadsWhatIsThere) {
  Translation desk(FixedColumns().Build());
  const Text whole = FixedLine().text();
  CallValues expected;
  expected.start = {2026, 11, 21, 10, 0, 0};
  expected.type = emLlamadaSaliente;
  EXPECT_EQ(ValuesOf(desk.Translate(whole.substr(0, 14))), expected);
  expected.start[4] = 3;
  EXPECT_EQ(ValuesOf(desk.Translate(whole.substr(0, 14) + u"3")), expected);
  for (std::size_t length = 1; length < whole.size(); ++length) {
    EXPECT_EQ(desk.Translate(whole.substr(0, length)).EsValido(), length >= 44) << length;
  }
}

TEST(StandardTranslation, ReplacesWhatTheClockOfTheSwitchLacks) {
  Translation desk(FixedColumns().Build());
  const clsLlamadaTRD& call = desk.Translate(FixedLine{.date = u"****/**/**"}.text());
  EXPECT_EQ(call.Fecha(), 46347);
  desk.Translate(FixedLine{.date = u"2025/13/32"}.text());
  EXPECT_EQ(call.Fecha(), 46347) << "an earlier year becomes the current one";
}

TEST(StandardTranslation, CutsMinutesAndSecondsTo59) {
  Translation desk(FixedColumns().Build());
  const clsLlamadaTRD& call =
      desk.Translate(FixedLine{.time = u"75:75:99", .duration = u"99:60:61"}.text());
  EXPECT_EQ(ValuesOf(call).start, (std::array<int, 6>{2026, 11, 21, 75, 59, 59}));
  EXPECT_EQ(ValuesOf(call).duration, (std::array<int, 6>{0, 0, 0, 99, 59, 59}));
}

TEST(StandardTranslation, RingAddsUpItsThreeParts) {
  Translation desk(FixedColumns().Item(emParamRingHoras, 1, 1).Build());
  EXPECT_EQ(desk.Translate(FixedLine{.ring = u"10:09"}.text()).Ring(), 2 * 3600 + 10 * 60 + 9);
}

// Of a line about the extension alone ("LOG IN") a text trunk takes the blanks for a trunk; a
// numeric one takes nothing, and there is no call.
TEST(StandardTranslation, BlanksAreAPartyToATextAndNoneToANumber) {
  const Text line = FixedLine{.from = u"    ", .number = u"LOG IN    "}.text();
  Translation desk(FixedColumns().Build());
  const clsLlamadaTRD& call = desk.Translate(line);
  EXPECT_EQ(Text(call.Emisor()), u"    ");
  EXPECT_TRUE(call.EsValido());
  test::DefineItem(*desk.config, emParamTroncalEntrante, 39, 4);
  EXPECT_FALSE(desk.Translate(line).EsValido());
}

TEST(StandardTranslation, AccountCodeIsReadAsItsSlotTells) {
  Translation desk(FixedColumns().Build());
  EXPECT_EQ(Text(desk.Translate(FixedLine{.account = u"A-4 3x"}.text()).CodigoCuenta()), u"A-4 3x");
  test::DefineItem(*desk.config, emParamCodigoCuenta, 60, 6);
  EXPECT_EQ(Text(desk.Translate(FixedLine{.account = u"A-4 3x"}.text()).CodigoCuenta()), u"43");
}

TEST(StandardTranslation, CutsLongFieldsToTheRecordsWidths) {
  Translation desk(ConfigBuilder()
                       .TextItem(emParamTelefonoSaliente, 1, 40)
                       .TextItem(emParamExtensionSaliente, 2, 40)
                       .TextItem(emParamTroncalSaliente, 3, 40)
                       .TextItem(emParamCodigoCuenta, 4, 40)
                       .Build());
  const Text line = u"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGH";
  const clsLlamadaTRD& call = desk.Translate(line);
  EXPECT_EQ(Text(call.Telefono()), line.substr(0, 30));
  EXPECT_EQ(Text(call.Emisor()), line.substr(1, 10));
  EXPECT_EQ(Text(call.Receptor()), line.substr(2, 10));
  EXPECT_EQ(Text(call.CodigoCuenta()), line.substr(3, 30));
}

// A constant that marks the morning makes the lines without it afternoon lines.
struct HalfDay {
  Text hours;
  Text mark;
  int stored;
};

void PrintTo(const HalfDay& row, std::ostream* out) {
  *out << test::Ascii(row.hours) << test::Ascii(row.mark);
}

class MorningMarker : public testing::TestWithParam<HalfDay> {
 protected:
  // Start HH:MM and AM/PM, duration HH:MM and AM/PM.
  static ConfigBuilder Layout() {
    ConfigBuilder layout;
    layout.Item(emParamFechaHoras, 1, 2).Item(emParamFechaMinutos, 4, 2);
    layout.Item(emParamDuracionHoras, 9, 2).Item(emParamDuracionMinutos, 12, 2);
    return layout;
  }
};

TEST_P(MorningMarker, OfTheDateMovesOnlyTheStart) {
  Translation desk(Layout().Constant(emDatoCteIdentificadorHorarioMatutinoFecha, 6, u"AM").Build());
  const clsLlamadaTRD& call =
      desk.Translate(GetParam().hours + u":15" + GetParam().mark + u" 03:20PM");
  EXPECT_EQ(call.Horas(emParamFecha), GetParam().stored);
  EXPECT_EQ(call.Minutos(emParamFecha), 15);
  EXPECT_EQ(call.Horas(emParamDuracion), 3);
}

TEST_P(MorningMarker, OfTheDurationMovesOnlyTheDuration) {
  Translation desk(
      Layout().Constant(emDatoCteIdentificadorHorarioMatutinoDuracion, 14, u"AM").Build());
  const clsLlamadaTRD& call =
      desk.Translate(Text(u"03:20PM ") + GetParam().hours + u":15" + GetParam().mark);
  EXPECT_EQ(call.Horas(emParamFecha), 3);
  EXPECT_EQ(call.Horas(emParamDuracion), GetParam().stored);
  EXPECT_EQ(call.Minutos(emParamDuracion), 15);
}

INSTANTIATE_TEST_SUITE_P(Hours, MorningMarker,
                         testing::Values(HalfDay{u"03", u"PM", 15}, HalfDay{u"03", u"AM", 3},
                                         HalfDay{u"03", u"am", 15}, HalfDay{u"03", u"  ", 15},
                                         HalfDay{u"12", u"PM", 12}, HalfDay{u"12", u"AM", 12},
                                         HalfDay{u"11", u"PM", 23}, HalfDay{u"01", u"PM", 13},
                                         HalfDay{u"00", u"PM", 0}, HalfDay{u"13", u"PM", 13},
                                         HalfDay{u"23", u"AM", 23}, HalfDay{u"xx", u"PM", 0}));

TEST(MorningMarker, BeyondTheEndOfTheLineIsMissing) {
  Translation desk(ConfigBuilder()
                       .Item(emParamFechaHoras, 1, 2)
                       .Constant(emDatoCteIdentificadorHorarioMatutinoFecha, 6, u"AM")
                       .Build());
  EXPECT_EQ(desk.Translate(u"03:15A").Horas(emParamFecha), 15);
  EXPECT_EQ(desk.Translate(u"03:15AM").Horas(emParamFecha), 3);
}

TEST(MorningMarker, UndefinedLeavesTheHoursAsRead) {
  Translation desk(
      ConfigBuilder().Item(emParamFechaHoras, 1, 2).Item(emParamDuracionHoras, 9, 2).Build());
  const clsLlamadaTRD& call = desk.Translate(u"03:15PM 04:20PM");
  EXPECT_EQ(call.Horas(emParamFecha), 3);
  EXPECT_EQ(call.Horas(emParamDuracion), 4);
}

TEST(StandardTranslation, ReadsTheDateOfTheDurationToo) {
  Translation desk(FixedColumns()
                       .Item(emParamDuracionAnio, 1, 4)
                       .Item(emParamDuracionMes, 6, 2)
                       .Item(emParamDuracionDia, 9, 2)
                       .Build());
  const clsLlamadaTRD& call = desk.Translate(FixedLine{.date = u"2030/02/31"}.text());
  EXPECT_EQ(ValuesOf(call).duration, (std::array<int, 6>{2030, 2, 31, 0, 7, 20}));
  EXPECT_EQ(call.Duracion(), 440);
}

// Unlike one without a slot, which is 0.
TEST(StandardTranslation, UnreadableMonthAndDayOfTheDurationAreTodays) {
  Translation desk(FixedColumns()
                       .Item(emParamDuracionAnio, 36, 2)
                       .Item(emParamDuracionMes, 36, 2)
                       .Item(emParamDuracionDia, 36, 2)
                       .Build());
  const clsLlamadaTRD& call = desk.Translate(FixedLine().text());
  EXPECT_EQ(ValuesOf(call).duration, (std::array<int, 6>{0, 11, 21, 0, 7, 20}));
}

TEST(StandardTranslation, ParksNothingAndKeepsCallsWithoutANumber) {
  for (const emCasos code : {emCasoEstandar, emCasoRestaFechasDuracion}) {
    Translation desk(FixedColumns().Case(code).Build());
    desk.Translate(FixedLine{.kind = u"IS"}.text());
    EXPECT_EQ(desk.translator.BuscaLlamadaTroncalLista(u"T001"), 0);
    const clsLlamadaTRD& call = desk.Translate(FixedLine{.kind = u"O ", .number = u""}.text());
    EXPECT_TRUE(call.EsValido());
    EXPECT_EQ(call.TipoLlamada(), emLlamadaSaliente);
  }
}

TEST(StandardTranslation, LeavesTheSlotsLookedAtLastActive) {
  Translation desk(FixedColumns().Build());
  desk.Translate(FixedLine().text());
  EXPECT_EQ(desk.config->DATOActivo(), emParamCodigoCuenta);
  EXPECT_EQ(desk.config->CTEActivo(), emDatoCteIdentEntranteFinTransferida);
  desk.Translate(FixedLine{.kind = u"?S"}.text());
  EXPECT_EQ(desk.config->CTEActivo(), emDatoCteIdentSalienteInicioTransferida);
}

}  // namespace
}  // namespace conmuta
