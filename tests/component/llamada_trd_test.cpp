// A call record through its virtual table.
#include <cmath>

#include "host_test.h"
#include "today.h"

namespace conmuta::test {
namespace {

using Getter = HRESULT (STDMETHODCALLTYPE Trd::*)(emParamTipoFecha, SHORT*);
using Setter = HRESULT (STDMETHODCALLTYPE Trd::*)(emParamTipoFecha, SHORT);

struct DatePart {
  const char* name;
  Getter get;
  Setter put;
};
const DatePart kParts[] = {
    {"Anio", &Trd::get_Anio, &Trd::put_Anio},
    {"Mes", &Trd::get_Mes, &Trd::put_Mes},
    {"Dia", &Trd::get_Dia, &Trd::put_Dia},
    {"Horas", &Trd::get_Horas, &Trd::put_Horas},
    {"Minutos", &Trd::get_Minutos, &Trd::put_Minutos},
    {"Segundos", &Trd::get_Segundos, &Trd::put_Segundos},
};

class LlamadaTrdTest : public HostTest {
 protected:
  void TearDown() override {
    call = {};
    HostTest::TearDown();
  }

  void SetMoment(emParamTipoFecha index, const short (&values)[6]) {
    for (int i = 0; i < 6; ++i) Do(call, kParts[i].put, index, values[i]);
  }

  ComPtr<Trd> call = NewCall();
};

TEST_F(LlamadaTrdTest, NewOneIsCleared) {
  for (const auto index : {emParamFecha, emParamDuracion, emParamRING}) {
    for (const DatePart& part : kParts) EXPECT_EQ(Read(call, part.get, index), 0) << part.name;
  }
  EXPECT_EQ(Read(call, &Trd::get_Fecha), -657434.0);
  EXPECT_EQ(Read(call, &Trd::get_Hora), 0.0);
  EXPECT_EQ(Read(call, &Trd::get_Duracion), 0);
  EXPECT_EQ(Read(call, &Trd::get_Ring), 0);
  EXPECT_EQ(Read(call, &Trd::get_TipoLlamada), emLlamadaIndefinida);
  EXPECT_EQ(Read(call, &Trd::get_Atributos), emSinAtributo);
  EXPECT_EQ(Read(call, &Trd::get_Telefono), u"");
  EXPECT_EQ(Read(call, &Trd::get_ExtensionTransferida), u"");
  EXPECT_EQ(Read(call, &Trd::get_Emisor), u"");
  EXPECT_EQ(Read(call, &Trd::get_Receptor), u"");
  EXPECT_EQ(Read(call, &Trd::get_CodigoCuenta), u"");
  EXPECT_EQ(Read(call, &Trd::get_EsValido), VARIANT_FALSE);
}

TEST_F(LlamadaTrdTest, StartAndDurationAreKeptApart) {
  SetMoment(emParamFecha, {2026, 11, 21, 10, 5, 30});
  SetMoment(emParamDuracion, {2025, 12, 31, 300, 59, 1});
  const int start[] = {2026, 11, 21, 10, 5, 30};
  const int duration[] = {2025, 12, 31, 300, 59, 1};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(Read(call, kParts[i].get, emParamFecha), start[i]) << kParts[i].name;
    EXPECT_EQ(Read(call, kParts[i].get, emParamDuracion), duration[i]) << kParts[i].name;
  }
  EXPECT_EQ(Read(call, &Trd::get_Duracion), 300 * 3600 + 59 * 60 + 1);
}

TEST_F(LlamadaTrdTest, OtherIndicesHoldNothing) {
  for (const int code : {0, 4, -1, static_cast<int>(INT32_MAX)}) {
    const auto index = static_cast<emParamTipoFecha>(code);
    for (const DatePart& part : kParts) {
      Do(call, part.put, index, short{5});
      EXPECT_EQ(Read(call, part.get, index), 0) << part.name << code;
    }
  }
  EXPECT_EQ(Read(call, &Trd::get_Ring), 0);
}

TEST_F(LlamadaTrdTest, DateThatIsMissingIsTodays) {
  WithToday([&](const SYSTEMTIME& today) {
    SetMoment(emParamFecha, {-1, 13, 32, 0, 0, 0});
    EXPECT_EQ(Read(call, &Trd::get_Anio, emParamFecha), today.wYear);
    EXPECT_EQ(Read(call, &Trd::get_Mes, emParamFecha), today.wMonth);
    EXPECT_EQ(Read(call, &Trd::get_Dia, emParamFecha), today.wDay);
  });
  SetMoment(emParamDuracion, {-1, 13, 32, 0, 0, 0});
  for (const DatePart& part : kParts) EXPECT_EQ(Read(call, part.get, emParamDuracion), 0);
}

TEST_F(LlamadaTrdTest, TimeIsClamped) {
  for (const auto index : {emParamFecha, emParamDuracion}) {
    SetMoment(index, {2026, 1, 1, -1, 60, -5});
    EXPECT_EQ(Read(call, &Trd::get_Horas, index), 0);
    EXPECT_EQ(Read(call, &Trd::get_Minutos, index), 0);
    EXPECT_EQ(Read(call, &Trd::get_Segundos, index), 0);
    SetMoment(index, {2026, 1, 1, 32767, 59, 59});
    EXPECT_EQ(Read(call, &Trd::get_Horas, index), 32767);
    EXPECT_EQ(Read(call, &Trd::get_Minutos, index), 59);
    EXPECT_EQ(Read(call, &Trd::get_Segundos, index), 59);
  }
}

TEST_F(LlamadaTrdTest, RingAddsUp) {
  Do(call, &Trd::put_Minutos, emParamRING, short{5});
  Do(call, &Trd::put_Segundos, emParamRING, short{30});
  EXPECT_EQ(Read(call, &Trd::get_Ring), 330);
  Do(call, &Trd::put_Horas, emParamRING, short{9});
  EXPECT_EQ(Read(call, &Trd::get_Ring), 330 + 9 * 3600);
  for (const DatePart& part : kParts) EXPECT_EQ(Read(call, part.get, emParamRING), 0) << part.name;
}

TEST_F(LlamadaTrdTest, RingOfTenHoursOverflows) {
  Do(call, &Trd::put_Ring, 7L);
  EXPECT_EQ(Try(call, &Trd::put_Horas, emParamRING, short{10}), kOverflowFailure);
  EXPECT_EQ(Read(call, &Trd::get_Ring), 7);
}

TEST_F(LlamadaTrdTest, RingBeyondItsRangeOverflows) {
  Do(call, &Trd::put_Ring, static_cast<long>(INT32_MAX));
  EXPECT_EQ(Try(call, &Trd::put_Segundos, emParamRING, short{1}), kOverflowFailure);
  EXPECT_EQ(Read(call, &Trd::get_Ring), INT32_MAX);
}

TEST_F(LlamadaTrdTest, NegativeRingIsZero) {
  Do(call, &Trd::put_Ring, 5L);
  Do(call, &Trd::put_Ring, -5L);
  EXPECT_EQ(Read(call, &Trd::get_Ring), 0);
}

TEST_F(LlamadaTrdTest, TypeThatIsReplacedIsWrittenBack) {
  struct Row {
    int written, stored;
  };
  for (const Row& row : {Row{0, 0}, Row{6, 6}, Row{7, 1}, Row{-1, 1}, Row{INT32_MIN, 1}}) {
    auto value = static_cast<emTiposLlamadas>(row.written);
    Do(call, &Trd::put_TipoLlamada, &value);
    EXPECT_EQ(value, row.stored) << row.written;
    EXPECT_EQ(Read(call, &Trd::get_TipoLlamada), row.stored) << row.written;
  }
}

TEST_F(LlamadaTrdTest, AttributeThatIsReplacedIsWrittenBack) {
  struct Row {
    int written, stored;
  };
  for (const Row& row : {Row{0, 0}, Row{3, 3}, Row{4, 0}, Row{-1, 0}}) {
    auto value = static_cast<emAtributosLlamadas>(row.written);
    Do(call, &Trd::put_Atributos, &value);
    EXPECT_EQ(value, row.stored) << row.written;
    EXPECT_EQ(Read(call, &Trd::get_Atributos), row.stored) << row.written;
  }
}

TEST_F(LlamadaTrdTest, TextsAreCutAndDropNuls) {
  struct Row {
    HRESULT (STDMETHODCALLTYPE Trd::*get)(BSTR*);
    HRESULT (STDMETHODCALLTYPE Trd::*put)(BSTR);
    std::size_t width;
  };
  for (const Row& row : {Row{&Trd::get_Telefono, &Trd::put_Telefono, 30},
                         Row{&Trd::get_ExtensionTransferida, &Trd::put_ExtensionTransferida, 10},
                         Row{&Trd::get_Emisor, &Trd::put_Emisor, 10},
                         Row{&Trd::get_Receptor, &Trd::put_Receptor, 10},
                         Row{&Trd::get_CodigoCuenta, &Trd::put_CodigoCuenta, 30}}) {
    SCOPED_TRACE(row.width);
    Do(call, row.put, Text(40, u'7'));
    EXPECT_EQ(Read(call, row.get), Text(row.width, u'7'));
    Do(call, row.put, TextView(u" ñ\0 1", 5));
    EXPECT_EQ(Read(call, row.get), u" ñ 1");
    EXPECT_EQ((call.get()->*row.put)(nullptr), S_OK);
    EXPECT_EQ(Read(call, row.get), u"");
  }
}

TEST_F(LlamadaTrdTest, DateAndTimeAreDays) {
  SetMoment(emParamFecha, {2026, 11, 21, 12, 0, 0});
  EXPECT_EQ(Read(call, &Trd::get_Fecha), 46347.0);
  EXPECT_EQ(Read(call, &Trd::get_Hora), 0.5);
  SetMoment(emParamFecha, {2026, 2, 31, 0, 30, 0});
  EXPECT_EQ(Read(call, &Trd::get_Fecha), 46084.0);  // 3 March
  EXPECT_EQ(Read(call, &Trd::get_Hora), 0.0);
  Do(call, &Trd::put_Horas, emParamFecha, short{25});
  EXPECT_NEAR(Read(call, &Trd::get_Hora), 25.5 / 24, 1e-9);
}

TEST_F(LlamadaTrdTest, YearOfTwoDigitsIsNearTheTurnOfTheCentury) {
  SetMoment(emParamFecha, {26, 11, 21, 0, 0, 0});
  EXPECT_EQ(Read(call, &Trd::get_Fecha), 46347.0);
  SetMoment(emParamFecha, {30, 1, 1, 0, 0, 0});
  EXPECT_EQ(Read(call, &Trd::get_Fecha), 10959.0);  // 1 January 1930
}

TEST_F(LlamadaTrdTest, YearBeyondTheCalendarIsAnInvalidArgument) {
  SetMoment(emParamFecha, {10000, 1, 1, 0, 0, 0});
  DATE date;
  FillWithRubbish(date);
  EXPECT_EQ(Try(call, &Trd::get_Fecha, &date), kInvalidArgumentFailure);
  EXPECT_EQ(date, 0.0);
}

TEST_F(LlamadaTrdTest, AfternoonHoursGainTwelve) {
  struct Row {
    short before, after;
  };
  for (const auto index : {emParamFecha, emParamDuracion}) {
    for (const Row& row : {Row{0, 0}, Row{1, 13}, Row{11, 23}, Row{12, 12}, Row{13, 13}}) {
      Do(call, &Trd::put_Horas, index, row.before);
      VARIANT result;
      FillWithRubbish(result);
      EXPECT_EQ(call->AjustarHoraVespertina12Hrs24Hrs(index, &result), S_OK);
      EXPECT_EQ(V_VT(&result), VT_EMPTY);
      EXPECT_EQ(Read(call, &Trd::get_Horas, index), row.after);
    }
  }
}

TEST_F(LlamadaTrdTest, DurationIsTheDifferenceOfTwoMoments) {
  SetMoment(emParamFecha, {2026, 11, 21, 10, 5, 30});
  SetMoment(emParamDuracion, {2026, 11, 21, 9, 58, 10});
  Do(call, &Trd::AjustaDuracionPorRestaFechas);
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamDuracion), 0);
  EXPECT_EQ(Read(call, &Trd::get_Minutos, emParamDuracion), 7);
  EXPECT_EQ(Read(call, &Trd::get_Segundos, emParamDuracion), 20);
  EXPECT_EQ(Read(call, &Trd::get_Anio, emParamDuracion), 0);
  EXPECT_EQ(Read(call, &Trd::get_Duracion), 440);
}

TEST_F(LlamadaTrdTest, DifferenceMayBeNegative) {
  SetMoment(emParamFecha, {2026, 11, 21, 9, 58, 10});
  SetMoment(emParamDuracion, {2026, 11, 21, 11, 5, 30});
  Do(call, &Trd::AjustaDuracionPorRestaFechas);
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamDuracion), -1);
  EXPECT_EQ(Read(call, &Trd::get_Minutos, emParamDuracion), -7);
  EXPECT_EQ(Read(call, &Trd::get_Segundos, emParamDuracion), -20);
  EXPECT_EQ(Read(call, &Trd::get_Duracion), -4040);
}

TEST_F(LlamadaTrdTest, DifferenceNeedsEveryPart) {
  SetMoment(emParamFecha, {2026, 11, 21, 10, 0, 30});
  SetMoment(emParamDuracion, {2026, 11, 21, 9, 58, 10});
  Do(call, &Trd::AjustaDuracionPorRestaFechas);
  EXPECT_EQ(Read(call, &Trd::get_Horas, emParamDuracion), 9);
  EXPECT_EQ(Read(call, &Trd::get_Anio, emParamDuracion), 2026);
}

TEST_F(LlamadaTrdTest, DifferenceBeyondItsRangeOverflows) {
  SetMoment(emParamFecha, {2026, 11, 21, 10, 5, 30});
  SetMoment(emParamDuracion, {2020, 11, 21, 9, 58, 10});
  EXPECT_EQ(Try(call, &Trd::AjustaDuracionPorRestaFechas), kOverflowFailure);
}

TEST_F(LlamadaTrdTest, IsValidWithTypePartiesAndDate) {
  SetMoment(emParamFecha, {2026, 11, 21, 0, 0, 0});
  auto type = emLlamadaSaliente;
  Do(call, &Trd::put_TipoLlamada, &type);
  Do(call, &Trd::put_Emisor, u"205");
  EXPECT_EQ(Read(call, &Trd::get_EsValido), VARIANT_FALSE);
  Do(call, &Trd::put_Receptor, u"T01");
  EXPECT_EQ(Read(call, &Trd::get_EsValido), VARIANT_TRUE);
  type = emLlamadaIndefinida;
  Do(call, &Trd::put_TipoLlamada, &type);
  EXPECT_EQ(Read(call, &Trd::get_EsValido), VARIANT_FALSE);
}

TEST_F(LlamadaTrdTest, IsNotValidWithoutADate) {
  auto type = emLlamadaSaliente;
  Do(call, &Trd::put_TipoLlamada, &type);
  Do(call, &Trd::put_Emisor, u"205");
  Do(call, &Trd::put_Receptor, u"T01");
  EXPECT_EQ(Read(call, &Trd::get_EsValido), VARIANT_FALSE);
}

TEST_F(LlamadaTrdTest, CopyIsExactAndApart) {
  SetMoment(emParamFecha, {2026, 11, 21, 9, 58, 10});
  SetMoment(emParamDuracion, {2026, 11, 21, 11, 5, 30});
  Do(call, &Trd::AjustaDuracionPorRestaFechas);  // negative parts: no setter would take them
  auto type = emLlamadaEntrante;
  auto attribute = emAtributoFinTransferida;
  Do(call, &Trd::put_TipoLlamada, &type);
  Do(call, &Trd::put_Atributos, &attribute);
  Do(call, &Trd::put_Ring, 12L);
  Do(call, &Trd::put_Telefono, u"5551234");
  Do(call, &Trd::put_ExtensionTransferida, u"206");
  Do(call, &Trd::put_Emisor, u"T01");
  Do(call, &Trd::put_Receptor, u"205");
  Do(call, &Trd::put_CodigoCuenta, u"77");

  const auto copy = NewCall();
  Do(copy, &Trd::CopiaLlamada, call.get());
  Do(call, &Trd::Inicializa);
  EXPECT_EQ(Read(copy, &Trd::get_Anio, emParamFecha), 2026);
  EXPECT_EQ(Read(copy, &Trd::get_Duracion), -4040);
  EXPECT_EQ(Read(copy, &Trd::get_Ring), 12);
  EXPECT_EQ(Read(copy, &Trd::get_TipoLlamada), emLlamadaEntrante);
  EXPECT_EQ(Read(copy, &Trd::get_Atributos), emAtributoFinTransferida);
  EXPECT_EQ(Read(copy, &Trd::get_Telefono), u"5551234");
  EXPECT_EQ(Read(copy, &Trd::get_ExtensionTransferida), u"206");
  EXPECT_EQ(Read(copy, &Trd::get_Emisor), u"T01");
  EXPECT_EQ(Read(copy, &Trd::get_Receptor), u"205");
  EXPECT_EQ(Read(copy, &Trd::get_CodigoCuenta), u"77");
  EXPECT_EQ(Read(copy, &Trd::get_EsValido), VARIANT_TRUE);
  EXPECT_EQ(Read(call, &Trd::get_EsValido), VARIANT_FALSE);
}

TEST_F(LlamadaTrdTest, CopyOfItselfChangesNothing) {
  Do(call, &Trd::put_Emisor, u"205");
  Do(call, &Trd::CopiaLlamada, call.get());
  EXPECT_EQ(Read(call, &Trd::get_Emisor), u"205");
}

TEST_F(LlamadaTrdTest, CopyNeedsACall) {
  EXPECT_EQ(Try(call, &Trd::CopiaLlamada, nullptr), kObjectNotSetFailure);
}

}  // namespace
}  // namespace conmuta::test
