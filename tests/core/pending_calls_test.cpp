// The list of calls that wait for the end of their transfer.
#include "translate/pending_calls.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/call_values.h"
#include "support/fake_clock.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::FakeClock;
using test::ValuesOf;

class Pending : public testing::Test {
 protected:
  clsLlamadaTRD Call(emTiposLlamadas type, TextView caller, TextView callee, TextView phone = u"") {
    clsLlamadaTRD call(clock_);
    call.TipoLlamada(type);
    call.Emisor(caller);
    call.Receptor(callee);
    call.Telefono(phone);
    return call;
  }
  clsLlamadaTRD Incoming(TextView trunk, TextView phone = u"") {
    return Call(emLlamadaEntrante, trunk, u"205", phone);
  }
  clsLlamadaTRD Outgoing(TextView trunk, TextView phone = u"") {
    return Call(emLlamadaSaliente, u"205", trunk, phone);
  }
  void ParkHundred() {
    for (int i = 1; i <= 100; ++i) list_.Park(Incoming(Text(u"T") + ToText(i)));
  }

  FakeClock clock_;
  PendingCalls list_;
};

using PendingCallsSearch = Pending;
using PendingCallsParking = Pending;
using PendingCallsFreeing = Pending;

TEST_F(PendingCallsSearch, OfAnEmptyListFindsNothing) {
  EXPECT_EQ(list_.Find(u"0123"), 0);
  EXPECT_EQ(list_.Find(u""), 0);
  EXPECT_EQ(list_.Find(u"   "), 0);
}

TEST_F(PendingCallsSearch, IgnoresBlanksAroundTheKey) {
  list_.Park(Incoming(u"0123"));
  for (const TextView key : {u"0123", u" 0123", u"0123 ", u"   0123   "}) {
    EXPECT_EQ(list_.Find(key), 1);
  }
  for (const TextView key : {u"01 23", u"123", u"01234", u"", u"\t0123", u"0123\u00A0"}) {
    EXPECT_EQ(list_.Find(key), 0) << test::Ascii(key);
  }
}

// The parked trunk is not trimmed: one with blanks around it is never found.
TEST_F(PendingCallsSearch, DoesNotFindATrunkWithBlanksAround) {
  list_.Park(Incoming(u" 0123"));
  list_.Park(Incoming(u"0456 "));
  for (const TextView key : {u" 0123", u"0123", u"0456 ", u"0456"}) {
    EXPECT_EQ(list_.Find(key), 0) << test::Ascii(key);
  }
}

TEST_F(PendingCallsSearch, FindsABlankInsideTheTrunk) {
  list_.Park(Incoming(u"CO 1"));
  EXPECT_EQ(list_.Find(u" CO 1 "), 1);
}

TEST_F(PendingCallsSearch, IgnoresCase) {
  list_.Park(Incoming(u"Troncal ñ"));
  for (const TextView key : {u"TRONCAL Ñ", u"troncal ñ", u"tRONCAL ñ"}) {
    EXPECT_EQ(list_.Find(key), 1) << test::Ascii(key);
  }
  EXPECT_EQ(list_.Find(u"TRONCAL N"), 0);
}

TEST_F(PendingCallsSearch, EmptyKeyFindsAnEmptyTrunk) {
  list_.Park(Incoming(u"T1"));
  list_.Park(Incoming(u""));
  EXPECT_EQ(list_.Find(u""), 2);
  EXPECT_EQ(list_.Find(u"  "), 2);
}

TEST_F(PendingCallsSearch, GivesTheFirstOfSeveral) {
  list_.Park(Incoming(u"T1"));
  list_.Park(Incoming(u"t1"));
  EXPECT_EQ(list_.Find(u"t1"), 1);
  list_.Free(1);
  EXPECT_EQ(list_.Find(u"T1"), 2);
}

struct TrunkOfType {
  emTiposLlamadas type;
  bool by_caller, by_callee;
};

void PrintTo(const TrunkOfType& row, std::ostream* out) {
  *out << "type " << row.type;
}

class PendingCallsTrunk : public Pending, public testing::WithParamInterface<TrunkOfType> {};

TEST_P(PendingCallsTrunk, IsThePartyThatTheTypeTells) {
  const TrunkOfType& row = GetParam();
  list_.Park(Call(row.type, u"caller", u"callee"));
  EXPECT_EQ(list_.Find(u"caller"), row.by_caller ? 1 : 0);
  EXPECT_EQ(list_.Find(u"callee"), row.by_callee ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Types, PendingCallsTrunk,
                         testing::Values(TrunkOfType{emLlamadaNoAnalizada, false, false},
                                         TrunkOfType{emLlamadaIndefinida, false, false},
                                         TrunkOfType{emLlamadaEntrante, true, false},
                                         TrunkOfType{emLlamadaSaliente, false, true},
                                         TrunkOfType{emLlamadaInterExtension, false, false},
                                         TrunkOfType{emLlamadaInterTroncal, true, true},
                                         TrunkOfType{emLlamadaCodigoCuenta, false, true}));

TEST_F(PendingCallsParking, KeepsACopy) {
  clsLlamadaTRD call = Incoming(u"T1", u"555");
  call.Atributos(emAtributoIniTransferida);
  call.Ring(30);
  list_.Park(call);
  const auto parked = ValuesOf(call);
  call.Inicializa();
  EXPECT_EQ(ValuesOf(list_[1]), parked);
}

TEST_F(PendingCallsParking, OnTheSameTrunkReplacesTheEarlierCall) {
  for (const emTiposLlamadas type : {emLlamadaEntrante, emLlamadaSaliente, emLlamadaCodigoCuenta}) {
    PendingCalls list;
    list.Park(Call(type, u"T1", u"T1", u"1"));
    list.Park(Incoming(u"T2", u"2"));
    list.Park(Incoming(u"T1", u"3"));
    EXPECT_EQ(Text(list[1].Telefono()), u"3") << type;
    EXPECT_EQ(list.Find(u"T1"), 1);
    list.Free(1);
    EXPECT_EQ(list.Find(u"T1"), 0) << "the earlier call is still there";
    EXPECT_EQ(list.Find(u"T2"), 2);
  }
}

TEST_F(PendingCallsParking, ReplacesAcrossDirections) {
  list_.Park(Incoming(u"T1", u"1"));
  list_.Park(Outgoing(u"T1", u"2"));
  EXPECT_EQ(list_[1].TipoLlamada(), emLlamadaSaliente);
  list_.Park(Call(emLlamadaInterTroncal, u"T9", u"T1"));
  EXPECT_EQ(list_[1].TipoLlamada(), emLlamadaInterTroncal);
  EXPECT_EQ(list_.Find(u"T9"), 1);
}

// The trunk of what is parked: its caller for an incoming call, its callee for all others.
TEST_F(PendingCallsParking, TakesTheCalleeForATrunkUnlessIncoming) {
  list_.Park(Incoming(u"T1"));
  for (const emTiposLlamadas type :
       {emLlamadaSaliente, emLlamadaInterExtension, emLlamadaInterTroncal, emLlamadaCodigoCuenta}) {
    PendingCalls list;
    list.Park(Incoming(u"T1"));
    list.Park(Call(type, u"T1", u"other"));
    EXPECT_EQ(list[1].TipoLlamada(), emLlamadaEntrante) << type;
    list.Park(Call(type, u"x", u"T1"));
    EXPECT_EQ(list[1].TipoLlamada(), type);
  }
}

TEST_F(PendingCallsParking, ComparesExactly) {
  const TextView trunks[] = {u"t1", u"T1", u"T1 ", u" T1", u"T 1"};
  for (const TextView trunk : trunks) list_.Park(Incoming(trunk, trunk));
  for (std::int16_t slot = 1; slot <= 5; ++slot) {
    EXPECT_EQ(list_[slot].Telefono(), trunks[slot - 1]) << slot;
  }
  EXPECT_EQ(list_.Find(u"T1"), 1) << "searching does ignore case";
}

TEST_F(PendingCallsParking, OnAnExtensionOrTrunkPairNeverReplaces) {
  for (const emTiposLlamadas type :
       {emLlamadaInterExtension, emLlamadaInterTroncal, emLlamadaNoAnalizada}) {
    PendingCalls list;
    list.Park(Call(type, u"T1", u"T1"));
    list.Park(Incoming(u"T1"));
    EXPECT_EQ(list[1].TipoLlamada(), type);
    EXPECT_EQ(list[2].TipoLlamada(), emLlamadaEntrante) << type;
  }
}

TEST_F(PendingCallsParking, TakesAFreedSlotBeforeALaterOneOnItsTrunk) {
  list_.Park(Incoming(u"T1"));
  list_.Park(Incoming(u"T2", u"old"));
  list_.Free(1);
  list_.Park(Incoming(u"T2", u"new"));
  EXPECT_EQ(Text(list_[1].Telefono()), u"new");
  EXPECT_EQ(Text(list_[2].Telefono()), u"old");
  EXPECT_EQ(list_.Find(u"T2"), 1);
}

TEST_F(PendingCallsParking, PrefersAFreedSlotToAnEmptyOne) {
  for (const TextView trunk : {u"T1", u"T2", u"T3"}) list_.Park(Incoming(trunk));
  list_.Free(3);
  list_.Free(2);
  list_.Park(Incoming(u"T4"));
  list_.Park(Incoming(u"T5"));
  list_.Park(Incoming(u"T6"));
  EXPECT_EQ(list_.Find(u"T4"), 2);
  EXPECT_EQ(list_.Find(u"T5"), 3);
  EXPECT_EQ(list_.Find(u"T6"), 4);
}

// What has no type takes a slot, yet leaves it free.
TEST_F(PendingCallsParking, OfAnUndefinedCallLeavesTheSlotFree) {
  list_.Park(Call(emLlamadaIndefinida, u"T1", u"T1"));
  list_.Park(Incoming(u"T2"));
  EXPECT_EQ(list_.Find(u"T2"), 1);
}

TEST_F(PendingCallsParking, BeyondAHundredIsDropped) {
  ParkHundred();
  EXPECT_EQ(list_.Find(u"T100"), 100);
  list_.Park(Incoming(u"T101"));
  EXPECT_EQ(list_.Find(u"T101"), 0);
  for (int i = 1; i <= 100; ++i) EXPECT_EQ(list_.Find(Text(u"T") + ToText(i)), i);
}

TEST_F(PendingCallsParking, InAFullListStillReplacesAndReuses) {
  ParkHundred();
  list_.Park(Incoming(u"T50", u"555"));
  EXPECT_EQ(Text(list_[50].Telefono()), u"555");
  list_.Free(100);
  list_.Park(Incoming(u"T101"));
  EXPECT_EQ(list_.Find(u"T101"), 100);
  list_.Park(Incoming(u"T102"));
  EXPECT_EQ(list_.Find(u"T102"), 0);
}

TEST_F(PendingCallsFreeing, IgnoresWhatIsNoSlotWithARecord) {
  list_.Park(Incoming(u"T1"));
  for (const int slot : {-32768, -1, 0, 2, 100, 101, 32767}) {
    list_.Free(static_cast<std::int16_t>(slot));
  }
  EXPECT_EQ(list_.Find(u"T1"), 1);
  list_.Park(Incoming(u"T2"));
  EXPECT_EQ(list_.Find(u"T2"), 2);
}

TEST_F(PendingCallsFreeing, OfAFreedSlotLeavesItFree) {
  list_.Park(Incoming(u"T1"));
  list_.Free(1);
  list_.Free(1);
  EXPECT_EQ(list_.Find(u"T1"), 0);
  list_.Park(Incoming(u"T2"));
  EXPECT_EQ(list_.Find(u"T2"), 1);
}

TEST_F(PendingCallsFreeing, LeavesTheOthersInTheirSlots) {
  ParkHundred();
  list_.Free(1);
  list_.Free(99);
  for (const int i : {2, 50, 98, 100}) EXPECT_EQ(list_.Find(Text(u"T") + ToText(i)), i);
}

TEST_F(PendingCallsFreeing, LeavesFewerThatAreCounted) {
  EXPECT_EQ(list_.Count(), 0U);
  ParkHundred();
  EXPECT_EQ(list_.Count(), 100U);
  list_.Free(1);
  list_.Free(1);
  list_.Free(50);
  EXPECT_EQ(list_.Count(), 98U);
  list_.Park(Incoming(u"T2"));  // a freed slot goes before the one on the same trunk
  EXPECT_EQ(list_.Count(), 99U);
  list_.Replace(1, Incoming(u"T9"));
  EXPECT_EQ(list_.Count(), 99U);
}

// The same list through the translator, as hosts reach it.
TEST(TranslatorPendingCalls, ParksTheCallRecord) {
  const FakeClock clock;
  clsTradEST translator(clock);
  clsLlamadaTRD& call = translator.InfoLlamada();
  call.TipoLlamada(emLlamadaEntrante);
  call.Emisor(u"0123");
  translator.AltaLlamadaLista();
  EXPECT_EQ(Text(call.Emisor()), u"0123");
  call.Inicializa();
  EXPECT_EQ(translator.BuscaLlamadaTroncalLista(u"  0123  "), 1);
  translator.QuitaLlamadaLista(0);
  translator.QuitaLlamadaLista(101);
  EXPECT_EQ(translator.BuscaLlamadaTroncalLista(u"0123"), 1);
  translator.QuitaLlamadaLista(1);
  EXPECT_EQ(translator.BuscaLlamadaTroncalLista(u"0123"), 0);
}

TEST(TranslatorPendingCalls, OutliveLinesAndConfigurations) {
  test::Translation desk(test::ConfigBuilder().Build());
  desk.call().TipoLlamada(emLlamadaSaliente);
  desk.call().Receptor(u"T1");
  desk.translator.AltaLlamadaLista();
  desk.Translate(u"a line 1");
  EXPECT_EQ(desk.translator.BuscaLlamadaTroncalLista(u"T1"), 1);
  const auto other = test::ConfigBuilder().Case(emCasoNortelMeridian01).Build();
  desk.translator.Conmutador(other.get());
  EXPECT_EQ(desk.translator.BuscaLlamadaTroncalLista(u"T1"), 1);
  desk.translator.Conmutador(nullptr);
  EXPECT_EQ(desk.translator.BuscaLlamadaTroncalLista(u"T1"), 1);
}

}  // namespace
}  // namespace conmuta
