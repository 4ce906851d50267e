// Lines as vendors print them in their manuals, with what they must yield.
#include <gtest/gtest.h>

#include <vector>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::Ascii;
using test::CallValues;
using test::ConfigBuilder;
using test::Translation;
using test::ValuesOf;

// What matters of a call: everything but its date.
struct VendorLine {
  Text line;
  emTiposLlamadas type;
  emAtributosLlamadas attribute;
  Text caller, callee, phone, transferred_to, account;
  int hours, minutes;  // of the start
  int duration;
  int ring;
};

// Panasonic KX, 80 columns: <I> in the number's columns marks an incoming call.
ConfigBuilder Panasonic() {
  ConfigBuilder layout;
  layout.Item(emParamFechaMes, 1, 2).Item(emParamFechaDia, 4, 2).Item(emParamFechaAnio, 7, 2);
  layout.Item(emParamFechaHoras, 10, 2).Item(emParamFechaMinutos, 13, 2);
  layout.Constant(emDatoCteIdentificadorHorarioMatutinoFecha, 15, u"AM");
  layout.Item(emParamRingMinutos, 53, 1).Item(emParamRingSegundos, 55, 2);
  layout.Item(emParamDuracionHoras, 58, 2).Item(emParamDuracionMinutos, 61, 2);
  layout.Item(emParamDuracionSegundos, 64, 2).Item(emParamCodigoCuenta, 67, 10);
  layout.Constant(emDatoCteIdentEntrante, 27, u"<I>");
  layout.TextItem(emParamTroncalEntrante, 24, 2).Item(emParamExtensionEntrante, 18, 5);
  layout.TextItem(emParamTroncalSaliente, 24, 2).Item(emParamExtensionSaliente, 18, 5);
  layout.Item(emParamTelefonoEntrante, 27, 25).Item(emParamTelefonoSaliente, 27, 25);
  layout.Constant(emDatoCteIdentEntranteFinTransferida, 78, u"TR");
  layout.TextItem(emParamTroncalEntranteFinTransferida, 24, 2);
  layout.Item(emParamExtensionEntranteFinTransferida, 18, 5);
  layout.Item(emParamTelefonoEntranteFinTransferida, 27, 25);
  return layout;
}

// Samsung: IT begins an incoming transfer, OT an outgoing one, T ends either.
ConfigBuilder Samsung() {
  ConfigBuilder layout;
  layout.Case(emCasoSamsungNX_820);
  layout.Item(emParamFechaMes, 20, 2).Item(emParamFechaDia, 23, 2);
  layout.Item(emParamFechaHoras, 26, 2).Item(emParamFechaMinutos, 29, 2);
  layout.Item(emParamFechaSegundos, 32, 2).Item(emParamDuracionHoras, 35, 2);
  layout.Item(emParamDuracionMinutos, 38, 2).Item(emParamDuracionSegundos, 41, 2);
  layout.Item(emParamCodigoCuenta, 66, 12);
  layout.Constant(emDatoCteIdentEntrante, 44, u"I").Constant(emDatoCteIdentEntranteOR, 44, u"T");
  layout.Constant(emDatoCteIdentEntranteInicioTransferida, 44, u"IT");
  layout.Constant(emDatoCteIdentEntranteFinTransferida, 44, u"T");
  layout.Constant(emDatoCteIdentSaliente, 44, u"O");
  layout.Constant(emDatoCteIdentSalienteInicioTransferida, 44, u"OT");
  layout.Item(emParamTroncalEntranteInicioTransferida, 15, 4);
  layout.Item(emParamExtensionEntranteInicioTransferida, 1, 4);
  layout.Item(emParamTelefonoEntranteInicioTransferida, 79, 16);
  layout.Item(emParamTroncalEntranteFinTransferida, 15, 4);
  layout.Item(emParamExtensionEntranteFinTransferida, 1, 4);
  layout.Item(emParamTelefonoEntranteFinTransferida, 79, 16);
  for (const emParamDato kind : {emParamTroncalSaliente, emParamTroncalSalienteInicioTransferida,
                                 emParamTroncalSalienteFinTransferida}) {
    layout.Item(kind, 15, 4);
  }
  for (const emParamDato kind :
       {emParamExtensionSaliente, emParamExtensionSalienteInicioTransferida,
        emParamExtensionSalienteFinTransferida}) {
    layout.Item(kind, 1, 4);
  }
  layout.Item(emParamTelefonoSaliente, 47, 18);
  layout.Item(emParamTelefonoSalienteInicioTransferida, 47, 18);
  return layout;
}

// Toshiba Strata CTX: a trunk's number begins with T.
ConfigBuilder Toshiba() {
  ConfigBuilder layout;
  layout.Item(emParamFechaMes, 30, 2).Item(emParamFechaDia, 33, 2);
  layout.Item(emParamFechaHoras, 36, 2).Item(emParamFechaMinutos, 39, 2);
  layout.Item(emParamFechaSegundos, 42, 2).Item(emParamDuracionHoras, 45, 2);
  layout.Item(emParamDuracionMinutos, 48, 2).Item(emParamDuracionSegundos, 51, 2);
  layout.Constant(emDatoCteIdentSaliente, 22, u"T").Constant(emDatoCteIdentEntrante, 14, u"T");
  layout.TextItem(emParamExtensionSaliente, 14, 7).TextItem(emParamTroncalSaliente, 22, 7);
  layout.Item(emParamTelefonoSaliente, 56, 32);
  return layout;
}

void ExpectCalls(ConfigBuilder layout, const std::vector<VendorLine>& rows) {
  Translation desk(layout.Build());
  for (const VendorLine& row : rows) {
    const clsLlamadaTRD& call = desk.Translate(row.line);
    SCOPED_TRACE(Ascii(row.line));
    EXPECT_EQ(call.TipoLlamada(), row.type);
    EXPECT_EQ(call.Atributos(), row.attribute);
    EXPECT_EQ(Text(call.Emisor()), row.caller);
    EXPECT_EQ(Text(call.Receptor()), row.callee);
    EXPECT_EQ(Text(call.Telefono()), row.phone);
    EXPECT_EQ(Text(call.ExtensionTransferida()), row.transferred_to);
    EXPECT_EQ(Text(call.CodigoCuenta()), row.account);
    EXPECT_EQ(call.Horas(emParamFecha), row.hours);
    EXPECT_EQ(call.Minutos(emParamFecha), row.minutes);
    EXPECT_EQ(call.Duracion(), row.duration);
    EXPECT_EQ(call.Ring(), row.ring);
    EXPECT_EQ(call.EsValido(), !row.caller.empty() && !row.callee.empty());
  }
}

TEST(VendorLines, Panasonic) {
  ExpectCalls(
      Panasonic(),
      {{u"01/02/02 10:03AM 1200  01 <I>12345678901234567890   5'15 00:00'00            NA",
        emLlamadaEntrante, emSinAtributo, u"01", u"1200", u"12345678901234567890", u"", u"", 10, 3,
        0, 315},
       {u"01/02/02 10:07AM 1200  01 <I>                       0'05 00:01'05 9876543210",
        emLlamadaEntrante, emSinAtributo, u"01", u"1200", u"", u"", u"9876543210", 10, 7, 65, 5},
       {u"01/02/02 10:30AM *123  01 1234567890123456               00:01'05 9876543210",
        emLlamadaSaliente, emSinAtributo, u"123", u"01", u"1234567890123456", u"", u"9876543210",
        10, 30, 65, 0},
       {u"01/02/02 01:07PM 1234  01 <I>ABC COMPANY12345678    0'05 00:01'05 9876543210",
        emLlamadaEntrante, emSinAtributo, u"01", u"1234", u"12345678", u"", u"9876543210", 13, 7,
        65, 5},
       {u"01/02/02 01:07PM 1234  01 123456XX                       00:12'05 98765",
        emLlamadaSaliente, emSinAtributo, u"1234", u"01", u"123456", u"", u"98765", 13, 7, 725, 0},
       {u"01/02/02 01:07PM 1234  01 123..............              00:01'05", emLlamadaSaliente,
        emSinAtributo, u"1234", u"01", u"123", u"", u"", 13, 7, 65, 0},
       {u"06/24/97 10:08AM 15    1  <I>                            00:10'01 431211     TR",
        emLlamadaEntrante, emAtributoFinTransferida, u"1 ", u"15", u"", u"", u"431211", 10, 8, 601,
        0},
       {u"06/24/97 10:09AM 18    1  10222P1-202-346-7890           00:09'18 001        FW",
        emLlamadaSaliente, emSinAtributo, u"18", u"1 ", u"1022212023467890", u"", u"001", 10, 9,
        558, 0}});
}

// Lines about the extension itself have blanks for a trunk, which counts as one.
TEST(VendorLines, PanasonicWithoutATrunk) {
  Translation desk(Panasonic().Build());
  for (const TextView line :
       {u"01/02/02 01:07PM 1234     LOG IN", u"01/02/02 03:35PM 1234     LOG OUT",
        u"01/02/02 03:50PM 1234     Check in", u"01/02/02 04:00PM 1234     Timed Reminder/Start"}) {
    const clsLlamadaTRD& call = desk.Translate(line);
    EXPECT_EQ(Text(call.Emisor()), u"1234");
    EXPECT_EQ(Text(call.Receptor()), u"  ");
    EXPECT_EQ(Text(call.Telefono()), u"");
  }
  test::DefineItem(*desk.config, emParamTroncalSaliente, 24, 2);
  EXPECT_FALSE(desk.Translate(u"01/02/02 01:07PM 1234     LOG IN").EsValido());
}

TEST(VendorLines, Samsung) {
  constexpr auto kNone = emSinAtributo;
  constexpr auto kStart = emAtributoIniTransferida;
  constexpr auto kEnd = emAtributoFinTransferida;
  ExpectCalls(Samsung(),
              {{u"201           701  01/02 17:15:13 00:00:28 IT", emLlamadaEntrante, kStart, u"701",
                u"201", u"", u"", u"", 17, 15, 28, 0},
               {u"205           701  01/02 17:15:41 00:00:02 T                                  "
                u"13054264100      SAMSUNG TELECOM",
                emLlamadaEntrante, kEnd, u"701", u"205", u"", u"201", u"", 17, 15, 2, 0},
               {u"217           702  01/02 17:24:49 00:00:25 IT                                 "
                u"13055557890      CURTIS SMITH",
                emLlamadaEntrante, kStart, u"702", u"217", u"13055557890", u"", u"", 17, 24, 25, 0},
               {u"202           702  01/02 17:25:14 00:00:03 T                                  "
                u"13055552354      SUSAN HOLLINS",
                emLlamadaEntrante, kEnd, u"702", u"202", u"13055557890", u"217", u"", 17, 25, 3, 0},
               {u"202           702  01/02 17:25:56 00:00:00 O  4264100", emLlamadaSaliente, kNone,
                u"202", u"702", u"4264100", u"", u"", 17, 25, 0, 0},
               {u"203           702  01/02 17:29:54 00:01:27 OT 5556420", emLlamadaSaliente, kStart,
                u"203", u"702", u"5556420", u"", u"", 17, 29, 87, 0},
               // The call began as an outgoing one, whoever ends it.
               {u"205           702  01/02 17:31:06 00:03:00 TT                                 "
                u"13055556420      PIZZA DELIVERY",
                emLlamadaSaliente, kEnd, u"205", u"702", u"5556420", u"203", u"", 17, 31, 180, 0},
               {u"209           702  01/02 17:33:24 00:02:18 T                                  "
                u"13055556420      PIZZA DELIVERY",
                emLlamadaEntrante, kEnd, u"702", u"209", u"13055556420", u"", u"", 17, 33, 138, 0},
               // An abandoned call: neither incoming nor outgoing by its flag, no extension.
               {u"              701  01/02 17:41:45 00:00:30 A                                  "
                u"13055553426      TERRY PRUITT",
                emLlamadaSaliente, kNone, u"", u"701", u"", u"", u"", 17, 41, 30, 0}});
}

TEST(VendorLines, Toshiba) {
  ExpectCalls(Toshiba(), {{u"N 001 00     DN1234  T000001 06/28 12:10:50 00:10:30.0 12134567890",
                           emLlamadaSaliente, emSinAtributo, u"DN1234 ", u"T000001", u"12134567890",
                           u"", u"", 12, 10, 630, 0}});
}

TEST(VendorLines, Meridian) {
  constexpr auto kNone = emSinAtributo;
  constexpr auto kStart = emAtributoIniTransferida;
  constexpr auto kPart = emAtributoEnTransferencia;
  constexpr auto kEnd = emAtributoFinTransferida;
  ExpectCalls(test::MeridianColumns(),
              {{u"N 027 00 DN7425  T052000 04/04 14:03 00:01:32 5551212", emLlamadaSaliente, kNone,
                u"DN7425 ", u"T052000", u"5551212", u"", u"", 14, 3, 92, 0},
               {u"N 028 00 T047000 DN2221  04/04 14:22 00:12:04", emLlamadaEntrante, kNone,
                u"T047000", u"DN2221 ", u"", u"", u"", 14, 22, 724, 0},
               {u"S 029 00 DN7447  T038000 04/04 15:02          8761344", emLlamadaSaliente, kStart,
                u"DN7447 ", u"T038000", u"8761344", u"", u"", 15, 2, 0, 0},
               {u"X 030 00 T038000 DN2221  04/04 15:03", emLlamadaEntrante, kPart, u"T038000",
                u"DN2221 ", u"", u"", u"", 15, 3, 0, 0},
               {u"E 031 00 T038000 DN2221  04/04 15:07", emLlamadaEntrante, kEnd, u"T038000",
                u"DN2221 ", u"", u"DN7447 ", u"", 15, 7, 0, 0},
               {u"S 000 01 DN6545  T038000 04/04 12:23          9369552", emLlamadaSaliente, kStart,
                u"DN6545 ", u"T038000", u"9369552", u"", u"", 12, 23, 0, 0},
               // Another transfer on the trunk before the first has ended: it takes its place.
               {u"S 029 00 T038000 DN7447  04/04 15:02", emLlamadaEntrante, kStart, u"T038000",
                u"DN7447 ", u"", u"", u"", 15, 2, 0, 0},
               {u"E 030 00 T038000 DN2223  04/04 15:07", emLlamadaEntrante, kEnd, u"T038000",
                u"DN2223 ", u"", u"DN7447 ", u"", 15, 7, 0, 0},
               // Two at once.
               {u"S 025 00 T010016 6101    05/09 07:47 00:00:20 5550172", emLlamadaEntrante, kStart,
                u"T010016", u"6101   ", u"5550172", u"", u"", 7, 47, 20, 0},
               {u"N 027 00 2343    T010011 05/09 07:46 00:01:12 15550100123", emLlamadaSaliente,
                kNone, u"2343   ", u"T010011", u"15550100123", u"", u"", 7, 46, 72, 0},
               {u"E 028 00 T010016 2463    05/09 07:48 00:00:52 5550172", emLlamadaEntrante, kEnd,
                u"T010016", u"2463   ", u"5550172", u"6101   ", u"", 7, 48, 52, 0}});
}

TEST(VendorLines, Norstar) {
  Translation desk(test::NorstarColumns().Build());
  std::vector<CallValues> delivered;
  for (const TextView line : {u"-------- 04/04/99 11:39:43 LINE = 0003 STN = 7425",
                              u"00:00:00   OUTGOING CALL",
                              u"           DIGITS DIALED    5551212",
                              u"00:00:37   ACCOUNT CODE     87",
                              u"00:12:59   CALL RELEASED",
                              u"",
                              u"-------- 04/04/99 11:12:01 LINE = 0013 STN = 7465",
                              u"           CALLING NUMBER   /12345678901",
                              u"           NAME             UNKNOWN",
                              u"           BC = SPEECH",
                              u"00:00:00   INCOMING CALL    RINGING 0:32",
                              u"00:00:39   HOLD",
                              u"00:01:12   UNHOLD",
                              u"00:02:47   CALL RELEASED",
                              u"",
                              u"-------- 12/03/99 14:36:00 LINE = 0035",
                              u"           CALLING NUMBER   7355303",
                              u"           VOIP CALL",
                              u"00:00:00   NO ANSWER        RINGING 0:02",
                              u"",
                              u"-------- 04/11/97 09:41:11 LINE = 0003 STN = 7344",
                              u"00:00:00   INCOMING CALL    RINGING 0:06",
                              u"00:00:45   TRANSFERRED",
                              u"",
                              u"-------- 04/11/97 09:41:56 LINE = 0003 STN = 7440",
                              u"00:00:00   FROM TRANSFER",
                              u"00:02:18   CALL RELEASED"}) {
    if (desk.Translate(line).EsValido()) delivered.push_back(ValuesOf(desk.call()));
  }
  const auto call = [](std::array<int, 6> start, int minutes, int seconds, emTiposLlamadas type,
                       emAtributosLlamadas attribute, Text caller, Text callee, Text phone) {
    CallValues values;
    values.start = start;
    values.duration = {0, 0, 0, 0, minutes, seconds};
    values.type = type;
    values.attribute = attribute;
    values.caller = caller;
    values.callee = callee;
    values.phone = phone;
    return values;
  };
  const std::vector<CallValues> expected = {
      call({2026, 4, 4, 11, 39, 43}, 12, 59, emLlamadaSaliente, emSinAtributo, u"7425", u"0003",
           u"5551212"),
      call({2026, 4, 4, 11, 12, 1}, 2, 47, emLlamadaEntrante, emSinAtributo, u"0013", u"7465", u""),
      call({2026, 4, 11, 9, 41, 11}, 0, 45, emLlamadaEntrante, emAtributoIniTransferida, u"0003",
           u"7344", u""),
      call({2026, 4, 11, 9, 41, 11}, 2, 18, emLlamadaEntrante, emAtributoFinTransferida, u"0003",
           u"7440", u"")};
  EXPECT_EQ(delivered, expected);
}

// Every line through every layout: nothing comes out but calls and the errors that hosts know.
TEST(VendorLines, FlowThroughOtherLayoutsWithoutHarm) {
  const TextView lines[] = {
      u"01/02/02 10:03AM 1200  01 <I>12345678901234567890   5'15 00:00'00            NA",
      u"01/02/02 08:33AM 1234     In the office",
      u"201           701  01/02 17:15:13 00:00:28 IT",
      u"205           702  01/02 17:31:06 00:03:00 TT                                 "
      u"13055556420      PIZZA DELIVERY",
      u"N 001 00     DN1234  T000001 06/28 12:10:50 00:10:30.0 12134567890",
      u"001 MSS  12:20 00:00;08 00:05 DISA",
      u"001*DISA 12:22 00:02;01",
      u"01 DISA 08:17 00:00;25",
      u"S 029 00 DN7447  T038000 04/04 15:02          8761344",
      u"E 031 00 T038000 DN2221  04/04 15:07",
      u"-------- 04/04/99 11:39:43 LINE = 0003 STN = 7425",
      u"00:00:00   INCOMING CALL    RINGING 0:32",
      u"           DIGITS DIALED    5551212",
      u"00:00:45   TRANSFERRED",
      u"00:00:00   FROM TRANSFER",
      u"00:02:18   CALL RELEASED"};
  for (const auto layout : {Panasonic, Samsung, Toshiba, test::MeridianColumns,
                            test::NorstarColumns, test::FixedColumns}) {
    for (int code = emCasoEstandar; code <= emCasoRestaFechasDuracion; ++code) {
      Translation desk(layout().Case(static_cast<emCasos>(code)).Build());
      for (int round = 0; round < 3; ++round) {
        for (const TextView line : lines) {
          try {
            const clsLlamadaTRD& call = desk.Translate(line);
            EXPECT_TRUE(!call.EsValido() || call.Anio(emParamFecha) >= 2026) << Ascii(line);
          } catch (const OverflowError&) {
          } catch (const InvalidArgumentError&) {
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace conmuta
