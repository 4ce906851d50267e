// What a call record stores of the values it is given.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/fake_clock.h"

namespace conmuta {
namespace {

using test::CallValues;
using test::FakeClock;
using test::IsCleared;
using test::ValuesOf;

constexpr int kMin16 = std::numeric_limits<std::int16_t>::min();
constexpr int kMax16 = std::numeric_limits<std::int16_t>::max();
constexpr std::int32_t kMin32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax32 = std::numeric_limits<std::int32_t>::max();

// One of the six parts of a moment.
struct Part {
  const char* name;
  std::int16_t (*get)(const clsLlamadaTRD&, emParamTipoFecha);
  void (*set)(clsLlamadaTRD&, emParamTipoFecha, std::int16_t);
};

#define PART(member)                                                                              \
  Part {                                                                                          \
#member,                                                                                      \
        [](const clsLlamadaTRD& call,                                                             \
           emParamTipoFecha g) { return call.member(g); },                                        \
                                                        [](clsLlamadaTRD & call,                  \
                                                           emParamTipoFecha g,                    \
                                                           std::int16_t v) { call.member(g, v); } \
  }
constexpr Part kAnio = PART(Anio);
constexpr Part kMes = PART(Mes);
constexpr Part kDia = PART(Dia);
constexpr Part kHoras = PART(Horas);
constexpr Part kMinutos = PART(Minutos);
constexpr Part kSegundos = PART(Segundos);
#undef PART
constexpr Part kParts[] = {kAnio, kMes, kDia, kHoras, kMinutos, kSegundos};

struct StoredValue {
  Part part;
  int given;
  int in_start;  // what the start group stores on 21 November 2026
  int in_duration;
};

void PrintTo(const StoredValue& row, std::ostream* out) {
  *out << row.part.name << " = " << row.given;
}

class CallRecordPart : public testing::TestWithParam<StoredValue> {};

TEST_P(CallRecordPart, IsClampedAndAMissingDateIsTodays) {
  const StoredValue& row = GetParam();
  const FakeClock clock({2026, 11, 21});
  clsLlamadaTRD call(clock);
  row.part.set(call, emParamFecha, static_cast<std::int16_t>(row.given));
  EXPECT_EQ(row.part.get(call, emParamFecha), row.in_start);
  EXPECT_EQ(row.part.get(call, emParamDuracion), 0) << "the other group was touched";
  row.part.set(call, emParamDuracion, static_cast<std::int16_t>(row.given));
  EXPECT_EQ(row.part.get(call, emParamDuracion), row.in_duration);
  EXPECT_EQ(row.part.get(call, emParamFecha), row.in_start);
  EXPECT_EQ(call.Ring(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Values, CallRecordPart,
    testing::Values(StoredValue{kAnio, kMin16, 2026, 0}, StoredValue{kAnio, -1, 2026, 0},
                    StoredValue{kAnio, 0, 2026, 0}, StoredValue{kAnio, 1, 1, 1},
                    StoredValue{kAnio, 26, 26, 26}, StoredValue{kAnio, 9999, 9999, 9999},
                    StoredValue{kAnio, kMax16, kMax16, kMax16}, StoredValue{kMes, kMin16, 11, 0},
                    StoredValue{kMes, -1, 11, 0}, StoredValue{kMes, 0, 11, 0},
                    StoredValue{kMes, 1, 1, 1}, StoredValue{kMes, 12, 12, 12},
                    StoredValue{kMes, 13, 11, 0}, StoredValue{kMes, kMax16, 11, 0},
                    StoredValue{kDia, kMin16, 21, 0}, StoredValue{kDia, -1, 21, 0},
                    StoredValue{kDia, 0, 21, 0}, StoredValue{kDia, 1, 1, 1},
                    StoredValue{kDia, 31, 31, 31}, StoredValue{kDia, 32, 21, 0},
                    StoredValue{kDia, kMax16, 21, 0}, StoredValue{kHoras, kMin16, 0, 0},
                    StoredValue{kHoras, -1, 0, 0}, StoredValue{kHoras, 0, 0, 0},
                    StoredValue{kHoras, 23, 23, 23}, StoredValue{kHoras, 24, 24, 24},
                    StoredValue{kHoras, kMax16, kMax16, kMax16},
                    StoredValue{kMinutos, kMin16, 0, 0}, StoredValue{kMinutos, -1, 0, 0},
                    StoredValue{kMinutos, 0, 0, 0}, StoredValue{kMinutos, 1, 1, 1},
                    StoredValue{kMinutos, 59, 59, 59}, StoredValue{kMinutos, 60, 0, 0},
                    StoredValue{kMinutos, kMax16, 0, 0}, StoredValue{kSegundos, kMin16, 0, 0},
                    StoredValue{kSegundos, -1, 0, 0}, StoredValue{kSegundos, 0, 0, 0},
                    StoredValue{kSegundos, 1, 1, 1}, StoredValue{kSegundos, 59, 59, 59},
                    StoredValue{kSegundos, 60, 0, 0}, StoredValue{kSegundos, kMax16, 0, 0}));

TEST(CallRecord, IsCreatedCleared) {
  const FakeClock clock;
  const clsLlamadaTRD call(clock);
  EXPECT_TRUE(IsCleared(call)) << ValuesOf(call);
  EXPECT_EQ(call.Fecha(), -657434);
  EXPECT_EQ(call.Hora(), 0);
  EXPECT_EQ(call.Duracion(), 0);
  EXPECT_EQ(call.TipoLlamada(), emLlamadaIndefinida);
  EXPECT_FALSE(call.EsValido());
  EXPECT_EQ(clock.readings, 0);
}

TEST(CallRecord, IgnoresTheDatePartsOfRing) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  for (const Part& part : {kAnio, kMes, kDia}) part.set(call, emParamRING, 5);
  EXPECT_TRUE(IsCleared(call)) << ValuesOf(call);
}

TEST(CallRecord, IgnoresUnknownGroups) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  for (const std::int32_t index : {kMin32, -1, 0, 4, kMax32}) {
    const auto group = static_cast<emParamTipoFecha>(index);
    for (const Part& part : kParts) {
      for (const int value : {kMin16, -1, 0, 5, kMax16}) {
        part.set(call, group, static_cast<std::int16_t>(value));
      }
      EXPECT_EQ(part.get(call, group), 0) << part.name << " of group " << index;
    }
    call.AjustarHoraVespertina12Hrs24Hrs(group);
  }
  EXPECT_TRUE(IsCleared(call)) << ValuesOf(call);
  EXPECT_EQ(clock.readings, 0);
}

TEST(CallRecord, ClockIsReadForMissingDatePartsOnly) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Anio(emParamFecha, 2030);
  call.Mes(emParamFecha, 1);
  call.Dia(emParamFecha, 31);
  for (const Part& part : kParts) part.set(call, emParamDuracion, 0);
  EXPECT_EQ(clock.readings, 0);
  call.Dia(emParamFecha, 32);
  EXPECT_EQ(clock.readings, 1);
}

TEST(CallRecordRing, SumsItsParts) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Minutos(emParamRING, 5);
  call.Segundos(emParamRING, 30);
  EXPECT_EQ(call.Ring(), 330);
  call.Horas(emParamRING, 9);
  EXPECT_EQ(call.Ring(), 330 + 9 * 3600);
  call.Segundos(emParamRING, 59);
  EXPECT_EQ(call.Ring(), 330 + 9 * 3600 + 59);
  for (const Part& part : kParts) EXPECT_EQ(part.get(call, emParamRING), 0) << part.name;
}

TEST(CallRecordRing, PartsOutOfRangeAddNothing) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  for (const Part& part : {kMinutos, kSegundos}) {
    for (const int value : {kMin16, -1, 0, 60, kMax16}) {
      part.set(call, emParamRING, static_cast<std::int16_t>(value));
    }
  }
  for (const int value : {kMin16, -10, -1, 0}) {
    call.Horas(emParamRING, static_cast<std::int16_t>(value));
  }
  EXPECT_EQ(call.Ring(), 0);
}

TEST(CallRecordRing, TenHoursOverflowAndLeaveItAsItWas) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Ring(7);
  for (const int hours : {10, 11, kMax16}) {
    EXPECT_THROW(call.Horas(emParamRING, static_cast<std::int16_t>(hours)), OverflowError) << hours;
  }
  EXPECT_EQ(call.Ring(), 7);
}

TEST(CallRecordRing, SumBeyond32BitsOverflowsAndLeavesItAsItWas) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  call.Ring(kMax32);
  EXPECT_THROW(call.Segundos(emParamRING, 1), OverflowError);
  EXPECT_THROW(call.Minutos(emParamRING, 1), OverflowError);
  EXPECT_THROW(call.Horas(emParamRING, 1), OverflowError);
  EXPECT_EQ(call.Ring(), kMax32);
  call.Segundos(emParamRING, 0);
  EXPECT_EQ(call.Ring(), kMax32);
  call.Ring(kMax32 - 3600);
  call.Horas(emParamRING, 1);
  EXPECT_EQ(call.Ring(), kMax32);
}

TEST(CallRecordRing, NegativeBecomesZero) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  for (const std::int32_t value : {-1, kMin32}) {
    call.Ring(90);
    call.Ring(value);
    EXPECT_EQ(call.Ring(), 0) << value;
  }
  call.Ring(kMax32);
  EXPECT_EQ(call.Ring(), kMax32);
}

TEST(CallRecord, UnknownTypesBecomeUndefined) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  for (std::int32_t code = 0; code <= 6; ++code) {
    const auto type = static_cast<emTiposLlamadas>(code);
    EXPECT_EQ(call.TipoLlamada(type), type) << code;
    EXPECT_EQ(call.TipoLlamada(), type) << code;
  }
  for (const std::int32_t code : {kMin32, -1, 7, 1000, kMax32}) {
    call.TipoLlamada(emLlamadaEntrante);
    EXPECT_EQ(call.TipoLlamada(static_cast<emTiposLlamadas>(code)), emLlamadaIndefinida) << code;
    EXPECT_EQ(call.TipoLlamada(), emLlamadaIndefinida) << code;
  }
}

TEST(CallRecord, UnknownAttributesBecomeNone) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  for (std::int32_t code = 0; code <= 3; ++code) {
    const auto attribute = static_cast<emAtributosLlamadas>(code);
    EXPECT_EQ(call.Atributos(attribute), attribute) << code;
    EXPECT_EQ(call.Atributos(), attribute) << code;
  }
  for (const std::int32_t code : {kMin32, -1, 4, 1000, kMax32}) {
    call.Atributos(emAtributoFinTransferida);
    EXPECT_EQ(call.Atributos(static_cast<emAtributosLlamadas>(code)), emSinAtributo) << code;
    EXPECT_EQ(call.Atributos(), emSinAtributo) << code;
  }
}

// One of the texts.
struct Field {
  const char* name;
  std::size_t width;
  TextView (*get)(const clsLlamadaTRD&);
  void (*set)(clsLlamadaTRD&, TextView);
};

#define FIELD(member, width)                                                               \
  Field {                                                                                  \
#member, width,                                                                        \
        [](const clsLlamadaTRD&                                                            \
               call) { return call.member(); }, [](clsLlamadaTRD & call,                   \
                                                   TextView value) { call.member(value); } \
  }
constexpr Field kFields[] = {FIELD(Telefono, 30), FIELD(ExtensionTransferida, 10),
                             FIELD(Emisor, 10), FIELD(Receptor, 10), FIELD(CodigoCuenta, 30)};
#undef FIELD

void PrintTo(const Field& field, std::ostream* out) {
  *out << field.name;
}

class CallRecordText : public testing::TestWithParam<Field> {
 protected:
  Text Stored(TextView value) {
    GetParam().set(call_, value);
    return Text(GetParam().get(call_));
  }

  FakeClock clock_;
  clsLlamadaTRD call_{clock_};
};

TEST_P(CallRecordText, IsCutToItsWidth) {
  const Text forty = u"abcdefghijklmnopqrstuvwxyz0123456789ABCD";
  EXPECT_EQ(Stored(forty), forty.substr(0, GetParam().width));
  EXPECT_EQ(Stored(forty.substr(0, GetParam().width)), forty.substr(0, GetParam().width));
  EXPECT_EQ(Stored(forty.substr(0, GetParam().width + 1)), forty.substr(0, GetParam().width));
}

TEST_P(CallRecordText, ShorterValueLeavesNothingOfALongerOne) {
  Stored(Text(40, u'9'));
  EXPECT_EQ(Stored(u"12"), u"12");
  EXPECT_EQ(Stored(u""), u"");
}

TEST_P(CallRecordText, DropsNulsButCountsThemInTheWidth) {
  EXPECT_EQ(Stored(TextView(u"\0a\0b\0", 5)), u"ab");
  const Text padded = Text(GetParam().width - 1, kNul) + u"ab";
  EXPECT_EQ(Stored(padded), u"a");
  EXPECT_EQ(Stored(Text(GetParam().width, kNul) + u"ab"), u"");
}

TEST_P(CallRecordText, KeepsEveryOtherCharacter) {
  for (const Text& value : {Text(u"  1 2  "), Text(u"ñÑ\r\n\t"), Text{0xD800, u'x', 0xDC00}}) {
    EXPECT_EQ(Stored(value), value) << test::Ascii(value);
  }
}

TEST_P(CallRecordText, CanBeGivenItsOwnValue) {
  Stored(u"0123456789");
  GetParam().set(call_, GetParam().get(call_));
  EXPECT_EQ(GetParam().get(call_), u"0123456789");
  GetParam().set(call_, GetParam().get(call_).substr(4));
  EXPECT_EQ(GetParam().get(call_), u"456789");
}

TEST_P(CallRecordText, IsApartFromTheOthers) {
  Stored(u"7");
  for (const Field& other : kFields) {
    const bool same = TextView(other.get(call_)) == u"7";
    EXPECT_EQ(same, std::string(other.name) == GetParam().name) << other.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Fields, CallRecordText, testing::ValuesIn(kFields));

// A record in which no field has its initial value.
void FillAll(clsLlamadaTRD& call) {
  std::int16_t value = 1;
  for (const emParamTipoFecha group : {emParamFecha, emParamDuracion}) {
    for (const Part& part : kParts) part.set(call, group, value++);
  }
  call.Ring(99);
  call.TipoLlamada(emLlamadaInterTroncal);
  call.Atributos(emAtributoEnTransferencia);
  char16_t letter = u'a';
  for (const Field& field : kFields) field.set(call, Text(1, u'a') + Text(1, ++letter));
}

TEST(CallRecord, InicializaClearsEverything) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  FillAll(call);
  ASSERT_FALSE(IsCleared(call));
  call.Inicializa();
  EXPECT_TRUE(IsCleared(call)) << ValuesOf(call);
  EXPECT_EQ(clock.readings, 0);
}

TEST(CallRecord, InicializaKeepsTheClock) {
  const FakeClock clock({2031, 2, 3});
  clsLlamadaTRD call(clock);
  call.Inicializa();
  call.Anio(emParamFecha, 0);
  EXPECT_EQ(call.Anio(emParamFecha), 2031);
}

TEST(CopiaLlamada, TakesEveryField) {
  const FakeClock clock;
  clsLlamadaTRD source(clock);
  FillAll(source);
  clsLlamadaTRD copy(clock);
  copy.CopiaLlamada(source);
  EXPECT_EQ(ValuesOf(copy), ValuesOf(source));
}

TEST(CopiaLlamada, StoresWithoutTheSettersRules) {
  const FakeClock clock;
  const clsLlamadaTRD cleared(clock);
  clsLlamadaTRD copy(clock);
  FillAll(copy);
  copy.CopiaLlamada(cleared);
  EXPECT_TRUE(IsCleared(copy)) << ValuesOf(copy) << ": a missing date must not become today's";
  EXPECT_EQ(clock.readings, 0);
}

TEST(CopiaLlamada, TakesNegativeDurations) {
  const FakeClock clock;
  clsLlamadaTRD source(clock);
  for (const emParamTipoFecha group : {emParamFecha, emParamDuracion}) {
    source.Anio(group, 2026);
    for (const Part& part : {kMes, kDia, kMinutos, kSegundos}) part.set(source, group, 5);
  }
  source.Horas(emParamFecha, 1);
  source.Horas(emParamDuracion, 3);
  source.AjustaDuracionPorRestaFechas();
  ASSERT_EQ(source.Duracion(), -7200);
  clsLlamadaTRD copy(clock);
  copy.CopiaLlamada(source);
  EXPECT_EQ(copy.Duracion(), -7200);
  EXPECT_EQ(ValuesOf(copy), ValuesOf(source));
}

TEST(CopiaLlamada, LeavesTwoIndependentRecords) {
  const FakeClock clock;
  clsLlamadaTRD source(clock);
  FillAll(source);
  clsLlamadaTRD copy(clock);
  copy.CopiaLlamada(source);
  const CallValues before = ValuesOf(copy);
  source.Inicializa();
  EXPECT_EQ(ValuesOf(copy), before);
}

TEST(CopiaLlamada, OfItselfChangesNothing) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  FillAll(call);
  const CallValues before = ValuesOf(call);
  call.CopiaLlamada(call);
  EXPECT_EQ(ValuesOf(call), before);
}

TEST(CopiaLlamada, KeepsItsOwnClock) {
  const FakeClock own({2031, 2, 3});
  clsLlamadaTRD copy(own);
  {
    const FakeClock other({1999, 1, 1});
    copy.CopiaLlamada(clsLlamadaTRD(other));
  }
  copy.Anio(emParamFecha, 0);
  EXPECT_EQ(copy.Anio(emParamFecha), 2031);
}

TEST(AjustarHoraVespertina, AddsTwelveToOneToEleven) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  for (const emParamTipoFecha group : {emParamFecha, emParamDuracion}) {
    for (std::int16_t hour = 0; hour <= 30; ++hour) {
      call.Horas(group, hour);
      call.AjustarHoraVespertina12Hrs24Hrs(group);
      EXPECT_EQ(call.Horas(group), hour >= 1 && hour <= 11 ? hour + 12 : hour) << hour;
    }
  }
}

TEST(AjustarHoraVespertina, TouchesOnlyTheHourOfItsGroup) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  FillAll(call);  // hours 4 and 10
  CallValues expected = ValuesOf(call);
  call.AjustarHoraVespertina12Hrs24Hrs(emParamRING);
  EXPECT_EQ(ValuesOf(call), expected);
  expected.duration[3] = 22;
  call.AjustarHoraVespertina12Hrs24Hrs(emParamDuracion);
  EXPECT_EQ(ValuesOf(call), expected);
}

// Every combination of type, parties and date.
TEST(EsValido, NeedsTypePartiesAndDate) {
  const FakeClock clock;
  for (int type = 0; type <= 6; ++type) {
    for (unsigned missing = 0; missing < 32; ++missing) {
      clsLlamadaTRD call(clock);
      call.TipoLlamada(static_cast<emTiposLlamadas>(type));
      if ((missing & 1) == 0) call.Emisor(u"T1");
      if ((missing & 2) == 0) call.Receptor(u"205");
      if ((missing & 4) == 0) call.Anio(emParamFecha, 2026);
      if ((missing & 8) == 0) call.Mes(emParamFecha, 11);
      if ((missing & 16) == 0) call.Dia(emParamFecha, 21);
      EXPECT_EQ(call.EsValido(), type != emLlamadaIndefinida && missing == 0) << ValuesOf(call);
    }
  }
}

TEST(EsValido, LooksAtNothingElse) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  FillAll(call);
  call.Telefono(u"");
  call.CodigoCuenta(u"");
  call.ExtensionTransferida(u"");
  call.Atributos(emSinAtributo);
  call.Ring(0);
  for (const Part& part : kParts) part.set(call, emParamDuracion, 0);
  EXPECT_TRUE(call.EsValido());
}

TEST(EsValido, CountsABlankPartyButNotOneOfNuls) {
  const FakeClock clock;
  clsLlamadaTRD call(clock);
  FillAll(call);
  call.Emisor(u" ");
  EXPECT_TRUE(call.EsValido());
  call.Emisor(Text(10, kNul));
  EXPECT_FALSE(call.EsValido());
}

}  // namespace
}  // namespace conmuta
