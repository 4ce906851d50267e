// Pairing the start and the end of a transferred call by their trunk.
#include <gtest/gtest.h>

#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::CallValues;
using test::FixedColumns;
using test::FixedLine;
using test::IsCleared;
using test::Translation;
using test::ValuesOf;

class SamsungTransfer : public testing::Test {
 protected:
  SamsungTransfer() : desk_(FixedColumns().Case(emCasoSamsungNX_820).Build()) {}

  CallValues Translate(const FixedLine& line) { return ValuesOf(desk_.Translate(line.text())); }
  // What the same line gives where nothing is paired.
  CallValues Unpaired(const FixedLine& line) {
    Translation standard(FixedColumns().Build());
    return ValuesOf(standard.Translate(line.text()));
  }
  int SlotOf(TextView trunk) { return desk_.translator.BuscaLlamadaTroncalLista(trunk); }

  Translation desk_;
};

const FixedLine kIncomingStart = {
    .kind = u"IS", .from = u"T001", .to = u"0201", .number = u"5550001", .account = u"000777"};
const FixedLine kIncomingEnd = {
    .kind = u"IE", .from = u"T001", .to = u"0205", .number = u"5559999", .account = u"000888"};
const FixedLine kOutgoingStart = {
    .kind = u"OS", .from = u"0201", .to = u"T001", .number = u"5550002", .account = u"000777"};
const FixedLine kOutgoingEnd = {
    .kind = u"OE", .from = u"0205", .to = u"T001", .number = u"5559999", .account = u"000888"};

TEST_F(SamsungTransfer, StartIsParkedAndDeliveredAsTranslated) {
  EXPECT_EQ(Translate(kIncomingStart), Unpaired(kIncomingStart));
  EXPECT_EQ(SlotOf(u"T001"), 1);
  FixedLine outgoing = kOutgoingStart;
  outgoing.to = u"T002";
  EXPECT_EQ(Translate(outgoing), Unpaired(outgoing));
  EXPECT_EQ(SlotOf(u"T002"), 2);
}

TEST_F(SamsungTransfer, EndTakesNumberExtensionAndAccountOfAnIncomingStart) {
  Translate(kIncomingStart);
  CallValues expected = Unpaired(kIncomingEnd);
  expected.phone = u"5550001";
  expected.transferred_to = u"0201";
  expected.account = u"000777";
  EXPECT_EQ(Translate(kIncomingEnd), expected);
  EXPECT_TRUE(desk_.call().EsValido());
  EXPECT_EQ(SlotOf(u"T001"), 0);
}

TEST_F(SamsungTransfer, EndTakesNumberExtensionAndAccountOfAnOutgoingStart) {
  Translate(kOutgoingStart);
  CallValues expected = Unpaired(kOutgoingEnd);
  expected.phone = u"5550002";
  expected.transferred_to = u"0201";
  expected.account = u"000777";
  EXPECT_EQ(Translate(kOutgoingEnd), expected);
  EXPECT_EQ(SlotOf(u"T001"), 0);
}

TEST_F(SamsungTransfer, EndWithoutAStartKeepsItsOwnData) {
  for (const FixedLine& end : {kIncomingEnd, kOutgoingEnd}) {
    EXPECT_EQ(Translate(end), Unpaired(end));
  }
  FixedLine other_trunk = kIncomingStart;
  other_trunk.from = u"T002";
  Translate(other_trunk);
  EXPECT_EQ(Translate(kIncomingEnd), Unpaired(kIncomingEnd));
  EXPECT_EQ(SlotOf(u"T002"), 1);
}

TEST_F(SamsungTransfer, SecondEndFindsNothingMore) {
  Translate(kIncomingStart);
  Translate(kIncomingEnd);
  EXPECT_EQ(Translate(kIncomingEnd), Unpaired(kIncomingEnd));
}

TEST_F(SamsungTransfer, EndWithEmptyStartDataLosesItsOwn) {
  FixedLine start = kIncomingStart;
  start.number = u"";
  start.account = u"";
  Translate(start);
  const CallValues call = Translate(kIncomingEnd);
  EXPECT_EQ(call.phone, u"");
  EXPECT_EQ(call.account, u"");
}

// The end line reports the trunk from the other side: the call keeps the direction it began with,
// and the parties are read again from the slots of that direction.
TEST_F(SamsungTransfer, EndTakesTheDirectionOfItsStart) {
  test::DefineItem(*desk_.config, emParamExtensionSalienteFinTransferida, 44, 4, emValorCadena);
  test::DefineItem(*desk_.config, emParamTroncalSalienteFinTransferida, 39, 4, emValorCadena);
  Translate(kOutgoingStart);
  const CallValues call = Translate(kIncomingEnd);
  EXPECT_EQ(call.type, emLlamadaSaliente);
  EXPECT_EQ(call.attribute, emAtributoFinTransferida);
  EXPECT_EQ(call.caller, u"0205");
  EXPECT_EQ(call.callee, u"T001");
  EXPECT_EQ(call.transferred_to, u"0201");
  EXPECT_EQ(call.phone, u"5550002");
}

TEST_F(SamsungTransfer, OutgoingEndOfAnIncomingStartBecomesIncoming) {
  Translate(kIncomingStart);
  const CallValues call = Translate(kOutgoingEnd);
  EXPECT_EQ(call.type, emLlamadaEntrante);
  EXPECT_EQ(call.transferred_to, u"0201");
}

// A parked call between trunks lends number and account code, but neither type nor extension.
TEST_F(SamsungTransfer, EndOnATrunkPairKeepsItsType) {
  FixedLine start = kIncomingStart;
  start.kind = u"TS";
  start.from = u"T009";
  start.to = u"T001";
  Translate(start);
  ASSERT_EQ(SlotOf(u"T001"), 1);
  CallValues expected = Unpaired(kIncomingEnd);
  expected.phone = u"5550001";
  expected.account = u"000777";
  EXPECT_EQ(Translate(kIncomingEnd), expected);
  EXPECT_EQ(SlotOf(u"T001"), 0);
  EXPECT_EQ(SlotOf(u"T009"), 0);
}

TEST_F(SamsungTransfer, EndBetweenExtensionsOrTrunksIsNotPaired) {
  for (const Text kind : {u"XE", u"TE"}) {
    Translate(kIncomingStart);
    FixedLine end = kIncomingEnd;
    end.kind = kind;
    EXPECT_EQ(Translate(end), Unpaired(end));
    EXPECT_EQ(SlotOf(u"T001"), 1);
  }
}

TEST_F(SamsungTransfer, StartOnAnExtensionPairIsParkedAndNeverFound) {
  FixedLine start = kIncomingStart;
  start.kind = u"XS";
  Translate(start);
  EXPECT_EQ(SlotOf(u"T001"), 0);
  EXPECT_EQ(SlotOf(u"0201"), 0);
  Translate(kIncomingStart);
  EXPECT_EQ(SlotOf(u"T001"), 2) << "the first slot is taken";
}

TEST_F(SamsungTransfer, EndFindsItsTrunkInAnyLetterCase) {
  Translate(kIncomingStart);
  FixedLine end = kIncomingEnd;
  end.from = u"t001";
  const CallValues call = Translate(end);
  EXPECT_EQ(call.phone, u"5550001");
  EXPECT_EQ(call.caller, u"t001");
}

TEST_F(SamsungTransfer, StartsInDifferentLetterCaseAreTwo) {
  Translate(kIncomingStart);
  FixedLine lower = kIncomingStart;
  lower.from = u"t001";
  lower.number = u"5550003";
  Translate(lower);
  EXPECT_EQ(Translate(kIncomingEnd).phone, u"5550001");
  EXPECT_EQ(Translate(kIncomingEnd).phone, u"5550003");
  EXPECT_EQ(Translate(kIncomingEnd).phone, u"5559999");
}

// A trunk narrower than its field carries its blanks into the list, where nothing finds it.
TEST_F(SamsungTransfer, TrunkWithBlanksIsNotPaired) {
  FixedLine start = kIncomingStart;
  start.from = u"T1";
  FixedLine end = kIncomingEnd;
  end.from = u"T1";
  Translate(start);
  EXPECT_EQ(Translate(end), Unpaired(end));
}

TEST_F(SamsungTransfer, LaterStartOnTheTrunkReplacesAnAbandonedOne) {
  Translate(kIncomingStart);
  FixedLine later = kIncomingStart;
  later.to = u"0210";
  later.number = u"5550009";
  Translate(later);
  const CallValues call = Translate(kIncomingEnd);
  EXPECT_EQ(call.phone, u"5550009");
  EXPECT_EQ(call.transferred_to, u"0210");
  EXPECT_EQ(SlotOf(u"T001"), 0);
}

TEST_F(SamsungTransfer, IncompleteStartIsNotParked) {
  test::DefineItem(*desk_.config, emParamExtensionEntranteInicioTransferida, 44, 0);
  const CallValues call = Translate(kIncomingStart);
  EXPECT_EQ(call.attribute, emAtributoIniTransferida);
  EXPECT_EQ(SlotOf(u"T001"), 0);
}

TEST_F(SamsungTransfer, OutgoingCallWithoutNumberIsDiscarded) {
  EXPECT_TRUE(IsCleared(desk_.Translate(FixedLine{.kind = u"O ", .number = u""}.text())));
  EXPECT_TRUE(IsCleared(desk_.Translate(FixedLine{.kind = u"O ", .number = u"LOG IN"}.text())));
  EXPECT_TRUE(IsCleared(desk_.Translate(FixedLine{.kind = u"? ", .number = u""}.text())));
}

TEST_F(SamsungTransfer, OtherCallsWithoutNumberAreDelivered) {
  for (const Text kind : {u"I ", u"X ", u"T ", u"OS", u"OE", u"IS", u"IE"}) {
    FixedLine line;
    line.kind = kind;
    line.from = Text(u"1") + kind + u"1";
    line.to = Text(u"2") + kind + u"2";
    line.number = u"";
    EXPECT_EQ(Translate(line), Unpaired(line));
    EXPECT_TRUE(desk_.call().EsValido()) << test::Ascii(kind);
  }
}

TEST_F(SamsungTransfer, IncompleteOutgoingCallIsLeftAsItIs) {
  test::DefineItem(*desk_.config, emParamTroncalSaliente, 44, 0);
  EXPECT_EQ(Translate({.kind = u"O ", .number = u""}).type, emLlamadaSaliente);
}

TEST_F(SamsungTransfer, CallTransferredTwiceTellsTheLastHandOver) {
  Translate(kIncomingStart);  // 0201 answers and hands over
  FixedLine second = kIncomingEnd;
  second.to = u"0205";
  EXPECT_EQ(Translate(second).transferred_to, u"0201");
  FixedLine again = kIncomingStart;  // 0205 hands over again
  again.to = u"0205";
  EXPECT_EQ(Translate(again).attribute, emAtributoIniTransferida);
  FixedLine third = kIncomingEnd;
  third.to = u"0210";
  const CallValues call = Translate(third);
  EXPECT_EQ(call.transferred_to, u"0205");
  EXPECT_EQ(call.callee, u"0210");
  EXPECT_EQ(SlotOf(u"T001"), 0);
}

TEST_F(SamsungTransfer, TwoTrunksAtOnceAreKeptApart) {
  FixedLine start2 = kIncomingStart;
  start2.from = u"T002";
  start2.number = u"5550022";
  start2.to = u"0202";
  FixedLine end2 = kIncomingEnd;
  end2.from = u"T002";
  Translate(kIncomingStart);
  Translate(start2);
  Translate({});  // an ordinary call in between
  const CallValues second = Translate(end2);
  EXPECT_EQ(second.phone, u"5550022");
  EXPECT_EQ(second.transferred_to, u"0202");
  const CallValues first = Translate(kIncomingEnd);
  EXPECT_EQ(first.phone, u"5550001");
  EXPECT_EQ(first.transferred_to, u"0201");
}

TEST_F(SamsungTransfer, HundredStartsWaitAndOneMoreIsLost) {
  FixedLine start = kIncomingStart;
  for (int i = 0; i < 101; ++i) {
    start.from = Text(u"L") + ToText(100 + i);
    EXPECT_EQ(Translate(start), Unpaired(start));
  }
  EXPECT_EQ(SlotOf(u"L199"), 100);
  EXPECT_EQ(SlotOf(u"L200"), 0);
  FixedLine end = kIncomingEnd;
  end.from = u"L200";
  EXPECT_EQ(Translate(end), Unpaired(end));
  end.from = u"L150";
  EXPECT_EQ(Translate(end).phone, u"5550001");
  start.from = u"L200";
  Translate(start);
  EXPECT_EQ(SlotOf(u"L200"), 51) << "the freed slot";
}

TEST_F(SamsungTransfer, WaitsThroughAChangeOfConfiguration) {
  Translate(kIncomingStart);
  const auto other = FixedColumns().Build();
  desk_.translator.Conmutador(other.get());
  desk_.Translate(kIncomingEnd.text());
  EXPECT_EQ(SlotOf(u"T001"), 1) << "the standard case pairs nothing";
  desk_.translator.Conmutador(desk_.config.get());  // translates the line anew
  EXPECT_EQ(Text(desk_.call().Telefono()), u"5550001");
  EXPECT_EQ(SlotOf(u"T001"), 0);
}

TEST_F(SamsungTransfer, SettingTheConfigurationAgainParksOnce) {
  Translate(kIncomingStart);
  desk_.translator.Conmutador(desk_.config.get());
  desk_.translator.QuitaLlamadaLista(1);
  EXPECT_EQ(SlotOf(u"T001"), 0);
}

}  // namespace
}  // namespace conmuta
