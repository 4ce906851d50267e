// Meridian records: a letter tells what each is, the trunk which call it belongs to.
#include <gtest/gtest.h>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::CallValues;
using test::IsCleared;
using test::MeridianColumns;
using test::Translation;
using test::ValuesOf;

// Parties are 7 wide, as the columns are.
constexpr TextView kTrunk = u"T038000";

class Meridian : public testing::Test {
 protected:
  Meridian() : desk_(MeridianColumns().Build()) {}

  static Text Line(char16_t letter, TextView origin, TextView terminal, TextView digits = u"",
                   TextView duration = u"00:00:20") {
    Text line(1, letter);
    line += u" 029 00 ";
    line += origin;
    line += u" ";
    line += terminal;
    line += u" 04/05 15:02 ";
    line += duration;
    line += u" ";
    return line += digits;
  }
  static Text Outgoing(char16_t letter, TextView extension, TextView digits = u"") {
    return Line(letter, extension, kTrunk, digits);
  }
  static Text Incoming(char16_t letter, TextView extension, TextView digits = u"") {
    return Line(letter, kTrunk, extension, digits);
  }

  CallValues Translate(TextView line) { return ValuesOf(desk_.Translate(line)); }
  int SlotOf(TextView trunk) { return desk_.translator.BuscaLlamadaTroncalLista(trunk); }

  Translation desk_;
};

TEST_F(Meridian, NormalCallIsDeliveredAsRead) {
  CallValues expected;
  expected.start = {2026, 4, 4, 14, 3, 0};
  expected.duration = {0, 0, 0, 0, 1, 32};
  expected.type = emLlamadaSaliente;
  expected.phone = u"5551212";
  expected.caller = u"DN7425 ";
  expected.callee = u"T052000";
  EXPECT_EQ(Translate(u"N 027 00 DN7425  T052000 04/04 14:03 00:01:32 5551212"), expected);
  EXPECT_TRUE(desk_.call().EsValido());
  EXPECT_EQ(SlotOf(u"T052000"), 0);
}

TEST_F(Meridian, AccountCodeRecordIsKeptAndNeverDelivered) {
  EXPECT_TRUE(IsCleared(desk_.Translate(Outgoing(u'A', u"DN7447 ", u"4321"))));
  EXPECT_EQ(SlotOf(kTrunk), 1);
}

TEST_F(Meridian, NormalCallTakesTheAccountCodeOfItsTrunk) {
  Translate(Outgoing(u'A', u"DN7447 ", u"4321"));
  const CallValues call = Translate(Outgoing(u'N', u"DN7447 ", u"8761344"));
  EXPECT_EQ(call.account, u"4321");
  EXPECT_EQ(call.phone, u"8761344");
  EXPECT_EQ(call.attribute, emSinAtributo);
  EXPECT_EQ(call.transferred_to, u"");
  EXPECT_TRUE(desk_.call().EsValido());
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

TEST_F(Meridian, NormalCallWithoutAccountRecordHasNoAccountCode) {
  EXPECT_EQ(Translate(Outgoing(u'N', u"DN7447 ", u"8761344")).account, u"");
  Translate(Line(u'A', u"DN7447 ", u"T000001", u"4321"));
  EXPECT_EQ(Translate(Outgoing(u'N', u"DN7447 ", u"8761344")).account, u"");
  EXPECT_EQ(SlotOf(u"T000001"), 1) << "another trunk's code stays";
}

TEST_F(Meridian, AccountCodeServesOneCall) {
  Translate(Outgoing(u'A', u"DN7447 ", u"4321"));
  EXPECT_EQ(Translate(Outgoing(u'N', u"DN7447 ")).account, u"4321");
  EXPECT_EQ(Translate(Outgoing(u'N', u"DN7447 ")).account, u"");
  Translate(Outgoing(u'A', u"DN7447 ", u"8765"));
  EXPECT_EQ(SlotOf(kTrunk), 1) << "the slot is used again";
  EXPECT_EQ(Translate(Outgoing(u'N', u"DN7447 ")).account, u"8765");
}

TEST_F(Meridian, LaterAccountCodeOfATrunkReplacesTheEarlierOne) {
  Translate(Outgoing(u'A', u"DN7447 ", u"1"));
  Translate(Outgoing(u'A', u"DN7448 ", u"2"));
  EXPECT_EQ(Translate(Outgoing(u'N', u"DN7447 ")).account, u"2");
  EXPECT_EQ(Translate(Outgoing(u'N', u"DN7447 ")).account, u"");
}

// An account-code record is found by its callee, which for an incoming one is the extension.
TEST_F(Meridian, AccountCodeOfAnIncomingCallIsKeptByItsExtension) {
  Translate(Incoming(u'A', u"DN72215", u"4321"));
  EXPECT_EQ(SlotOf(kTrunk), 0);
  EXPECT_EQ(SlotOf(u"DN72215"), 1);
  EXPECT_EQ(Translate(Incoming(u'N', u"DN72215")).account, u"");
}

TEST_F(Meridian, NormalCallFreesAnAbandonedTransferOfItsTrunk) {
  Translate(Outgoing(u'S', u"DN7447 ", u"8761344"));
  const CallValues call = Translate(Incoming(u'N', u"DN2221 "));
  EXPECT_EQ(call.attribute, emSinAtributo);
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

TEST_F(Meridian, TransferStartIsDeliveredAndKept) {
  const CallValues call = Translate(Outgoing(u'S', u"DN7447 ", u"8761344"));
  EXPECT_EQ(call.attribute, emAtributoIniTransferida);
  EXPECT_EQ(call.phone, u"8761344");
  EXPECT_EQ(call.account, u"");
  EXPECT_TRUE(desk_.call().EsValido());
  EXPECT_EQ(SlotOf(kTrunk), 1);
}

TEST_F(Meridian, TransferEndTakesTheExtensionOfItsStartAndFreesTheSlot) {
  Translate(Outgoing(u'S', u"DN7447 ", u"8761344"));
  const CallValues call = Translate(Incoming(u'E', u"DN2221 "));
  EXPECT_EQ(call.attribute, emAtributoFinTransferida);
  EXPECT_EQ(call.type, emLlamadaEntrante);
  EXPECT_EQ(call.transferred_to, u"DN7447 ");
  EXPECT_EQ(call.caller, kTrunk);
  EXPECT_EQ(call.callee, u"DN2221 ");
  EXPECT_EQ(call.phone, u"") << "the start's number is not taken";
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

TEST_F(Meridian, TransferEndOfAnIncomingStartTakesItsCallee) {
  Translate(Incoming(u'S', u"DN7447 "));
  EXPECT_EQ(Translate(Incoming(u'E', u"DN2223 ")).transferred_to, u"DN7447 ");
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

// Whatever is kept but not incoming counts by its caller: here an account code alone.
TEST_F(Meridian, TransferEndAfterAnAccountCodeOnlyTakesItsCaller) {
  Translate(Outgoing(u'A', u"DN7447 ", u"4321"));
  const CallValues call = Translate(Incoming(u'E', u"DN2223 "));
  EXPECT_EQ(call.account, u"4321");
  EXPECT_EQ(call.transferred_to, u"DN7447 ");
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

TEST_F(Meridian, TransferEndAfterACallBetweenTrunksTakesItsCaller) {
  Translate(Outgoing(u'S', u"DN7447 "));
  test::DefineConstant(*desk_.config, emDatoCteIdentEntrante, 11, u"0");
  test::DefineConstant(*desk_.config, emDatoCteIdentSaliente, 11, u"?");
  test::DefineConstant(*desk_.config, emDatoCteIdentInterTroncal, 10, u"T");
  test::DefineItem(*desk_.config, emParamTroncal1InterTroncal, 10, 7, emValorCadena);
  test::DefineItem(*desk_.config, emParamTroncal2InterTroncal, 18, 7, emValorCadena);
  const CallValues pair = Translate(Line(u'S', u"T900001", u"T900002"));
  EXPECT_EQ(pair.type, emLlamadaInterTroncal);
  EXPECT_EQ(SlotOf(u"T900001"), 2);
  EXPECT_EQ(SlotOf(u"T900002"), 2);
  test::DefineConstant(*desk_.config, emDatoCteIdentEntrante, 10, u"T");
  EXPECT_EQ(Translate(Line(u'E', u"T900002", u"DN2223 ")).transferred_to, u"T900001");
  EXPECT_EQ(SlotOf(u"T900001"), 0);
}

TEST_F(Meridian, TransferEndWithoutStartHasNoExtension) {
  const CallValues call = Translate(Incoming(u'E', u"DN2223 "));
  EXPECT_EQ(call.attribute, emAtributoFinTransferida);
  EXPECT_EQ(call.transferred_to, u"");
  EXPECT_EQ(call.account, u"");
  EXPECT_TRUE(desk_.call().EsValido());
}

TEST_F(Meridian, TransferPartTakesTheAccountCodeAndKeepsTheSlot) {
  Translate(Outgoing(u'A', u"DN7447 ", u"4321"));
  Translate(Outgoing(u'S', u"DN7447 "));
  for (int part = 0; part < 3; ++part) {
    const CallValues call = Translate(Incoming(u'X', u"DN2221 "));
    EXPECT_EQ(call.attribute, emAtributoEnTransferencia);
    EXPECT_EQ(call.account, u"4321");
    EXPECT_EQ(call.transferred_to, u"");
    EXPECT_EQ(SlotOf(kTrunk), 1);
  }
}

TEST_F(Meridian, TransferPartWithoutStartIsAPlainCall) {
  const CallValues call = Translate(Incoming(u'X', u"DN2221 "));
  EXPECT_EQ(call.attribute, emSinAtributo);
  EXPECT_TRUE(desk_.call().EsValido());
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

TEST_F(Meridian, TransferStartTakesThePlaceOfItsAccountCode) {
  Translate(Outgoing(u'A', u"DN7447 ", u"4321"));
  const CallValues start = Translate(Outgoing(u'S', u"DN7447 ", u"8761344"));
  EXPECT_EQ(start.account, u"4321");
  EXPECT_EQ(start.attribute, emAtributoIniTransferida);
  EXPECT_EQ(SlotOf(kTrunk), 1);
  const CallValues end = Translate(Incoming(u'E', u"DN2221 "));
  EXPECT_EQ(end.account, u"4321");
  EXPECT_EQ(end.transferred_to, u"DN7447 ");
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

TEST_F(Meridian, SecondTransferStartTakesThePlaceOfTheFirst) {
  Translate(Outgoing(u'S', u"DN7447 "));
  Translate(Incoming(u'S', u"DN2221 "));
  EXPECT_EQ(Translate(Incoming(u'E', u"DN2223 ")).transferred_to, u"DN2221 ");
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

// The slot that was found is overwritten, where parking anew would look for another one.
TEST_F(Meridian, SecondTransferStartKeepsTheSlotOfTheFirst) {
  Translate(Line(u'S', u"DN0001 ", u"T000001"));
  Translate(Outgoing(u'S', u"DN7447 "));
  Translate(Line(u'N', u"DN0001 ", u"T000001"));  // frees the first slot
  ASSERT_EQ(SlotOf(kTrunk), 2);
  Translate(Outgoing(u'S', u"DN7448 "));
  EXPECT_EQ(SlotOf(kTrunk), 2);

  test::DefineConstant(*desk_.config, emDatoCteIdentEntrante, 10, u"t");
  Translate(Line(u'S', u"t038000", u"DN2221 "));
  EXPECT_EQ(SlotOf(kTrunk), 2);
  EXPECT_EQ(Translate(Line(u'E', u"t038000", u"DN2223 ")).transferred_to, u"DN2221 ");
  EXPECT_EQ(SlotOf(kTrunk), 0);
}

TEST_F(Meridian, LettersCountInBothCases) {
  EXPECT_TRUE(IsCleared(desk_.Translate(Outgoing(u'a', u"DN7447 ", u"4321"))));
  EXPECT_EQ(Translate(Outgoing(u's', u"DN7447 ")).attribute, emAtributoIniTransferida);
  EXPECT_EQ(Translate(Incoming(u'x', u"DN2221 ")).attribute, emAtributoEnTransferencia);
  EXPECT_EQ(Translate(Incoming(u'e', u"DN2223 ")).account, u"4321");
  EXPECT_TRUE(desk_.Translate(Outgoing(u'n', u"DN7447 ")).EsValido());
}

TEST_F(Meridian, UnknownLettersGiveAClearedRecordAndKeepWhatWaits) {
  Translate(Outgoing(u'S', u"DN7447 "));
  for (const char16_t letter : TextView(u"BCDFGHILMPQRTYZ 0-*ñÁ")) {
    EXPECT_TRUE(IsCleared(desk_.Translate(Incoming(letter, u"DN2221 "))))
        << test::Ascii(Text(1, letter));
  }
  EXPECT_EQ(SlotOf(kTrunk), 1);
}

TEST_F(Meridian, UnrecognisedLineStopsAfterItsDate) {
  CallValues expected;
  expected.start = {2026, 4, 5, 15, 2, 0};
  for (const char16_t letter : {u'N', u'A', u'S', u'X', u'E', u'Z'}) {
    EXPECT_EQ(Translate(Line(letter, u"DN7447 ", u"DN2221 ", u"8761344")), expected);
    EXPECT_FALSE(desk_.call().EsValido());
  }
}

TEST_F(Meridian, CallBetweenExtensionsFindsNothingParked) {
  test::DefineConstant(*desk_.config, emDatoCteIdentInterExtension, 10, u"D");
  test::DefineItem(*desk_.config, emParamExtension1InterExtension, 10, 7, emValorCadena);
  test::DefineItem(*desk_.config, emParamExtension2InterExtension, 18, 7, emValorCadena);
  Translate(Incoming(u'A', u"DN2221 ", u"4321"));  // kept by DN2221
  const CallValues call = Translate(Line(u'N', u"DN7447 ", u"DN2221 "));
  EXPECT_EQ(call.type, emLlamadaInterExtension);
  EXPECT_EQ(call.account, u"");
}

TEST_F(Meridian, FindsTheTrunkInAnyLetterCase) {
  Translate(Outgoing(u'S', u"DN7447 "));
  test::DefineConstant(*desk_.config, emDatoCteIdentEntrante, 10, u"t");
  EXPECT_EQ(Translate(Line(u'E', u"t038000", u"DN2221 ")).transferred_to, u"DN7447 ");
}

TEST_F(Meridian, TrunksAreKeptApart) {
  Translate(Line(u'S', u"DN0001 ", u"T000001"));
  Translate(Line(u'S', u"DN0002 ", u"T000002"));
  Translate(Line(u'A', u"DN0003 ", u"T000003", u"33"));
  EXPECT_EQ(Translate(Line(u'X', u"T000002", u"DN0009 ")).attribute, emAtributoEnTransferencia);
  EXPECT_EQ(Translate(Line(u'E', u"T000001", u"DN0008 ")).transferred_to, u"DN0001 ");
  EXPECT_EQ(Translate(Line(u'N', u"DN0003 ", u"T000003")).account, u"33");
  EXPECT_EQ(Translate(Line(u'E', u"T000002", u"DN0007 ")).transferred_to, u"DN0002 ");
  for (const TextView trunk : {u"T000001", u"T000002", u"T000003"}) EXPECT_EQ(SlotOf(trunk), 0);
}

TEST_F(Meridian, FullListLosesWhatIsToBeKept) {
  for (int i = 100; i < 200; ++i) Translate(Line(u'S', u"DN7447 ", Text(u"T000") + ToText(i)));
  EXPECT_EQ(SlotOf(u"T000199"), 100);
  const CallValues start = Translate(Line(u'S', u"DN7448 ", u"T000200"));
  EXPECT_EQ(start.attribute, emAtributoIniTransferida);
  EXPECT_TRUE(IsCleared(desk_.Translate(Line(u'A', u"DN7448 ", u"T000201", u"4"))));
  EXPECT_EQ(SlotOf(u"T000200"), 0);
  EXPECT_EQ(SlotOf(u"T000201"), 0);
  EXPECT_EQ(Translate(Line(u'E', u"T000200", u"DN2221 ")).transferred_to, u"");
}

TEST_F(Meridian, ReadsNoMorningMarkerRingOrAttribute) {
  test::DefineConstant(*desk_.config, emDatoCteIdentificadorHorarioMatutinoFecha, 1, u"?");
  test::DefineConstant(*desk_.config, emDatoCteIdentSalienteInicioTransferida, 1, u"N");
  test::DefineItem(*desk_.config, emParamRingSegundos, 44, 2);
  const CallValues call = Translate(Line(u'N', u"DN7447 ", kTrunk, u"5", u"03:00:20"));
  EXPECT_EQ(call.start[3], 15);
  EXPECT_EQ(call.ring, 0);
  EXPECT_EQ(call.attribute, emSinAtributo);
  test::DefineItem(*desk_.config, emParamFechaHoras, 38, 2);
  EXPECT_EQ(Translate(Line(u'N', u"DN7447 ", kTrunk, u"5", u"03:00:20")).start[3], 3);
}

TEST_F(Meridian, AccountCodeRecordDoesNotReadTheDuration) {
  test::DefineItem(*desk_.config, emParamDuracionHoras, 255, 1);
  EXPECT_TRUE(IsCleared(desk_.Translate(Outgoing(u'A', u"DN7447 ", u"4321"))));
  EXPECT_THROW(desk_.Translate(Outgoing(u'N', u"DN7447 ")), OverflowError);
  EXPECT_EQ(SlotOf(kTrunk), 1);
  EXPECT_EQ(Text(desk_.call().Receptor()), kTrunk);
  EXPECT_EQ(Text(desk_.call().CodigoCuenta()), u"");
}

TEST_F(Meridian, OverflowInAnUnknownRecordComesOutToo) {
  test::DefineItem(*desk_.config, emParamDuracionHoras, 255, 1);
  EXPECT_THROW(desk_.Translate(Outgoing(u'Z', u"DN7447 ")), OverflowError);
}

}  // namespace
}  // namespace conmuta
