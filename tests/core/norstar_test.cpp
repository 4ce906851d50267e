// Norstar blocks: a separator, then events, put together into one call.
#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/naive_translator.h"
#include "support/random.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::CallValues;
using test::IsCleared;
using test::NorstarColumns;
using test::Translation;
using test::ValuesOf;

class Norstar : public testing::Test {
 protected:
  Norstar() : desk_(NorstarColumns().Build()) {}

  static Text Separator(TextView trunk, TextView extension) {
    return Text(u"-------- 04/11/27 09:41:11 LINE = ") + Text(trunk) + u" STN = " + Text(extension);
  }
  static Text Event(TextView text, TextView elapsed = u"00:00:00") {
    return Text(elapsed) + u"   " + Text(text);
  }

  CallValues Translate(TextView line) { return ValuesOf(desk_.Translate(line)); }
  // A line that delivers nothing.
  void Feed(TextView line) {
    EXPECT_TRUE(IsCleared(desk_.Translate(line)))
        << test::Ascii(line) << ": " << ValuesOf(desk_.call());
  }
  void FeedAll(std::initializer_list<TextView> lines) {
    for (const TextView line : lines) Feed(line);
  }
  int SlotOf(TextView trunk) { return desk_.translator.BuscaLlamadaTroncalLista(trunk); }

  // A short line is refused in an open block and ignored outside one; it changes nothing.
  bool BlockIsOpen() {
    try {
      desk_.Translate(u"x");
      return false;
    } catch (const InvalidArgumentError&) {
      return true;
    }
  }

  // An incoming call on a trunk, answered by an extension which hands it over.
  CallValues TransferIncoming(TextView trunk, TextView extension) {
    Feed(Separator(trunk, extension));
    Feed(Event(u"INCOMING CALL    RINGING 0:06"));
    return Translate(Event(u"TRANSFERRED", u"00:00:45"));
  }

  static CallValues Call(emTiposLlamadas type, TextView caller, TextView callee) {
    CallValues call;
    call.start = {2027, 4, 11, 9, 41, 11};
    call.type = type;
    call.caller = caller;
    call.callee = callee;
    return call;
  }

  Translation desk_;
};

using NorstarBlock = Norstar;
using NorstarDigits = Norstar;
using NorstarTransfer = Norstar;
using NorstarShortLine = Norstar;

TEST_F(NorstarBlock, OfAnOutgoingCallDeliversOnItsRelease) {
  FeedAll({Separator(u"0003", u"7425"), Event(u"OUTGOING CALL"),
           Event(u"DIGITS DIALED    5551212", u"        ")});
  CallValues expected = Call(emLlamadaSaliente, u"7425", u"0003");
  expected.duration = {0, 0, 0, 0, 12, 59};
  expected.phone = u"5551212";
  EXPECT_EQ(Translate(Event(u"CALL RELEASED", u"00:12:59")), expected);
  EXPECT_TRUE(desk_.call().EsValido());
  Feed(Separator(u"0003", u"7425"));
}

TEST_F(NorstarBlock, OfAnIncomingCallExchangesTheParties) {
  FeedAll({Separator(u"0083", u"7726"), Event(u"INCOMING CALL    RINGING 0:32"),
           Event(u"HOLD", u"00:00:39"), Event(u"UNHOLD", u"00:01:12")});
  CallValues expected = Call(emLlamadaEntrante, u"0083", u"7726");
  expected.duration = {0, 0, 0, 0, 2, 47};
  EXPECT_EQ(Translate(Event(u"CALL RELEASED", u"00:02:47")), expected);
}

TEST_F(NorstarBlock, SecondIncomingCallEventExchangesThemBack) {
  FeedAll({Separator(u"0083", u"7726"), Event(u"INCOMING CALL"), Event(u"INCOMING CALL")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")), Call(emLlamadaEntrante, u"7726", u"0083"));
}

TEST_F(NorstarBlock, WithoutAnEndIsDeliveredByTheNextSeparator) {
  FeedAll({Separator(u"0035", u"7001"), Event(u"INCOMING CALL")});
  EXPECT_EQ(Translate(Separator(u"0036", u"7002")), Call(emLlamadaEntrante, u"0035", u"7001"));
  EXPECT_EQ(Translate(Separator(u"0037", u"7003")), Call(emLlamadaSaliente, u"7002", u"0036"));
}

TEST_F(NorstarBlock, UnansweredCallHasNoExtension) {
  FeedAll({u"-------- 04/11/27 09:41:11 LINE = 0035", Event(u"CALLING NUMBER   7355303"),
           Event(u"NO ANSWER        RINGING 0:02")});
  EXPECT_EQ(Translate(Separator(u"0036", u"7002")), Call(emLlamadaSaliente, u"", u"0035"));
  EXPECT_FALSE(desk_.call().EsValido());
}

TEST_F(NorstarBlock, EventsBeforeTheFirstSeparatorAreLost) {
  FeedAll({Event(u"INCOMING CALL"), Event(u"TRANSFERRED"), Event(u"FROM TRANSFER"),
           Event(u"DIGITS DIALED    5551212"), Event(u"RESTRICTION PASSWORD 1234"),
           Event(u"CALL RELEASED")});
  EXPECT_FALSE(BlockIsOpen());
  Feed(Separator(u"0003", u"7425"));
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")), Call(emLlamadaSaliente, u"7425", u"0003"));
}

TEST_F(NorstarBlock, EventsAfterItsEndAreIgnored) {
  for (const TextView end : {u"CALL RELEASED", u"TRANSFERRED"}) {
    Feed(Separator(u"0003", u"7425"));
    EXPECT_TRUE(BlockIsOpen());
    Translate(Event(end));
    EXPECT_FALSE(BlockIsOpen());
    FeedAll({Event(u"INCOMING CALL"), Event(u"DIGITS DIALED    5551212"), Event(u"CALL RELEASED"),
             Event(u"TRANSFERRED"), u""});
    EXPECT_FALSE(BlockIsOpen());
  }
}

TEST_F(NorstarBlock, OtherEventsChangeNothing) {
  Feed(Separator(u"0003", u"7425"));
  for (const TextView text : {u"HOLD",
                              u"LINE = 0004",
                              u"UNHOLD",
                              u"NO ANSWER",
                              u"OUTGOING CALL",
                              u"BUSY",
                              u"CONFERENCE",
                              u"ACCOUNT CODE     87",
                              u"CALLING NUMBER   /12345678901",
                              u"NAME             UNKNOWN",
                              u"BC = SPEECH",
                              u"RECORD RESTART",
                              u"",
                              u"incoming call",
                              u"Call Released",
                              u" TRANSFERRED",
                              u"CALL  RELEASED",
                              u"TRANSFERRE",
                              u"--------",
                              u"RESTRICTION PASSWOR"}) {
    Feed(Event(text, u"23:59:59"));
    EXPECT_TRUE(BlockIsOpen()) << test::Ascii(text);
  }
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")), Call(emLlamadaSaliente, u"7425", u"0003"));
}

TEST_F(NorstarBlock, EventIsWhatFollowsElevenCharactersOfAnyKind) {
  for (const TextView prefix : {u"           ", u"12345678901", u"LINE = 0003", u"-------x---"}) {
    Feed(Separator(u"0003", u"7425"));
    EXPECT_EQ(Translate(Text(prefix) + u"CALL RELEASED, and more").caller, u"7425");
    EXPECT_FALSE(BlockIsOpen());
  }
  Feed(Separator(u"0003", u"7425"));
  Feed(u"          CALL RELEASED");    // a column too early
  Feed(u"            CALL RELEASED");  // a column too late
  EXPECT_TRUE(BlockIsOpen());
}

TEST_F(NorstarBlock, SeparatorIsEightDashesWhateverFollows) {
  Feed(u"--------");
  EXPECT_TRUE(BlockIsOpen());
  CallValues expected = Call(emLlamadaSaliente, u"", u"");
  expected.start = {2026, 11, 21, 0, 0, 0};
  EXPECT_EQ(Translate(u"------------ 4711"), expected);
  Translate(Event(u"CALL RELEASED"));
  Feed(u"-------");
  EXPECT_FALSE(BlockIsOpen()) << "seven dashes";
  Feed(u" --------");
  EXPECT_FALSE(BlockIsOpen()) << "not at the beginning";
}

TEST_F(NorstarBlock, ReadsTheDurationFromItsLastLineOnly) {
  test::DefineItem(*desk_.config, emParamRingSegundos, 7, 2);
  test::DefineItem(*desk_.config, emParamDuracionDia, 7, 2);
  Feed(Separator(u"0003", u"7425"));
  Feed(Event(u"HOLD", u"01:01:01"));
  CallValues expected = Call(emLlamadaSaliente, u"7425", u"0003");
  expected.duration = {0, 0, 0, 2, 3, 4};
  EXPECT_EQ(Translate(Event(u"CALL RELEASED", u"02:03:04")), expected);
}

TEST_F(NorstarDigits, AreTakenFromTheirColumnOn) {
  const struct {
    TextView event;
    TextView phone;
  } rows[] = {{u"DIGITS DIALED    5551212", u"5551212"},
              {u"DIGITS DIALED    5", u"5"},
              {u"DIGITS DIALED    555-12*12#", u"5551212"},
              {u"DIGITS DIALED9999995", u"995"},
              {u"DIGITS DIALED    none", u""},
              {u"DIGITS DIALED     5", u"5"},
              {u"DIGITS DIALED    0123456789012345678901234567890123456789",
               u"012345678901234567890123456789"}};
  for (const auto& row : rows) {
    Feed(Separator(u"0003", u"7425"));
    Feed(Event(row.event));
    EXPECT_EQ(Translate(Event(u"CALL RELEASED")).phone, row.phone) << test::Ascii(row.event);
  }
}

TEST_F(NorstarDigits, OfAShorterEventLeaveTheNumber) {
  for (const TextView event : {u"DIGITS DIALED", u"DIGITS DIALED   ", u"DIGITS DIALED    "}) {
    Feed(Separator(u"0003", u"7425"));
    Feed(Event(u"DIGITS DIALED    5551212"));
    Feed(Event(event));
    EXPECT_EQ(Translate(Event(u"CALL RELEASED")).phone, u"5551212") << event.size();
  }
}

TEST_F(NorstarDigits, OfALaterEventReplaceTheEarlier) {
  FeedAll({Separator(u"0003", u"7425"), Event(u"DIGITS DIALED    5551212"),
           Event(u"DIGITS DIALED    #")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).phone, u"");
}

TEST_F(NorstarDigits, OfAnIncomingCallAreIgnored) {
  FeedAll(
      {Separator(u"0003", u"7425"), Event(u"INCOMING CALL"), Event(u"DIGITS DIALED    5551212")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).phone, u"");
}

TEST_F(NorstarDigits, DialedBeforeTheCallTurnsOutIncomingStay) {
  FeedAll(
      {Separator(u"0003", u"7425"), Event(u"DIGITS DIALED    5551212"), Event(u"INCOMING CALL")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).phone, u"5551212");
}

TEST_F(NorstarDigits, OfAPasswordAreTheAccountCode) {
  const struct {
    TextView event;
    TextView account;
  } rows[] = {{u"RESTRICTION PASSWORD 4321", u"4321"},
              {u"RESTRICTION PASSWORD 4", u"4"},
              {u"RESTRICTION PASSWORD9999", u"999"},
              {u"RESTRICTION PASSWORD 4a3b", u"43"},
              {u"RESTRICTION PASSWORD ****", u""},
              {u"RESTRICTION PASSWORD ", u"77"},
              {u"RESTRICTION PASSWORD", u"77"},
              {u"RESTRICTION PASSWORD 0123456789012345678901234567890123456789",
               u"012345678901234567890123456789"}};
  for (const bool incoming : {false, true}) {
    for (const auto& row : rows) {
      Feed(Separator(u"0003", u"7425"));
      if (incoming) Feed(Event(u"INCOMING CALL"));
      Feed(Event(u"RESTRICTION PASSWORD 77"));
      Feed(Event(row.event));
      EXPECT_EQ(Translate(Event(u"CALL RELEASED")).account, row.account) << test::Ascii(row.event);
    }
  }
}

TEST_F(NorstarDigits, MayBeMoreThanAnyFieldHolds) {
  Feed(Separator(u"0003", u"7425"));
  Feed(Event(Text(u"DIGITS DIALED    ") + Text(1000, u'7')));
  Feed(Event(Text(u"RESTRICTION PASSWORD ") + Text(1000, u'8')));
  const CallValues call = Translate(Event(u"CALL RELEASED"));
  EXPECT_EQ(call.phone, Text(30, u'7'));
  EXPECT_EQ(call.account, Text(30, u'8'));
}

TEST_F(NorstarTransfer, IsDeliveredStartedAndParked) {
  CallValues expected = Call(emLlamadaEntrante, u"0003", u"7344");
  expected.duration = {0, 0, 0, 0, 0, 45};
  expected.attribute = emAtributoIniTransferida;
  EXPECT_EQ(TransferIncoming(u"0003", u"7344"), expected);
  EXPECT_TRUE(desk_.call().EsValido());
  EXPECT_EQ(SlotOf(u"0003"), 1);
  EXPECT_FALSE(BlockIsOpen());
  Feed(Separator(u"0004", u"7000"));
}

TEST_F(NorstarTransfer, IsTakenUpByTheNextExtensionAndEnds) {
  TransferIncoming(u"0003", u"7344");
  Feed(u"-------- 04/11/27 09:41:56 LINE = 0003 STN = 7440");
  Feed(Event(u"FROM TRANSFER"));
  EXPECT_EQ(SlotOf(u"0003"), 0);
  EXPECT_TRUE(BlockIsOpen());
  CallValues expected = Call(emLlamadaEntrante, u"0003", u"7440");
  expected.duration = {0, 0, 0, 0, 2, 18};
  expected.attribute = emAtributoFinTransferida;
  EXPECT_EQ(Translate(Event(u"CALL RELEASED", u"00:02:18")), expected) << "start as first printed";
}

TEST_F(NorstarTransfer, TwiceIsOnTheWayInBetween) {
  TransferIncoming(u"0003", u"7344");
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  CallValues expected = Call(emLlamadaEntrante, u"0003", u"7440");
  expected.duration = {0, 0, 0, 0, 1, 10};
  expected.attribute = emAtributoEnTransferencia;
  EXPECT_EQ(Translate(Event(u"TRANSFERRED", u"00:01:10")), expected);
  EXPECT_EQ(SlotOf(u"0003"), 1);
  FeedAll({Separator(u"0003", u"7500"), Event(u"FROM TRANSFER"), Event(u"HOLD")});
  expected.callee = u"7500";
  expected.duration = {0, 0, 0, 0, 3, 0};
  expected.attribute = emAtributoFinTransferida;
  EXPECT_EQ(Translate(Event(u"CALL RELEASED", u"00:03:00")), expected);
  EXPECT_EQ(SlotOf(u"0003"), 0);
}

TEST_F(NorstarTransfer, OfAnOutgoingCallKeepsNumberAndAccountCode) {
  FeedAll({Separator(u"0003", u"7344"), Event(u"DIGITS DIALED    5551212"),
           Event(u"RESTRICTION PASSWORD 4321")});
  Translate(Event(u"TRANSFERRED", u"00:00:45"));
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  CallValues expected = Call(emLlamadaSaliente, u"7440", u"0003");
  expected.duration = {0, 0, 0, 0, 1, 0};
  expected.attribute = emAtributoFinTransferida;
  expected.phone = u"5551212";
  expected.account = u"4321";
  EXPECT_EQ(Translate(Event(u"CALL RELEASED", u"00:01:00")), expected);
}

TEST_F(NorstarTransfer, TakenUpCallMayStillBeDialed) {
  FeedAll({Separator(u"0003", u"7344"), Event(u"DIGITS DIALED    5551212")});
  Translate(Event(u"TRANSFERRED"));
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER"), Event(u"DIGITS DIALED    777"),
           Event(u"RESTRICTION PASSWORD 1")});
  const CallValues call = Translate(Event(u"CALL RELEASED"));
  EXPECT_EQ(call.phone, u"777");
  EXPECT_EQ(call.account, u"1");
}

// After INCOMING CALL the block's callee is the extension, and that is what is looked for.
TEST_F(NorstarTransfer, InABlockAlreadyIncomingIsLookedForByTheExtension) {
  TransferIncoming(u"0003", u"7344");
  FeedAll({Separator(u"0003", u"7440"), Event(u"INCOMING CALL"), Event(u"FROM TRANSFER")});
  EXPECT_FALSE(BlockIsOpen());
  EXPECT_EQ(SlotOf(u"0003"), 1);

  Translate(Separator(u"0008", u"7000"));  // delivers what the closed block held
  Translate(Event(u"CALL RELEASED"));
  TransferIncoming(u"7440", u"7344");  // a trunk that is named like the extension
  FeedAll({Separator(u"0009", u"7440"), Event(u"INCOMING CALL"), Event(u"FROM TRANSFER")});
  EXPECT_EQ(SlotOf(u"7440"), 0);
  const CallValues call = Translate(Event(u"CALL RELEASED"));
  EXPECT_EQ(call.caller, u"7440");
  EXPECT_EQ(call.callee, u"7440");
}

TEST_F(NorstarTransfer, WithoutAParkedCallClosesTheBlock) {
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_FALSE(BlockIsOpen());
  FeedAll({Event(u"INCOMING CALL"), Event(u"DIGITS DIALED    5551212"), Event(u"CALL RELEASED")});
  // What the block held is delivered all the same.
  EXPECT_EQ(Translate(Separator(u"0004", u"7001")), Call(emLlamadaSaliente, u"7440", u"0003"));
}

TEST_F(NorstarTransfer, NeverTakenUpGivesWayToTheNextOnItsTrunk) {
  TransferIncoming(u"0003", u"7344");
  TransferIncoming(u"0003", u"7345");
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).callee, u"7440");
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_FALSE(BlockIsOpen());
}

TEST_F(NorstarTransfer, OnTwoTrunksAtOnceIsKeptApart) {
  TransferIncoming(u"0003", u"7344");
  Feed(Separator(u"0004", u"7345"));
  Feed(Event(u"DIGITS DIALED    5551212"));
  Translate(Event(u"TRANSFERRED"));
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).type, emLlamadaEntrante);
  FeedAll({Separator(u"0004", u"7441"), Event(u"FROM TRANSFER")});
  const CallValues second = Translate(Event(u"CALL RELEASED"));
  EXPECT_EQ(second.type, emLlamadaSaliente);
  EXPECT_EQ(second.phone, u"5551212");
  EXPECT_EQ(second.caller, u"7441");
}

TEST_F(NorstarTransfer, IsFoundInAnyLetterCase) {
  TransferIncoming(u"LN-a", u"7344");
  FeedAll({Separator(u"ln-A", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).caller, u"LN-a");
}

TEST_F(NorstarTransfer, IsParkedApartInAnotherLetterCase) {
  TransferIncoming(u"LN-a", u"7344");
  TransferIncoming(u"ln-A", u"7345");
  FeedAll({Separator(u"LN-A", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).caller, u"LN-a");
  FeedAll({Separator(u"LN-A", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).caller, u"ln-A");
}

TEST_F(NorstarTransfer, HundredAreKeptAndOneMoreIsLost) {
  for (int i = 0; i < 101; ++i) {
    EXPECT_EQ(TransferIncoming(Text(u"L") + ToText(100 + i), u"7344").attribute,
              emAtributoIniTransferida);
  }
  EXPECT_EQ(SlotOf(u"L199"), 100);
  FeedAll({Separator(u"L200", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_FALSE(BlockIsOpen());
  Translate(Separator(u"L150", u"7440"));
  Feed(Event(u"FROM TRANSFER"));
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).caller, u"L150");
  TransferIncoming(u"L200", u"7344");
  EXPECT_EQ(SlotOf(u"L200"), 51);
}

// The parties of a separator are read with the attribute of the call it delivers. A transfer that
// was taken up and never ended leaves the next block without parties.
TEST_F(NorstarTransfer, LeftOpenTakesThePartiesOfTheNextBlock) {
  TransferIncoming(u"0003", u"7344");
  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  CallValues expected = Call(emLlamadaEntrante, u"0003", u"7440");
  expected.duration = {0, 0, 0, 0, 0, 45};
  expected.attribute = emAtributoEnTransferencia;
  EXPECT_EQ(Translate(Separator(u"0004", u"7001")), expected);
  EXPECT_EQ(Translate(Separator(u"0005", u"7002")), Call(emLlamadaSaliente, u"", u""));
  EXPECT_EQ(Translate(Separator(u"0006", u"7003")), Call(emLlamadaSaliente, u"7002", u"0005"));
}

TEST_F(Norstar, ConfigurationChangedInABlockKeepsBlockAndList) {
  TransferIncoming(u"0003", u"7344");
  FeedAll({Separator(u"0009", u"7425"), Event(u"DIGITS DIALED    5551212")});

  const auto shifted = NorstarColumns().Item(emParamDuracionSegundos, 1, 2).Build();
  desk_.translator.Llamada(u"");
  desk_.translator.Conmutador(shifted.get());
  const CallValues call = Translate(Event(u"CALL RELEASED", u"07:00:00"));
  EXPECT_EQ(call.phone, u"5551212");
  EXPECT_EQ(call.caller, u"7425");
  EXPECT_EQ(call.duration[5], 7) << "read with the new configuration";

  Feed(Separator(u"0003", u"7440"));
  const auto standard = test::FixedColumns().Build();
  desk_.translator.Llamada(u"");
  desk_.translator.Conmutador(standard.get());
  desk_.Translate(u"--------");
  EXPECT_EQ(desk_.call().TipoLlamada(), emLlamadaSaliente);
  desk_.translator.Llamada(u"");
  desk_.translator.Conmutador(nullptr);
  Feed(Event(u"CALL RELEASED"));
  desk_.translator.Conmutador(shifted.get());  // translates that release
  EXPECT_EQ(ValuesOf(desk_.call()).caller, u"7440");

  FeedAll({Separator(u"0003", u"7440"), Event(u"FROM TRANSFER")});
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")).type, emLlamadaEntrante);
}

// Setting the configuration runs the present line once more.
TEST_F(Norstar, ConfigurationSetOnASeparatorOpensTheBlockAgain) {
  Feed(Separator(u"0003", u"7425"));
  desk_.translator.Conmutador(desk_.config.get());
  EXPECT_EQ(ValuesOf(desk_.call()), Call(emLlamadaSaliente, u"7425", u"0003"));
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")), Call(emLlamadaSaliente, u"7425", u"0003"));
}

TEST_F(NorstarShortLine, InAnOpenBlockIsRefusedAndChangesNothing) {
  TransferIncoming(u"0003", u"7344");
  FeedAll({Separator(u"0009", u"7425"), Event(u"DIGITS DIALED    5551212")});
  for (const TextView line : {u"x", u"----", u"-------", u"HOLD", u"0123456789", u"          "}) {
    EXPECT_THROW(desk_.Translate(line), InvalidArgumentError) << test::Ascii(line);
    EXPECT_EQ(desk_.translator.Llamada(), line);
    EXPECT_TRUE(IsCleared(desk_.call())) << ValuesOf(desk_.call());
    EXPECT_EQ(SlotOf(u"0003"), 1);
  }
  CallValues expected = Call(emLlamadaSaliente, u"7425", u"0009");
  expected.phone = u"5551212";
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")), expected);
}

TEST_F(NorstarShortLine, OutsideABlockIsIgnored) {
  FeedAll({u"x", u"----", u"0123456789"});
  Feed(Separator(u"0009", u"7425"));
  Translate(Event(u"CALL RELEASED"));
  FeedAll({u"x", u"----", u"0123456789"});
}

TEST_F(NorstarShortLine, OfElevenCharactersIsAnEventWithoutText) {
  Feed(Separator(u"0009", u"7425"));
  FeedAll({u"01234567890", u"           "});
  EXPECT_TRUE(BlockIsOpen());
}

TEST_F(NorstarShortLine, ThatIsEmptyIsNoLineAtAll) {
  Feed(Separator(u"0009", u"7425"));
  FeedAll({u"", u"\r\n", u"\n\r\n"});
  EXPECT_TRUE(BlockIsOpen());
}

TEST_F(Norstar, OverflowInASeparatorLeavesTheBlockAsFarAsRead) {
  test::DefineItem(*desk_.config, emParamFechaHoras, 19, 12);
  FeedAll({u"-------- 04/11/27 09          LINE = 0003 STN = 7425", Event(u"HOLD")});
  EXPECT_THROW(desk_.Translate(u"-------- 05/12/28 099999999999 LINE"), OverflowError);
  EXPECT_EQ(Text(desk_.call().Emisor()), u"7425") << "the block before is delivered";
  EXPECT_TRUE(BlockIsOpen());
  CallValues expected;
  expected.start = {2028, 5, 12, 0, 0, 0};
  EXPECT_EQ(Translate(Event(u"CALL RELEASED")), expected);
}

TEST_F(Norstar, OverflowInADurationKeepsTheBlockOpen) {
  test::DefineItem(*desk_.config, emParamDuracionMinutos, 29, 12);
  Feed(Separator(u"0003", u"7425"));
  EXPECT_THROW(desk_.Translate(Event(u"CALL RELEASED    999999999999", u"00:00:05")),
               OverflowError);
  EXPECT_TRUE(IsCleared(desk_.call()));
  EXPECT_THROW(desk_.Translate(Event(u"TRANSFERRED      999999999999", u"02:00:05")),
               OverflowError);
  EXPECT_EQ(SlotOf(u"0003"), 0);
  EXPECT_TRUE(BlockIsOpen());
  CallValues expected = Call(emLlamadaSaliente, u"7425", u"0003");
  expected.duration[3] = 2;  // all that was read before the failure
  EXPECT_EQ(Translate(Separator(u"0004", u"7001")), expected);
}

TEST_F(Norstar, EventsLookAtNoSlotButTheDuration) {
  Feed(Separator(u"0003", u"7425"));
  EXPECT_EQ(desk_.config->DATOActivo(), emParamTroncalSaliente);
  desk_.config->CTEActivo(emNoParamDatoConstante);
  FeedAll({Event(u"INCOMING CALL"), Event(u"DIGITS DIALED    5"), Event(u"HOLD")});
  EXPECT_EQ(desk_.config->DATOActivo(), emParamTroncalSaliente);
  Translate(Event(u"CALL RELEASED"));
  EXPECT_EQ(desk_.config->DATOActivo(), emParamDuracionSegundos);
  EXPECT_EQ(desk_.config->CTEActivo(), emNoParamDatoConstante);
}

// Random conversations against the plain implementation, which tells whether a block is open.
TEST_F(Norstar, RandomConversationsKeepTheBlockConsistent) {
  test::Random random(4711);
  test::naive::Translator plain({2026, 11, 21});
  plain.config.translation = 4;
  for (int kind = emParamFechaDia; kind <= emParamDuracionSegundos; ++kind) {
    desk_.config->DATOActivo(static_cast<emParamDato>(kind));
    if (!desk_.config->HayDATO()) continue;
    plain.config.items[kind] = {desk_.config->DATOPos(), desk_.config->DATOTam(), 1};
  }
  plain.config.items[emParamTroncalSaliente] = {35, 4, 3};
  plain.config.items[emParamExtensionSaliente] = {46, 7, 3};

  const TextView trunks[] = {u"0001", u"0002", u"LN-a", u"ln-A"};
  const TextView events[] = {u"HOLD",
                             u"LINE",
                             u"UNHOLD",
                             u"NO ANSWER",
                             u"TRANSFERRED",
                             u"TRANSFERRED",
                             u"OUTGOING CALL",
                             u"INCOMING CALL",
                             u"FROM TRANSFER",
                             u"FROM TRANSFER",
                             u"FROM TRANSFER",
                             u"CALL RELEASED",
                             u"DIGITS DIALED    5551212",
                             u"RESTRICTION PASSWORD 4321",
                             u"BUSY",
                             u""};
  std::array<int, 4> delivered{};
  for (int i = 0; i < 20000; ++i) {
    Text line;
    if (random.Percent(35)) {
      line = Separator(random.OneOf(trunks), Text(u"70") + ToText(random.Between(10, 15)));
    } else {
      line = Event(random.OneOf(events), Text(u"00:0") + ToText(random.Below(10)) + u":00");
    }
    if (random.Percent(3)) line.resize(static_cast<std::size_t>(random.Between(1, 20)), u' ');

    bool refused = false;
    try {
      desk_.Translate(line);
    } catch (const InvalidArgumentError&) {
      refused = true;
    }
    bool expected_refused = false;
    try {
      plain.Translate(line);
    } catch (const test::naive::InvalidArgument&) {
      expected_refused = true;
    }
    ASSERT_EQ(refused, expected_refused) << i << ": " << test::Ascii(line);
    ASSERT_EQ(Text(desk_.call().Emisor()), plain.info.caller) << i << ": " << test::Ascii(line);
    ASSERT_EQ(Text(desk_.call().Receptor()), plain.info.callee) << i << ": " << test::Ascii(line);
    ASSERT_EQ(Text(desk_.call().Telefono()), plain.info.phone) << i << ": " << test::Ascii(line);
    ASSERT_EQ(desk_.call().TipoLlamada(), plain.info.type) << i << ": " << test::Ascii(line);
    ASSERT_EQ(desk_.call().Atributos(), plain.info.attribute) << i << ": " << test::Ascii(line);
    ASSERT_EQ(desk_.call().Duracion(), plain.info.moments[1][4] * 60) << i;
    if (desk_.call().EsValido()) ++delivered[static_cast<std::size_t>(plain.info.attribute)];
    ASSERT_EQ(BlockIsOpen(), plain.block_is_open()) << i << ": " << test::Ascii(line);
  }
  for (const int count : delivered) EXPECT_GT(count, 20);
}

TEST_F(NorstarTransfer, TranslatorWaitsFromTheSeparatorToTheEndOfTheTransfer) {
  EXPECT_FALSE(desk_.translator.Waits());
  Feed(Separator(u"0123", u"205"));
  EXPECT_TRUE(desk_.translator.Waits());
  Feed(Event(u"INCOMING CALL    RINGING 0:06"));
  Translate(Event(u"TRANSFERRED"));
  EXPECT_TRUE(desk_.translator.Waits());
  Feed(Separator(u"0123", u"206"));
  Feed(Event(u"FROM TRANSFER"));
  Translate(Event(u"CALL RELEASED"));
  EXPECT_FALSE(desk_.translator.Waits());
}

TEST_F(NorstarTransfer, TranslatorWaitsWithABlockThatWasGivenUp) {
  Feed(Separator(u"0123", u"205"));
  Feed(Event(u"FROM TRANSFER"));
  EXPECT_FALSE(BlockIsOpen());
  EXPECT_TRUE(desk_.translator.Waits());
}

}  // namespace
}  // namespace conmuta
