// What a host cannot learn from a call record, and what it does about that: the rows of
// docs/what-the-rules-lose.md on pending calls, blocks, kinds and errors.
#include <gtest/gtest.h>

#include <cstdio>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::ConfigBuilder;
using test::FixedColumns;
using test::FixedLine;
using test::Translation;

Text Numbered(TextView name, int number) {
  char digits[8];
  std::snprintf(digits, sizeof digits, "%03d", number);
  return Text(name).append(digits, digits + 3);
}

void ClearPendingList(clsTradEST& translator) {
  for (std::int16_t place = 1; place <= 100; ++place) translator.QuitaLlamadaLista(place);
}

// --- The list of pending calls ---------------------------------------------------------------

// What is parked with a start that no end can find, and a pair that ought to be joined.
class PendingList : public testing::Test {
 protected:
  PendingList() : desk_(FixedColumns().Case(emCasoSamsungNX_820).Build()) {}

  void Fill(TextView kind) {
    for (int n = 1; n <= 100; ++n) {
      desk_.Translate(FixedLine{.kind = Text(kind), .to = Numbered(u"", n)}.text());
    }
  }
  // The extension that the end of an incoming transfer names.
  Text JoinedExtension() {
    desk_.Translate(FixedLine{.kind = u"IS", .from = u"T900", .to = u"0205"}.text());
    const FixedLine end{.kind = u"IE", .from = u"T900", .to = u"0299"};
    return Text(desk_.Translate(end.text()).ExtensionTransferida());
  }

  Translation desk_;
};

TEST_F(PendingList, JoinsATransferWhileThereIsRoom) {
  EXPECT_EQ(JoinedExtension(), u"0205");
}

TEST_F(PendingList, InternalTransfersFillItForGood) {
  Fill(u"XS");
  EXPECT_EQ(JoinedExtension(), u"");
  ClearPendingList(desk_.translator);
  EXPECT_EQ(JoinedExtension(), u"0205");
}

TEST_F(PendingList, TransfersFromTrunkToTrunkFillItForGood) {
  Fill(u"TS");
  EXPECT_EQ(JoinedExtension(), u"");
  ClearPendingList(desk_.translator);
  EXPECT_EQ(JoinedExtension(), u"0205");
}

TEST_F(PendingList, EqualStartsOfInternalTransfersTakeAPlaceEach) {
  for (int n = 1; n <= 100; ++n) desk_.Translate(FixedLine{.kind = u"XS"}.text());
  EXPECT_EQ(JoinedExtension(), u"");
}

TEST_F(PendingList, ConfigurationDoesNotClearIt) {
  Fill(u"XS");
  const auto other = FixedColumns().Case(emCasoSamsungNX_820).Build();
  desk_.translator.Conmutador(other.get());
  EXPECT_EQ(JoinedExtension(), u"");
  desk_.translator.Conmutador(nullptr);
}

TEST_F(PendingList, TransferThatNobodyEndedIsJoinedToALaterCall) {
  desk_.Translate(FixedLine{.date = u"2026/11/21", .kind = u"IS", .number = u"5550001"}.text());
  const FixedLine end{.date = u"2026/12/24", .kind = u"IE", .number = u"5550002"};
  EXPECT_EQ(desk_.Translate(end.text()).Telefono(), u"5550001");  // a month later

  desk_.Translate(FixedLine{.kind = u"IS", .number = u"5550001"}.text());
  ClearPendingList(desk_.translator);
  EXPECT_EQ(desk_.Translate(end.text()).Telefono(), u"5550002");
}

Text MeridianLine(char16_t letter, TextView origin, TextView terminal, TextView digits) {
  return Text(1, letter) + u" 029 00 " + Text(origin) + u" " + Text(terminal) +
         u" 04/05 15:02 00:00:20 " + Text(digits);
}

class MeridianList : public testing::Test {
 protected:
  Text AccountOfAnOutgoingCall() {
    desk_.Translate(MeridianLine(u'A', u"DN07425", u"T052000", u"4471"));
    desk_.Translate(MeridianLine(u'N', u"DN07425", u"T052000", u"5550144"));
    return Text(desk_.call().CodigoCuenta());
  }

  Translation desk_{test::MeridianColumns().Build()};
};

TEST_F(MeridianList, IncomingAccountRecordsFindNoCallAndFillIt) {
  EXPECT_EQ(AccountOfAnOutgoingCall(), u"4471");
  for (int n = 1; n <= 100; ++n) {
    const Text extension = Numbered(u"DN00", n);
    desk_.Translate(MeridianLine(u'A', u"T038000", extension, u"4471"));
    EXPECT_EQ(desk_.Translate(MeridianLine(u'N', u"T038000", extension, u"")).CodigoCuenta(), u"");
  }
  EXPECT_EQ(AccountOfAnOutgoingCall(), u"");
  ClearPendingList(desk_.translator);
  EXPECT_EQ(AccountOfAnOutgoingCall(), u"4471");
}

// --- Norstar ---------------------------------------------------------------------------------

class NorstarLoss : public testing::Test {
 protected:
  const clsLlamadaTRD& Feed(std::initializer_list<TextView> lines) {
    for (const TextView line : lines) desk_.Translate(line);
    return desk_.call();
  }

  Translation desk_{test::NorstarColumns().Build()};
};

constexpr TextView kBlock = u"-------- 04/11/27 09:41:11 LINE = 0003 STN = 7344";
constexpr TextView kOther = u"-------- 04/11/27 09:41:56 LINE = 0003 STN = 7440";
constexpr TextView kLast = u"--------";

TEST_F(NorstarLoss, LastBlockComesOutOnOneMoreSeparator) {
  EXPECT_FALSE(Feed({kBlock, u"00:00:00   OUTGOING CALL", u"           DIGITS DIALED    5551212"})
                   .EsValido());
  EXPECT_TRUE(Feed({kLast}).EsValido());
  EXPECT_EQ(desk_.call().Telefono(), u"5551212");
  EXPECT_FALSE(Feed({kBlock}).EsValido());  // what the separator itself opened is no call
}

TEST_F(NorstarLoss, TransferThatNobodyTakesUpWaitsForTheNextOneOnItsLine) {
  Feed({kBlock, u"00:00:00   INCOMING CALL", u"00:00:45   TRANSFERRED"});
  // The next day, after a transfer whose first leg was lost.
  const auto& call = Feed({u"-------- 04/12/27 16:00:00 LINE = 0003 STN = 7440",
                           u"00:00:00   FROM TRANSFER", u"00:02:18   CALL RELEASED"});
  EXPECT_EQ(call.Dia(emParamFecha), 11);
  EXPECT_EQ(call.TipoLlamada(), emLlamadaEntrante);
}

TEST_F(NorstarLoss, ClearedListLeavesATransferWithoutItsFirstLeg) {
  Feed({kBlock, u"00:00:00   INCOMING CALL", u"00:00:45   TRANSFERRED"});
  ClearPendingList(desk_.translator);
  const auto& call =
      Feed({kOther, u"00:00:00   FROM TRANSFER", u"00:02:18   CALL RELEASED", kLast});
  EXPECT_TRUE(call.EsValido());
  EXPECT_EQ(call.TipoLlamada(), emLlamadaSaliente);  // nothing said that it was incoming
  EXPECT_EQ(call.Telefono(), u"");  // which tells it from a call that somebody made
  EXPECT_EQ(call.Duracion(), 0);
}

TEST_F(NorstarLoss, CallThatNobodyAnsweredIsOutgoingWhenItNamesAnExtension) {
  const auto& call = Feed({kBlock, u"00:00:00   NO ANSWER        RINGING 0:22", kLast});
  EXPECT_TRUE(call.EsValido());
  EXPECT_EQ(call.TipoLlamada(), emLlamadaSaliente);
  EXPECT_EQ(call.Telefono(), u"");
  EXPECT_EQ(call.Duracion(), 0);
}

TEST_F(NorstarLoss, SecondLineOfABlockIsNotTold) {
  const auto& call = Feed({kBlock, u"00:00:00   OUTGOING CALL",
                           u"           DIGITS DIALED    5551212", u"00:00:30   LINE = 0009",
                           u"           DIGITS DIALED    5553434", u"00:05:00   CALL RELEASED"});
  EXPECT_EQ(call.Receptor(), u"0003");
  EXPECT_EQ(call.Telefono(), u"5553434");  // the last one dialled
  EXPECT_EQ(call.Duracion(), 300);         // of both together
}

// --- Kinds of call ---------------------------------------------------------------------------

// Codes I, D and N are incoming, O is outgoing: the third has no place.
ConfigBuilder Codes() {
  ConfigBuilder layout;
  layout.Item(emParamTroncalEntrante, 3, 2).Item(emParamExtensionEntrante, 6, 3);
  layout.Item(emParamTroncalSaliente, 3, 2).Item(emParamExtensionSaliente, 6, 3);
  layout.Constant(emDatoCteIdentEntrante, 1, u"I").Constant(emDatoCteIdentEntranteOR, 1, u"D");
  return layout;
}

TEST(KindLoss, ThirdCodeOfAKindIsOutgoing) {
  Translation desk(Codes().Build());
  EXPECT_EQ(desk.Translate(u"I 01 205").TipoLlamada(), emLlamadaEntrante);
  EXPECT_EQ(desk.Translate(u"D 01 205").TipoLlamada(), emLlamadaEntrante);
  EXPECT_EQ(desk.Translate(u"N 01 205").TipoLlamada(), emLlamadaSaliente);
}

TEST(KindLoss, SecondTranslatorKnowsTheThirdCode) {
  Translation first(Codes().Build());
  Translation second(Codes().Constant(emDatoCteIdentEntrante, 1, u"N").Build());
  const TextView line = u"N 01 205";
  // The host chooses by the code itself.
  auto& chosen = line.front() == u'N' ? second : first;
  EXPECT_EQ(chosen.Translate(line).TipoLlamada(), emLlamadaEntrante);
}

TEST(KindLoss, NoiseOfAnUnusedKindIsNoCall) {
  Translation plain(Codes().Build());
  EXPECT_TRUE(plain.Translate(u"% 01 205").EsValido());  // outgoing, since nothing else
  Translation guarded(Codes().Constant(emDatoCteIdentInterTroncal, 1, u"%").Build());
  EXPECT_FALSE(guarded.Translate(u"% 01 205").EsValido());
}

TEST(KindLoss, HeaderIsACallWherePartiesAreText) {
  ConfigBuilder layout;
  layout.TextItem(emParamTroncalSaliente, 1, 4).TextItem(emParamExtensionSaliente, 6, 4);
  EXPECT_TRUE(Translation(layout.Build()).Translate(u"PAGE 0001").EsValido());
  ConfigBuilder numeric;
  numeric.Item(emParamTroncalSaliente, 1, 4).Item(emParamExtensionSaliente, 6, 4);
  EXPECT_FALSE(Translation(numeric.Build()).Translate(u"PAGE 0001").EsValido());
}

TEST(KindLoss, BlankThatWasStrippedHidesAMark) {
  Translation desk(Codes().Constant(emDatoCteIdentEntrante, 10, u" T ").Build());
  EXPECT_EQ(desk.Translate(u"X 01 205  T").TipoLlamada(), emLlamadaSaliente);
  EXPECT_EQ(desk.Translate(u"X 01 205  T  ").TipoLlamada(), emLlamadaEntrante);  // put back
}

TEST(KindLoss, ControlCharacterInFrontShiftsEveryColumn) {
  Translation desk(Codes().Build());
  const auto& call = desk.Translate(Text(1, char16_t{0x11}) + u"I 01 205 7");
  EXPECT_EQ(call.TipoLlamada(), emLlamadaSaliente);
  EXPECT_EQ(call.Receptor(), u"0");
}

// --- Errors ----------------------------------------------------------------------------------

TEST(ErrorLoss, SlotBeyondColumn255FailsEveryLine) {
  Translation desk(Codes().Item(emParamTelefonoEntrante, 250, 10).Build());
  EXPECT_THROW(desk.Translate(u"I 01 205"), OverflowError);
  EXPECT_THROW(desk.Translate(u"I 02 206"), OverflowError);
  Translation shorter(Codes().Item(emParamTelefonoEntrante, 250, 5).Build());
  EXPECT_TRUE(shorter.Translate(u"I 01 205").EsValido());
}

TEST(ErrorLoss, RecordOfAFailedLineMayCallItselfValid) {
  Translation desk(Codes().Item(emParamCodigoCuenta, 250, 10).Build());
  EXPECT_THROW(desk.Translate(u"I 01 205"), OverflowError);
  EXPECT_TRUE(desk.call().EsValido());
}

TEST(ErrorLoss, RingOfTenHoursFailsItsLine) {
  Translation desk(Codes().Item(emParamRingHoras, 10, 2).Build());
  EXPECT_THROW(desk.Translate(u"I 01 205 10"), OverflowError);
  EXPECT_EQ(desk.Translate(u"I 01 205 09").Ring(), 9 * 3600);
}

}  // namespace
}  // namespace conmuta
